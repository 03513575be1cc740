// See the header.
#include "reports/PrintableReportFiles.h"
