// The number conventions of the user's locale, as the toolkit knows them.
#pragma once

#include <QLocale>

#include "platform/NumberFormat.h"

/// A separator outside the single-byte code page is replaced by a period.
NumberFormat NumberFormatOf(const QLocale& locale);

NumberFormat SystemNumberFormat();
