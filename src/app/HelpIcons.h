// The pictures on the help viewer's buttons, drawn in the colours of the desktop's style at every size.
#pragma once

#include <QIcon>

enum class HelpGlyph { Back, Forward, Home, Contents, Find, ZoomIn, ZoomOut, Previous, Next, Close };

QIcon HelpIcon(HelpGlyph glyph);
