// Any bytes are read, named, analysed and reported on, as the command line does it.
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>

#include "app/FileAnalysis.h"
#include "app/TextReports.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::istringstream input(std::string(reinterpret_cast<const char*>(data), size));
  AnalysedFile file = ReadForAnalysis("-", size % 2 == 0, input);
  Analyse(file);
  const ReportFormat format{file.Document.Settings.SigFigs, {}};
  std::ostringstream output;
  WriteReport(
      output, file,
      {ReportSections{true, true, true, true, true}, {ExplainedSection::Why, ExplainedSection::Checks}},
      format);
  WriteCsv(output, file, CsvTable::Solutions, format);
  return 0;
}
