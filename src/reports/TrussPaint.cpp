// See the header.
#include "reports/TrussPaint.h"
