// Any bytes are read, named, analysed and reported on, as the command line does it: what is printed commands
// no terminal and can be read back. A file has no place for a choice: the sum of its bytes chooses.
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <sstream>
#include <string>

#include "ReadBack.h"
#include "Require.h"
#include "Sections.h"
#include "app/FileAnalysis.h"
#include "app/TextReports.h"
#include "text/ControlCharacters.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto choice =
      static_cast<int>(std::accumulate(data, data + size, std::size_t{0}) % (4 * NumSections));
  std::istringstream input(std::string(reinterpret_cast<const char*>(data), size));
  AnalysedFile file = ReadForAnalysis("-", choice % 2 == 0, input);
  Analyse(file);
  const ReportFormat format{file.Document.Settings.SigFigs, {}};
  std::ostringstream out;
  if (choice < 3 * NumSections) {
    WriteReport(out, file, OneSection(choice % NumSections), format);
  } else {
    WriteCsv(out, file, static_cast<CsvTable>(choice % 3), format);
    Require(ReadRecords(out.str()).has_value(), "a table is as RFC 4180 has it");
  }
  CheckForTerminal(out.str());
  Require(IsUtf8(out.str()), "what is printed is UTF-8");
  return 0;
}
