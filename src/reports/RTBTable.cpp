// See the header.
#include "reports/RTBTable.h"
