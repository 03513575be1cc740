#include "paper/qt/RtfText.h"

#include <algorithm>
#include <cstdint>
#include <string>

#include "paper/qt/AsciiText.h"
#include "text/CodePage.h"

namespace {

constexpr qsizetype HexPerLine = 128;

}  // namespace

void RtfText::Text(const QString& text, bool separatesBlanks) {
  const auto isItself = [](char16_t code) {
    return code >= 0x20 && code < 0x7F && code != u'\\' && code != u'{' && code != u'}';
  };
  QStringView plain;  // not written yet
  char16_t before = 0;
  const auto flush = [&] {
    if (!plain.isEmpty()) Letters(plain);
    plain = {};
  };
  for (qsizetype i = 0; i < text.size(); ++i) {
    const char16_t code = text[i].unicode();
    if (separatesBlanks && code == u' ' && before == u' ') {
      flush();
      BeginGroup();
      EndGroup();
    }
    if (isItself(code)) {
      plain = plain.isEmpty() ? QStringView(text).sliced(i, 1) : QStringView(plain.begin(), plain.size() + 1);
    } else {
      flush();
      Write(code);
    }
    before = code;
  }
  flush();
}

void RtfText::Letters(QStringView plain) {
  if (wordIsOpen_) bytes_ += ' ';
  AppendAscii(bytes_, plain);
  wordIsOpen_ = false;
}

void RtfText::Write(char16_t code) {
  if (code == u'\\' || code == u'{' || code == u'}') {
    Symbol(static_cast<char>(code));
  } else if (code >= 0x20 && code < 0x7F) {
    Character(static_cast<char>(code));
  } else if (code == u'\t') {
    Word("tab");
  } else if (code == QChar::LineSeparator) {
    Word("line");
  } else if (code == QChar::Nbsp) {
    Symbol('~');
  } else if (code < QChar::Nbsp) {
    Character(' ');  // a control character
  } else {
    Unicode(code);
  }
}

// One UTF-16 unit, with what a reader shows that knows only the code page. The fallback is always a byte in
// hexadecimal: of a character that stands as itself some readers do not know where it ends.
void RtfText::Unicode(char16_t code) {
  QByteArray& escape = escapes_[code];
  if (escape.isEmpty()) {
    const std::string byte = QChar::isSurrogate(code) ? "?" : FromUtf8(QString(QChar(code)).toStdString());
    escape = "\\u" + QByteArray::number(static_cast<std::int16_t>(code)) + "\\'" +
             QByteArray(1, byte.front()).toHex();
  }
  bytes_ += escape;
  wordIsOpen_ = false;
}

void RtfText::Hexadecimal(const QByteArray& data) {
  const QByteArray hex = data.toHex();
  for (qsizetype at = 0; at < hex.size(); at += HexPerLine) {
    EndLine();
    bytes_ += QByteArrayView(hex).sliced(at, std::min(HexPerLine, hex.size() - at));
  }
}
