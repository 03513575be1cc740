#include "platform/qt/QtText.h"

#include <algorithm>

#include "text/CodePage.h"

namespace {

// The characters of the category "Other, control", without looking into its table.
bool IsControl(QChar character) {
  const char16_t code = character.unicode();
  return code < 0x20 || (code >= 0x7F && code < 0xA0);
}

}  // namespace

QString ToQt(std::string_view singleByteText) { return QString::fromStdString(ToUtf8(singleByteText)); }

std::string FromQt(const QString& text) { return FromUtf8(text.toStdString()); }

QString OneLineText(QString text) {
  for (QChar& character : text) {
    if (IsControl(character)) character = QLatin1Char(' ');
  }
  return text;
}

void MakePrintable(QString& text) {
  // Most texts are figures and blanks.
  const auto isPlain = [](QChar character) {
    const char16_t code = character.unicode();
    return (code >= 0x20 && code < 0x7F) || (code >= 0xA0 && code < QChar::LineSeparator);
  };
  if (std::all_of(text.cbegin(), text.cend(), isPlain)) return;
  text.removeIf([](QChar character) {
    const bool stays = character == u'\t' || character == u'\r' || character == u'\n';
    return !stays && IsControl(character);
  });
  for (QChar& character : text) {
    const char16_t code = character.unicode();
    if (code == QChar::ParagraphSeparator) {
      character = QChar(QChar::LineSeparator);
    } else if (code == QChar::ObjectReplacementCharacter || code >= 0xFFFE ||
               (code >= 0xFDD0 && code <= 0xFDEF)) {
      character = QChar(QChar::ReplacementCharacter);
    }
  }
}

QString PlainToolTip(const QString& text) {
  constexpr qsizetype longest = 300;
  if (text.isEmpty()) return {};
  const QString shown = text.size() > longest ? text.first(longest) + QChar(0x2026) : text;
  return QStringLiteral("<p style='white-space:pre-wrap'>%1</p>").arg(shown.toHtmlEscaped());
}
