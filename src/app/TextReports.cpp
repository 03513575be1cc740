// Tables are written row by row, so that one of sixteen million cells needs no memory.
#include "app/TextReports.h"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

#include "analysis/JointEquations.h"
#include "app/ByJointReport.h"
#include "app/ExplanationReport.h"
#include "app/StepsReport.h"
#include "explanation/RoundingText.h"
#include "reports/CountingReport.h"
#include "text/CodePage.h"
#include "text/ControlCharacters.h"
#include "text/CsvField.h"

namespace {

constexpr std::size_t ColumnGap = 2;

std::string Shown(std::string_view singleByteText) { return VisibleText(ToUtf8(singleByteText)); }

// A CR LF ends a line; a CR or an LF alone can only be part of a name.
std::string ShownInLines(std::string_view text) {
  std::string lines;
  for (std::size_t end = text.find("\r\n"); end != std::string_view::npos; end = text.find("\r\n")) {
    lines += Shown(text.substr(0, end)) + '\n';
    text.remove_prefix(end + 2);
  }
  return lines + Shown(text);
}

// In characters, which are bytes in the single-byte code page. No column is narrower than a "0".
std::vector<std::size_t> ColumnWidths(const ReportTable& table) {
  std::vector<std::size_t> widths(static_cast<std::size_t>(table.NumColumns()), 1);
  std::array<std::size_t, NumNumberShapes> longest{};
  for (int shape = 0; shape < NumNumberShapes; ++shape)
    longest[static_cast<std::size_t>(shape)] = table.LongestText(shape).size();
  table.VisitCells([&](int row, int column, std::optional<int> shape) {
    std::size_t& width = widths[static_cast<std::size_t>(column)];
    if (shape && longest[static_cast<std::size_t>(*shape)] <= width) return;
    width = std::max(width, table.Text(row, column).size());
  });
  return widths;
}

// Nearly all cells of a large matrix are "0": what stands between the others is taken from a line of zeros.
void WriteTable(std::ostream& out, const ReportTable& table) {
  out << table.Heading() << '\n';
  std::vector<std::size_t> begins = {0};  // of each column, its gap included, and the end of the last one
  std::string zeros;
  for (const std::size_t width : ColumnWidths(table)) {
    zeros.append((zeros.empty() ? 0 : ColumnGap) + width - 1, ' ');
    zeros += '0';
    begins.push_back(zeros.size());
  }
  std::string line;
  for (int row = 0; row < table.NumRows(); ++row) {
    line.clear();
    std::size_t done = 0;
    table.VisitRow(row, 0, table.NumColumns() - 1, [&](int column) {
      const std::string cell = table.Text(row, column);
      const std::size_t begin = begins[static_cast<std::size_t>(column)];
      const std::size_t end = begins[static_cast<std::size_t>(column) + 1];
      line.append(zeros, done, begin - done).append(end - begin - cell.size(), ' ').append(Shown(cell));
      done = end;
    });
    out << line.append(zeros, done) << '\n';
  }
}

void WriteJointEquations(std::ostream& out, const AnalysedFile& file, const ReportFormat& format) {
  const JointEquations equations(file.Document, format.Numbers);
  const Table<CountedJoint>& joints = file.Analysis.Counted.Joints;
  for (int j = 1; j <= joints.Size(); ++j) {
    const JointEquationTexts texts = equations.ReportOnJoint(joints[j]);
    if (j > 1) out << '\n';
    out << "Equations for joint " << Shown(joints[j].Name) << '\n'
        << "\tforces right = forces left :     " << Shown(texts.X) << '\n'
        << "\tforces up = forces down :    " << Shown(texts.Y) << '\n';
  }
}

void WriteSolutions(std::ostream& out, const AnalysedFile& file, const ReportFormat& format) {
  if (file.Analysis.Reading.Code == Outcome::Inconsistent) {
    out << InconsistentText << '\n';
    return;
  }
  WriteTable(out, *LoadGridWithSolutions(file.Analysis, format));
  if (file.Analysis.Reading.Code != Outcome::Redundant) return;
  out << '\n' << RedundantText << '\n';
  for (const char* line : RedundantLines) out << line << '\n';
}

// Below the conclusion, set off by a blank line; nothing where rounding has no part in it.
void WriteNotice(std::ostream& out, ExplanationOnDemand& reasons, const ReportFormat& format) {
  const std::string notice = RoundingNotice(reasons.Graph(), reasons.Rounded(), format);
  if (notice.empty()) return;
  out << '\n' << Shown(notice) << '\n' << ReadOnText(ReadOn::InTexts) << '\n';
}

// Everything right of the first column and below the heading is a number or a word, and who computes with it
// reads no en dash as a minus sign.
std::string CsvText(const ReportTable& table, int row, int column) {
  std::string text = table.Text(row, column);
  if (row > 0 && column > 0) std::ranges::replace(text, EnDash, '-');
  return text;
}

std::unique_ptr<ReportTable> LoadTable(const AnalysedFile& file, CsvTable table, const ReportFormat& format) {
  switch (table) {  // without a default: the compiler asks for a new table
    case CsvTable::Equations:
      return LoadGridWithEquations(file.Analysis, format);
    case CsvTable::RREF:
      return LoadGridWithRREF(file.Analysis, format);
    case CsvTable::Solutions:
      return LoadGridWithSolutions(file.Analysis, format);
  }
  return nullptr;
}

}  // namespace

