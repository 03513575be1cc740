// A section of the reports on a truss with any names: nothing in it commands a terminal.
#include <cstddef>
#include <cstdint>
#include <sstream>

#include "InputBytes.h"
#include "NamedTruss.h"
#include "ReadBack.h"
#include "Sections.h"
#include "app/TextReports.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  InputBytes input(data, size);
  const WantedSections section = OneSection(input.Below(NumSections));
  const ReportFormat format{1 + input.Below(9), {.DecimalSeparator = input.Below(2) == 0 ? "." : ","}};
  const AnalysedFile file = AnalysedSmallTruss(input);
  std::ostringstream out;
  WriteReport(out, file, section, format);
  CheckForTerminal(out.str());
  return 0;
}
