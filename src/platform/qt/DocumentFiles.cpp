// See the header.
#include "platform/qt/DocumentFiles.h"
