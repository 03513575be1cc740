#include "platform/qt/QtNumberFormat.h"

#include "text/CodePage.h"

namespace {

constexpr const char* UnknownSeparator = "?";

}  // namespace

NumberFormat RulerNumbersOf(const QLocale& locale) {
  const std::string separator = FromUtf8(QString(locale.decimalPoint()).toStdString());
  return NumberFormat{separator.size() == 1 ? separator : UnknownSeparator};
}

NumberFormat NumbersOf(const QLocale& locale) {
  const NumberFormat own = RulerNumbersOf(locale);
  return own.DecimalSeparator == UnknownSeparator ? NumberFormat{} : own;
}

NumberFormat SystemNumberFormat() { return NumbersOf(QLocale::system()); }

NumberFormat SystemRulerNumbers() { return RulerNumbersOf(QLocale::system()); }
