// A table of a truss with any names as CSV: a reader of RFC 4180 finds every cell, and nothing in it commands
// a terminal.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <sstream>
#include <string>

#include "InputBytes.h"
#include "NamedTruss.h"
#include "ReadBack.h"
#include "Require.h"
#include "app/TextReports.h"
#include "reports/ReportTables.h"
#include "text/CodePage.h"
#include "text/ControlCharacters.h"

namespace {

constexpr char EnDash = '\x96';

std::unique_ptr<ReportTable> TableOf(const AnalysedFile& file, CsvTable which, const ReportFormat& format) {
  if (which == CsvTable::Equations) return LoadGridWithEquations(file.Analysis, format);
  if (which == CsvTable::RREF) return LoadGridWithRREF(file.Analysis, format);
  return LoadGridWithSolutions(file.Analysis, format);
}

// Numbers have a minus sign, all else is as in the table, with signs for what could not be seen.
std::string ExpectedCell(const ReportTable& table, int row, int column) {
  std::string text = table.Text(row, column);
  if (row > 0 && column > 0) std::ranges::replace(text, EnDash, '-');
  return VisibleText(ToUtf8(text));
}

void CheckCells(const Records& records, const ReportTable& table) {
  for (int row = 0; row < static_cast<int>(records.size()); ++row) {
    const std::vector<std::string>& record = records[static_cast<std::size_t>(row)];
    Require(record.size() == static_cast<std::size_t>(table.NumColumns()), "all columns are there");
    for (int column = 0; column < table.NumColumns(); ++column) {
      Require(record[static_cast<std::size_t>(column)] == ExpectedCell(table, row, column),
              "a cell reads back as it stands in the table");
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  InputBytes input(data, size);
  const auto which = static_cast<CsvTable>(input.Below(3));
  const ReportFormat format{1 + input.Below(9), {.DecimalSeparator = input.Below(2) == 0 ? "." : ","}};
  const AnalysedFile file = AnalysedSmallTruss(input);
  std::ostringstream out;
  WriteCsv(out, file, which, format);
  CheckForTerminal(out.str());
  const std::optional<Records> records = ReadRecords(out.str());
  Require(records.has_value(), "the table is as RFC 4180 has it");
  const std::unique_ptr<ReportTable> table = TableOf(file, which, format);
  const bool isHeadingAlone =
      which == CsvTable::Solutions && file.Analysis.Reading.Code == Outcome::Inconsistent;
  Require(records->size() == (isHeadingAlone ? 1 : static_cast<std::size_t>(table->NumRows())),
          "all rows are there");
  CheckCells(*records, *table);
  return 0;
}
