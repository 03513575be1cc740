// See the header.
#include "reports/PrintableReport.h"
