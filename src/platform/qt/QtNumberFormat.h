// The number conventions of the user's locale, as the toolkit knows them.
#pragma once

#include <QLocale>

#include "platform/NumberFormat.h"

/// How numbers are written and read: a separator outside the single-byte code page is replaced by a period.
NumberFormat NumbersOf(const QLocale& locale);

NumberFormat SystemNumberFormat();

/// How rulers number their ticks: a separator outside the code page stays an unknown one ("?"), so that their
/// numbers are whole and need none.
NumberFormat RulerNumbersOf(const QLocale& locale);

NumberFormat SystemRulerNumbers();
