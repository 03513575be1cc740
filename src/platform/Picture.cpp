// See the header.
#include "platform/Picture.h"
