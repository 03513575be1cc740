// See the header.
#include "platform/qt/QtClipboard.h"
