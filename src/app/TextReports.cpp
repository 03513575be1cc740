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

void WriteBlanks(std::ostream& out, std::size_t count) {
  static const std::string blanks(4096, ' ');
  for (; count > blanks.size(); count -= blanks.size()) out << blanks;
  out << std::string_view(blanks).substr(0, count);
}

// The columns of a row that has nothing but "0", each with the gap before it. Nearly all cells of a large
// matrix are such: they are taken from one line of them, where names do not make it too long to be kept.
class ZeroColumns {
 public:
  explicit ZeroColumns(const std::vector<std::size_t>& widths) {
    for (const std::size_t width : widths)
      begins_.push_back(begins_.back() + (begins_.size() == 1 ? 0 : ColumnGap) + width);
    if (begins_.back() > LongestLine) return;
    for (std::size_t column = 0; column < widths.size(); ++column)
      line_.append(Width(column) - 1, ' ').append(1, '0');
  }

  std::size_t Count() const { return begins_.size() - 1; }

  // With the gap.
  std::size_t Width(std::size_t column) const { return begins_[column + 1] - begins_[column]; }

  void Write(std::ostream& out, std::size_t from, std::size_t to) const {
    if (!line_.empty()) {
      out << std::string_view(line_).substr(begins_[from], begins_[to] - begins_[from]);
      return;
    }
    for (std::size_t column = from; column < to; ++column) {
      WriteBlanks(out, Width(column) - 1);
      out << '0';
    }
  }

 private:
  static constexpr std::size_t LongestLine = 1 << 20;

  std::vector<std::size_t> begins_ = {0};  // of each column, and the end of the last one
  std::string line_;
};

void WriteTable(std::ostream& out, const ReportTable& table) {
  out << table.Heading() << '\n';
  const ZeroColumns zeros(ColumnWidths(table));
  for (int row = 0; row < table.NumRows(); ++row) {
    std::size_t done = 0;  // columns
    table.VisitRow(row, 0, table.NumColumns() - 1, [&](int column) {
      const std::string cell = table.Text(row, column);
      const auto at = static_cast<std::size_t>(column);
      zeros.Write(out, done, at);
      WriteBlanks(out, zeros.Width(at) - cell.size());
      out << Shown(cell);
      done = at + 1;
    });
    zeros.Write(out, done, zeros.Count());
    out << '\n';
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
  section(sections.Counting && hasUnknowns, [&] {
    TellCounting(file.Analysis.Counted, [&out](std::string_view part) { out << ShownInLines(part); });
    out << '\n';
  });
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
  // Without the comma before the first column.
  const auto write = [&out](bool isFirst, std::string_view cells) { out << cells.substr(isFirst ? 1 : 0); };
  for (int row = 0; row < numRows; ++row) {
    std::size_t done = 0;  // columns
    const auto writeZeros = [&](std::size_t end) {
      if (end > done) write(done == 0, std::string_view(zeros).substr(0, 2 * (end - done)));
    };
    table->VisitRow(row, 0, table->NumColumns() - 1, [&](int column) {
      const auto at = static_cast<std::size_t>(column);
      writeZeros(at);
      write(at == 0, ",");
      out << CsvField(Shown(CsvText(*table, row, column)));
      done = at + 1;
    });
    writeZeros(numColumns);
    out << "\r\n";
  }
}