void WriteReport(std::ostream& out, const AnalysedFile& file, const WantedSections& wanted,
                 const ReportFormat& format) {
  const ReportSections& sections = wanted.Usual;
  bool first = true;
  const auto section = [&](bool isWanted, auto write) {
    if (!isWanted) return;
    if (!first) out << '\n';
    first = false;
    write();
  };
  const bool hasUnknowns = file.Analysis.System.NumUnknowns() > 0;
  ExplanationOnDemand reasons(file.Document, file.Analysis);
  const auto notice = [&] {
    if (hasUnknowns) WriteNotice(out, reasons, format);
  };
  // A truss without unknown forces has no Counting report, and one without joints no equations.
  section(sections.Counting && hasUnknowns,
          [&] { out << ShownInLines(ReportCounting(file.Analysis.Counted).Text()) << '\n'; });
  section(sections.Joints && file.Analysis.Counted.Joints.Size() > 0,
          [&] { WriteJointEquations(out, file, format); });
  section(sections.Equations, [&] { WriteTable(out, *LoadGridWithEquations(file.Analysis, format)); });
  section(sections.RREF, [&] {
    WriteTable(out, *LoadGridWithRREF(file.Analysis, format));
    notice();
  });
  section(sections.Solutions, [&] {
    WriteSolutions(out, file, format);
    notice();
  });
  for (const ExplainedSection explained : wanted.Explained) {
    const auto wants = [&](ExplainedSection which) { return explained == which; };
    section(wants(ExplainedSection::Why), [&] {
      if (!hasUnknowns) {
        out << NothingToExplainText << '\n';
        return;
      }
      WriteWhy(out, reasons.Whole(), format);
    });
    section(wants(ExplainedSection::Checks), [&] { WriteChecks(out, file, format); });
    section(wants(ExplainedSection::Steps) && hasUnknowns, [&] { WriteSteps(out, file, reasons, format); });
    section(wants(ExplainedSection::ByJoint) && hasUnknowns, [&] { WriteByJoint(out, file, format); });
  }
}

void WriteCsv(std::ostream& out, const AnalysedFile& file, CsvTable which, const ReportFormat& format) {
  const auto table = LoadTable(file, which, format);
  const bool noRows = which == CsvTable::Solutions && file.Analysis.Reading.Code == Outcome::Inconsistent;
  const int numRows = noRows ? 1 : table->NumRows();
  const auto numColumns = static_cast<std::size_t>(table->NumColumns());
  std::string zeros;
  for (std::size_t column = 0; column < numColumns; ++column) zeros += ",0";
  std::string line;
  for (int row = 0; row < numRows; ++row) {
    line.clear();
    std::size_t done = 0;  // columns
    table->VisitRow(row, 0, table->NumColumns() - 1, [&](int column) {
      const auto at = static_cast<std::size_t>(column);
      line.append(zeros, 0, 2 * (at - done))
          .append(1, ',')
          .append(CsvField(Shown(CsvText(*table, row, column))));
      done = at + 1;
    });
    line.append(zeros, 0, 2 * (numColumns - done));
    out << std::string_view(line).substr(1) << "\r\n";
  }
}
