// See the header.
#include "reports/RTBPicture.h"
