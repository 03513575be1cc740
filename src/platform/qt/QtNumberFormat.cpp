// See the header.
#include "platform/qt/QtNumberFormat.h"

#include <QLocale>

#include "text/CodePage.h"

NumberFormat SystemNumberFormat() {
  const std::string separator = FromUtf8(QLocale::system().decimalPoint().toStdString());
  return NumberFormat{separator.size() != 1 || separator == "?" ? "." : separator};
}
