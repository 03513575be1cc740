// See the header.
#include "platform/qt/PagedText.h"
