// See the header.
#include "platform/qt/QtNumberFormat.h"

#include "text/CodePage.h"

NumberFormat NumberFormatOf(const QLocale& locale) {
  const std::string separator = FromUtf8(QString(locale.decimalPoint()).toStdString());
  const bool hasPlace = separator.size() == 1 && separator != "?";
  return {.DecimalSeparator = hasPlace ? separator : ".", .IsSeparatorReplaced = !hasPlace};
}

NumberFormat SystemNumberFormat() { return NumberFormatOf(QLocale::system()); }
