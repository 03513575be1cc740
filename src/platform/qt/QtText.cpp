// See the header.
#include "platform/qt/QtText.h"

#include "text/CodePage.h"

QString ToQt(const std::string& singleByteText) { return QString::fromStdString(ToUtf8(singleByteText)); }

std::string FromQt(const QString& text) { return FromUtf8(text.toStdString()); }

QString OneLineText(QString text) {
  for (QChar& character : text) {
    if (character.category() == QChar::Other_Control) character = QLatin1Char(' ');
  }
  return text;
}

QString PlainToolTip(const QString& text) {
  constexpr qsizetype longest = 300;
  if (text.isEmpty()) return {};
  const QString shown = text.size() > longest ? text.first(longest) + QChar(0x2026) : text;
  return QStringLiteral("<p style='white-space:pre-wrap'>%1</p>").arg(shown.toHtmlEscaped());
}
