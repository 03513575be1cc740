// Reports and tables of a truss with any names: nothing in them commands a terminal, and a reader of RFC 4180
// finds all cells of the table.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "InputBytes.h"
#include "NamedTruss.h"
#include "Require.h"
#include "app/TextReports.h"
#include "reports/ReportTables.h"

namespace {

using Records = std::vector<std::vector<std::string>>;

// As RFC 4180 has it; nothing for what it does not know.
std::optional<Records> ReadRecords(const std::string& text) {
  Records records;
  std::size_t at = 0;
  while (at < text.size()) {
    records.emplace_back();
    for (bool hasMore = true; hasMore;) {
      std::string& field = records.back().emplace_back();
      if (text.compare(at, 1, "\"") == 0) {
        for (++at; text.compare(at, 1, "\"") != 0 || text.compare(at, 2, "\"\"") == 0; ++at) {
          if (at >= text.size()) return std::nullopt;
          if (text[at] == '"') ++at;
          field += text[at];
        }
        ++at;
      } else {
        const std::size_t end = std::min(text.find_first_of(",\r\n\"", at), text.size());
        field = text.substr(at, end - at);
        at = end;
      }
      hasMore = text.compare(at, 1, ",") == 0;
      if (hasMore) ++at;
    }
    if (text.compare(at, 2, "\r\n") != 0) return std::nullopt;
    at += 2;
  }
  return records;
}

void CheckCsv(const AnalysedFile& file, CsvTable which, const ReportTable& table,
              const ReportFormat& format) {
  std::ostringstream out;
  WriteCsv(out, file, which, format);
  const std::optional<Records> records = ReadRecords(out.str());
  Require(records.has_value(), "the table is as RFC 4180 has it");
  const bool isHeadingAlone =
      which == CsvTable::Solutions && file.Analysis.Reading.Code == Outcome::Inconsistent;
  Require(records->size() == (isHeadingAlone ? 1 : static_cast<std::size_t>(table.NumRows())),
          "all rows are there");
  for (const std::vector<std::string>& record : *records)
    Require(record.size() == static_cast<std::size_t>(table.NumColumns()), "all columns are there");
}

// C0 but line ends and tabs, DEL, and C1 in UTF-8.
void CheckForTerminal(const std::string& text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto code = static_cast<unsigned char>(text[i]);
    Require(code >= 0x20 || code == '\n' || code == '\r' || code == '\t', "no control character is printed");
    Require(code != 0x7F, "no DEL is printed");
    const bool isC1 = code == 0xC2 && i + 1 < text.size() && static_cast<unsigned char>(text[i + 1]) < 0xA0;
    Require(!isC1, "no C1 character is printed");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  InputBytes input(data, size);
  const ReportFormat format{1 + input.Below(9), {.DecimalSeparator = input.Below(2) == 0 ? "." : ","}};
  const bool explains = input.Below(2) == 1;
  const AnalysedFile file = AnalysedSmallTruss(input);
  std::ostringstream out;
  WriteReport(out, file,
              {ReportSections{true, true, true, true, true},
               explains ? std::vector{ExplainedSection::Why, ExplainedSection::Checks,
                                      ExplainedSection::Steps, ExplainedSection::ByJoint}
                        : std::vector<ExplainedSection>{}},
              format);
  CheckForTerminal(out.str());
  CheckCsv(file, CsvTable::Equations, *LoadGridWithEquations(file.Analysis, format), format);
  CheckCsv(file, CsvTable::RREF, *LoadGridWithRREF(file.Analysis, format), format);
  CheckCsv(file, CsvTable::Solutions, *LoadGridWithSolutions(file.Analysis, format), format);
  return 0;
}
