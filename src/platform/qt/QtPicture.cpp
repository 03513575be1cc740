// See the header.
#include "platform/qt/QtPicture.h"
