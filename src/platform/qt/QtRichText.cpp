// See the header.
#include "platform/qt/QtRichText.h"
