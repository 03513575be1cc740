#include "paper/qt/OdtText.h"

#include <QColor>
#include <algorithm>

#include "paper/qt/AsciiText.h"

namespace {

// Bytes of text that wait to be packed.
constexpr std::size_t MostWaiting = 1 << 18;

bool IsControl(char16_t code) { return code < 0x20 || (code >= 0x7F && code < 0xA0); }

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

void OdtText::Markup(QByteArrayView markup) {
  bytes_.append(markup.data(), static_cast<std::size_t>(markup.size()));
  if (bytes_.size() >= MostWaiting) Pack();
}

void OdtText::Pack() {
  packed_.Write(bytes_);
  bytes_.clear();
}

Deflated OdtText::Take() {
  Pack();
  return packed_.Take(DeflateStream::End::OfAll);
}

void OdtText::Write(QStringView text) {
  qsizetype from = 0;  // of the letters that are not written yet
  qsizetype i = 0;
  while (i < text.size()) {
    const char16_t code = text[i].unicode();
    if (code == u' ') {
      qsizetype end = i + 1;
      while (end < text.size() && text[end] == u' ') ++end;
      const bool isLetter = end == i + 1 && from < i && end < text.size() && text[end].isPrint();
      if (!isLetter) {
        WriteLetters(text.sliced(from, i - from));
        WriteBlanks(end - i);
        from = end;
      }
      i = end;
      continue;
    }
    if (IsControl(code) || code == QChar::LineSeparator) {
      WriteLetters(text.sliced(from, i - from));
      if (code == u'\t') bytes_ += "<text:tab/>";
      if (code == QChar::LineSeparator) bytes_ += "<text:line-break/>";
      from = i + 1;
    }
    ++i;
  }
  WriteLetters(text.sliced(from));
}

// Most are few, and figures.
void OdtText::WriteLetters(QStringView letters) {
  const auto isItself = [](QChar letter) {
    const char16_t code = letter.unicode();
    return code < 0x80 && code != u'<' && code != u'>' && code != u'&' && code != u'"';
  };
  if (!std::ranges::all_of(letters, isItself)) {
    bytes_ += letters.toString().toHtmlEscaped().toStdString();
    return;
  }
  if (letters.size() == 1) {
    bytes_ += static_cast<char>(letters.front().unicode());
  } else {
    AppendAscii(bytes_, letters);
  }
}

void OdtText::WriteBlanks(qsizetype count) {
  if (count == 1) {
    bytes_ += "<text:s/>";
    return;
  }
  // Columns of a table have the same few widths all over.
  if (count != blanks_) blanksElement_ = "<text:s text:c=\"" + std::to_string(count) + "\"/>";
  blanks_ = count;
  bytes_ += blanksElement_;
}

const QByteArray& OdtStyles::NameOf(const Paragraph& paragraph) {
  return NameOf(Style{.Look = paragraph.First,
                      .HeadingLevel = paragraph.HeadingLevel(),
                      .StaysWithNext = paragraph.StaysWithNext,
                      .StaysWhole = paragraph.StaysWhole()});
}

const QByteArray& OdtStyles::NameOf(const Style& style) {
  const auto found = std::find(met_.begin(), met_.end(), style);
  const auto index = static_cast<std::size_t>(found - met_.begin());
  if (found == met_.end()) {
    met_.push_back(style);
    names_.push_back(initial_ + QByteArray::number(static_cast<int>(met_.size())));
  }
  return names_[index];
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
