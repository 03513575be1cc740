// The Equations and the RREF table are one kind of table over two matrices.
#include "reports/ReportTables.h"

#include <algorithm>
#include <utility>

namespace {

// An augmented matrix under a header row of names.
class MatrixTable : public ReportTable {
 public:
  MatrixTable(const TrussAnalysis& analysis, ReportFormat format)
      : analysis_(analysis), format_(std::move(format)) {}

  int NumColumns() const override { return System().NumUnknowns() + 2; }
  std::string LongestText(int shape) const override { return LongestOfShape(shape, format_); }

 protected:
  /// Position in the unknown list of the unknown in a column 1 .. N.
  virtual int UnknownOf(int column) const = 0;

  const EquationSystem& System() const { return analysis_.System; }

  std::string HeaderText(int column) const {
    if (column == 0) return "Equation";
    if (column == NumColumns() - 1) return "RHS";
    return System().UnknownList[UnknownOf(column)].Name.String();
  }

  template <class Matrix>
  std::string CellText(const Matrix& matrix, int row, int column) const {
    return TableNumber(matrix(row, column), format_);
  }

  // In one pass over the rows as they are stored: to look each cell up takes five times as long.
  template <class Matrix>
  void VisitCellsOf(const Matrix& matrix, const CellVisit& visit) const {
    for (int column = 0; column < NumColumns(); ++column) visit(0, column, std::nullopt);
    for (int row = 1; row <= matrix.NumRows(); ++row) {
      visit(row, 0, std::nullopt);
      for (const auto& entry : matrix.Row(row))
        visit(row, entry.Column, NumberShape(double{entry.Value}, format_));
    }
  }

  template <class Matrix>
  static void VisitRowOf(const Matrix& matrix, int row, int firstColumn, int lastColumn,
                         const std::function<void(int)>& visit) {
    if (row == 0) return VisitAll(firstColumn, lastColumn, visit);
    if (firstColumn == 0) visit(0);
    const auto entries = matrix.Row(row);
    for (auto entry =
             std::ranges::lower_bound(entries, firstColumn, {}, [](const auto& e) { return e.Column; });
         entry != entries.end() && entry->Column <= lastColumn; ++entry)
      visit(entry->Column);
  }

  const TrussAnalysis& analysis_;
  ReportFormat format_;
};

class EquationsTable final : public MatrixTable {
 public:
  using MatrixTable::MatrixTable;

  const char* Caption() const override { return "Report - The system of equations for the unknown forces"; }
  const char* Heading() const override { return "The augmented matrix for the system of equations:"; }
  int NumRows() const override { return System().DisplayEquations.NumRows() + 1; }

  std::string Text(int row, int column) const override {
    if (row == 0) return HeaderText(column);
    if (column == 0) {
      return analysis_.Counted.Joints[(row + 1) / 2].Name + (row % 2 == 1 ? " - x" : " - y");
    }
    return CellText(System().DisplayEquations, row, column);
  }

  void VisitCells(const CellVisit& visit) const override { VisitCellsOf(System().DisplayEquations, visit); }

  void VisitRow(int row, int firstColumn, int lastColumn,
                const std::function<void(int)>& visit) const override {
    VisitRowOf(System().DisplayEquations, row, firstColumn, lastColumn, visit);
  }

 private:
  int UnknownOf(int column) const override { return column; }
};

class RREFTable final : public MatrixTable {
 public:
  using MatrixTable::MatrixTable;

  const char* Caption() const override { return "Report - the system of equations in RREF form"; }
  const char* Heading() const override { return "The augmented matrix in RREF form:"; }
  int NumRows() const override { return System().EquationMatrix.NumRows() + 1; }

  std::string Text(int row, int column) const override {
    if (row == 0) return HeaderText(column);
    if (column == 0) return "";
    return CellText(System().EquationMatrix, row, column);
  }

  void VisitCells(const CellVisit& visit) const override { VisitCellsOf(System().EquationMatrix, visit); }

  void VisitRow(int row, int firstColumn, int lastColumn,
                const std::function<void(int)>& visit) const override {
    VisitRowOf(System().EquationMatrix, row, firstColumn, lastColumn, visit);
  }

 private:
  int UnknownOf(int column) const override { return System().ColumnOrder[column]; }
};

class SolutionsTable final : public ReportTable {
 public:
  SolutionsTable(const TrussAnalysis& analysis, ReportFormat format)
      : analysis_(analysis), format_(std::move(format)) {}

  const char* Caption() const override { return "Report - the forces"; }
  const char* Heading() const override { return "The solutions:"; }
  int NumRows() const override { return analysis_.System.NumUnknowns() + 1; }
  int NumColumns() const override { return 2; }

  std::string Text(int row, int column) const override {
    if (row == 0) return column == 0 ? "Force" : "Value";
    if (column == 0) return analysis_.System.UnknownList[row].Name.String();
    const std::optional<double>& value = analysis_.Reading.Values[row];
    return value ? TableNumber(*value, format_) : "undetermined";
  }

  void VisitRow(int, int firstColumn, int lastColumn, const std::function<void(int)>& visit) const override {
    VisitAll(firstColumn, lastColumn, visit);
  }

 private:
  const TrussAnalysis& analysis_;
  ReportFormat format_;
};

}  // namespace

std::string ReportTable::LongestText(int) const { return {}; }

void ReportTable::VisitCells(const CellVisit& visit) const {
  for (int row = 0; row < NumRows(); ++row)
    VisitRow(row, 0, NumColumns() - 1, [&visit, row](int column) { visit(row, column, std::nullopt); });
}

void ReportTable::VisitAll(int firstColumn, int lastColumn, const std::function<void(int)>& visit) {
  for (int column = firstColumn; column <= lastColumn; ++column) visit(column);
}

std::unique_ptr<ReportTable> LoadGridWithEquations(const TrussAnalysis& analysis,
                                                   const ReportFormat& format) {
  return std::make_unique<EquationsTable>(analysis, format);
}

std::unique_ptr<ReportTable> LoadGridWithRREF(const TrussAnalysis& analysis, const ReportFormat& format) {
  return std::make_unique<RREFTable>(analysis, format);
}

std::unique_ptr<ReportTable> LoadGridWithSolutions(const TrussAnalysis& analysis,
                                                   const ReportFormat& format) {
  return std::make_unique<SolutionsTable>(analysis, format);
}
