// Print previews for those who do not see them: the toolkit's own have no names for some controls, and their
// pages are pictures.
#pragma once

#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QString>
#include <functional>

/// The pages are called `name` and read aloud as `text`, which is made when it is asked for. To be called
/// again when the pages have become others.
void PutInWords(QPrintPreviewWidget& preview, const QString& name, std::function<QString()> text);

/// The same for the pages of a dialog, whose boxes get names too.
void PutInWords(QPrintPreviewDialog& dialog, const QString& name, std::function<QString()> text);
