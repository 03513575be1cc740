#include "paper/qt/DocumentFiles.h"

namespace {

std::string PlainText(const DocumentPart& part) {
  QTextCursor cursor(part.Document.firstBlock());
  cursor.setPosition(part.Begin);
  cursor.setPosition(part.End, QTextCursor::KeepAnchor);
  QString text = cursor.selectedText();
  text.remove(QChar(QChar::ObjectReplacementCharacter));
  text.replace(QChar(QChar::ParagraphSeparator), QChar(u'\n'));
  text.replace(QChar(QChar::LineSeparator), QChar(u'\n'));
  return text.toStdString();
}

}  // namespace

RichTextForms ToForms(const QTextCursor& cursor) {
  const DocumentPart part = cursor.hasSelection() ? DocumentPart(cursor) : DocumentPart(*cursor.document());
  return {.Rtf = ToRtf(part).toStdString(), .Html = ToHtml(part).toStdString(), .Plain = PlainText(part)};
}
