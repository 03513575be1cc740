// Pictures of a text document on the screen. They have several dots to the pixel, for paper; the toolkit
// shows them by leaving dots out, which breaks thin lines and letters.
#pragma once

#include <QTextDocument>

/// From now on the document's pictures are shown reduced with all their dots. To be called when the document
/// is whole, before a widget shows it: it makes the document's layout.
void ShowPicturesSmoothly(QTextDocument& document);
