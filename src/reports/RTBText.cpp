// See the header.
#include "reports/RTBText.h"
