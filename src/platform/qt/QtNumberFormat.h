// The number conventions of the user's locale, as the toolkit knows them.
#pragma once

#include "platform/NumberFormat.h"

/// A separator outside the single-byte code page is replaced by a period.
NumberFormat SystemNumberFormat();
