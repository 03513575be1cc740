// See the header.
#include "platform/qt/RtfWriter.h"
