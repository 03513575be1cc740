// Texts that are read aloud otherwise than the toolkit would: with the descriptions of their pictures, and
// pages that are only pictures of a text.
#pragma once

#include <QString>
#include <QTextDocument>
#include <QTextEdit>
#include <QWidget>
#include <functional>

/// The text of a document with the alternative text of each picture in its place, in brackets.
QString TextInWords(const QTextDocument& document);

/// Who asks for the text of the box, which must be one to be read only, is told of its pictures in words. To
/// be called before somebody asks.
void TellPicturesInWords(QTextEdit& box);

/// The widget is read aloud as this text, under the name that it has. The text is made when it is asked for,
/// once, and until this is called again; the first time before somebody asks for the widget.
void ReadAloudAs(QWidget& widget, std::function<QString()> text);
