// Texts in a window that are there to be read, selected and copied.
#pragma once

#include <QFont>
#include <QString>

class QPlainTextEdit;
class QWidget;

/// An empty box for plain text that the mouse and the keyboard select and nobody edits; Tab leaves it.
/// `margin` in pixels around the text.
QPlainTextEdit* MakeReadOnlyText(const QString& name, const QString& accessibleName, int margin,
                                 QWidget* parent);

/// The widget's letters in a size that is meant for a screen of 96 dots to the inch, whatever its screen has:
/// pixels are reckoned with it.
QFont LettersAt96(const QWidget& widget, float points);
