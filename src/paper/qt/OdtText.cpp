#include "paper/qt/OdtText.h"

#include <QColor>
#include <algorithm>

namespace {

QByteArray Parent(const OdtStyles::Style& style) {
  if (style.HeadingLevel == 0) return {};
  return " style:parent-style-name=\"Heading_20_" + QByteArray::number(style.HeadingLevel) + '"';
}

QByteArray Properties(const OdtStyles::Style& style) {
  const Letters& letters = style.Look;
  QByteArray bytes;
  if (style.StaysWithNext || style.StaysWhole) {
    bytes += "<style:paragraph-properties";
    if (style.StaysWhole) bytes += " fo:keep-together=\"always\"";
    if (style.StaysWithNext) bytes += " fo:keep-with-next=\"always\"";
    bytes += "/>";
  }
  bytes += "<style:text-properties style:font-name=\"" + letters.Family.toHtmlEscaped().toUtf8() +
           "\" fo:font-size=\"" + OdtPoints(letters.Points) + "\" fo:color=\"" +
           QColor(letters.Colour).name().toLatin1() + '"';
  if (letters.Bold) bytes += " fo:font-weight=\"bold\"";
  if (letters.Italic) bytes += " fo:font-style=\"italic\"";
  if (letters.Underlined)
    bytes += " style:text-underline-style=\"solid\" style:text-underline-width=\"auto\"";
  return bytes + "/>";
}

}  // namespace

QByteArray OdtPoints(double points) { return QByteArray::number(points, 'g', 6) + "pt"; }

void OdtText::Write(const QString& text) {
  for (qsizetype i = 0; i < text.size(); ++i) {
    const QChar character = text[i];
    if (character == u' ') {
      i = WriteBlanks(text, i) - 1;
    } else if (character == u'\t') {
      Flush();
      bytes_ += "<text:tab/>";
    } else if (character == QChar(QChar::LineSeparator)) {
      Flush();
      bytes_ += "<text:line-break/>";
    } else if (character.category() != QChar::Other_Control) {
      letters_ += character;
    }
  }
  Flush();
}

qsizetype OdtText::WriteBlanks(const QString& text, qsizetype begin) {
  const auto isBlank = [](QChar character) { return character == u' '; };
  const qsizetype end = std::find_if_not(text.cbegin() + begin, text.cend(), isBlank) - text.cbegin();
  if (end == begin + 1 && !letters_.isEmpty() && end < text.size() && text[end].isPrint()) {
    letters_ += u' ';
    return end;
  }
  Flush();
  bytes_ += end == begin + 1 ? "<text:s/>" : "<text:s text:c=\"" + QByteArray::number(end - begin) + "\"/>";
  return end;
}

void OdtText::Flush() {
  bytes_ += letters_.toHtmlEscaped().toUtf8();
  letters_.clear();
}

QByteArray OdtStyles::NameOf(const Paragraph& paragraph) {
  return NameOf(Style{.Look = paragraph.First,
                      .HeadingLevel = paragraph.HeadingLevel(),
                      .StaysWithNext = paragraph.StaysWithNext,
                      .StaysWhole = paragraph.StaysWhole()});
}

QByteArray OdtStyles::NameOf(const Style& style) {
  const auto found = std::find(met_.begin(), met_.end(), style);
  const auto number = static_cast<int>(found - met_.begin()) + 1;
  if (found == met_.end()) met_.push_back(style);
  return initial_ + QByteArray::number(number);
}

QByteArray OdtStyles::Bytes() const {
  QByteArray bytes;
  for (std::size_t i = 0; i < met_.size(); ++i) {
    bytes += QByteArray("<style:style style:name=\"") + initial_ +
             QByteArray::number(static_cast<int>(i) + 1) + "\" style:family=\"" + family_ + '"' +
             Parent(met_[i]) + '>' + Properties(met_[i]) + "</style:style>\n";
  }
  return bytes;
}
