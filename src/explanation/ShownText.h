// How windows show the single-byte texts of an explanation: control characters as pictures.
#pragma once

#include <QString>
#include <QStringList>
#include <string>
#include <vector>

#include "text/CodePage.h"
#include "text/ControlCharacters.h"

inline QString ShownText(const std::string& text) {
  return QString::fromStdString(VisibleText(ToUtf8(text)));
}

/// Each on a line of its own.
inline QString ShownText(const std::vector<std::string>& lines) {
  QStringList shown;
  for (const std::string& line : lines) shown.append(ShownText(line));
  return shown.join(QLatin1Char('\n'));
}
