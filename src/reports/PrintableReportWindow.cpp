// See the header.
#include "reports/PrintableReportWindow.h"
