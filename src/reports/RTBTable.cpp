// A table of the largest truss has millions of cells, nearly all of them zeros, of which 800 000 are written.
// So widths are measured without the zeros, and a row is appended in as few pieces as its colours allow.
#include "reports/RTBTable.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <string_view>
#include <vector>

#include "text/CodePage.h"
#include "text/ControlCharacters.h"

namespace {

// Part of the work of a table that measuring its columns is.
constexpr double MeasuringPart = 0.1;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsSign(char c) { return c == '-' || c == '+' || c == EnDash; }
bool IsBlank(char c) { return c == ' ' || IsControl(c); }

// Any punctuation mark can be a locale's decimal separator.
bool IsSeparator(char c) {
  const bool isMark =
      (c > ' ' && c < '0') || (c > '9' && c < 'A') || (c > 'Z' && c < 'a') || (c > 'z' && c < '\x7F');
  return isMark && !IsSign(c);
}

// Reads a text from its front.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : rest_(text) {}

  bool AtEnd() const { return rest_.empty(); }

  template <class Kind>
  bool Skip(Kind isOfKind) {
    if (rest_.empty() || !isOfKind(rest_.front())) return false;
    rest_.remove_prefix(1);
    return true;
  }

  /// False when there is no digit.
  bool SkipDigits() {
    const bool some = Skip(IsDigit);
    while (Skip(IsDigit)) continue;
    return some;
  }

 private:
  std::string_view rest_;
};

bool IsNumber(std::string_view text) {
  Scanner scanner(text);
  scanner.Skip(IsSign);
  if (!scanner.SkipDigits()) return false;
  if (scanner.Skip(IsSeparator)) scanner.SkipDigits();
  if (scanner.Skip([](char c) { return c == 'E'; })) {
    scanner.Skip(IsSign);
    if (!scanner.SkipDigits()) return false;
  }
  return scanner.AtEnd();
}

std::string CellText(const ReportTable& table, int row, int column) {
  std::string text = table.Text(row, column);
  // Only the header of the first column: a force may be named "Equation" too.
  if (row == 0 && column == 0 && text == "Equation") text = "Eqn.";
  StripBlanks(text);
  return text;
}

// Columns that are written beside the first one, both inclusive.
struct Block {
  int FirstColumn, LastColumn;
};

int CharactersIn(float roomPoints, float points) {
  return static_cast<int>(std::floor(double{roomPoints} / (MonospacedAdvance * double{points})));
}

class TableWriter {
 public:
  TableWriter(const ReportTable& table, const ReportText& report, TableKind kind,
              const TableProgress& progress)
      : table_(table),
        report_(report),
        kind_(kind),
        progress_(progress),
        numColumns_(std::min(table.NumColumns(), MaxTableColumns)),
        widths_(static_cast<std::size_t>(numColumns_), 0) {}

  bool Write(float roomPoints) {
    if (numColumns_ == 0) return true;
    if (!MeasureColumns()) return false;
    const float points = TablePoints(WidthOfWholeRow(), report_.Points, roomPoints);
    cell_ = CharacterFormat{.Family = FontFamily::Monospaced, .Points = points};
    const std::vector<Block> blocks = BlocksFor(roomPoints, points);
    rowsToWrite_ = static_cast<double>(table_.NumRows()) * static_cast<double>(blocks.size());
    for (const Block& block : blocks) {
      if (&block != &blocks.front()) report_.Document.Append(LineBreak, cell_);
      if (!WriteBlock(block)) return false;
    }
    WriteNumberOfOtherColumns();
    return true;
  }

 private:
  bool GoesOn(double done) const { return !progress_ || progress_(done); }

  int& Width(int column) { return widths_[static_cast<std::size_t>(column)]; }
  int Width(int column) const { return widths_[static_cast<std::size_t>(column)]; }

  // The longest text of each column. Cells that are not visited show "0".
  bool MeasureColumns() {
    std::vector<int> visited(widths_.size(), 0);
    int lastRow = -1;
    bool goesOn = true;
    std::array<int, NumNumberShapes> longest;
    for (int shape = 0; shape < NumNumberShapes; ++shape)
      longest[static_cast<std::size_t>(shape)] = static_cast<int>(table_.LongestText(shape).size());
    table_.VisitCells([&](int row, int column, std::optional<int> shape) {
      if (!goesOn || column >= numColumns_) return;
      ++visited[static_cast<std::size_t>(column)];
      if (!shape || longest[static_cast<std::size_t>(*shape)] > Width(column))
        Width(column) = std::max(Width(column), static_cast<int>(CellText(table_, row, column).size()));
      if (row != lastRow) goesOn = GoesOn(MeasuringPart * row / table_.NumRows());
      lastRow = row;
    });
    for (int column = 0; column < numColumns_; ++column) {
      const bool hasZeros = visited[static_cast<std::size_t>(column)] < table_.NumRows();
      if (hasZeros) Width(column) = std::max(Width(column), 1);
    }
    return goesOn;
  }

  int WidthOfWholeRow() const {
    int width = (numColumns_ - 1) * BlanksBetweenColumns;
    for (const int column : widths_) width += column;
    return width;
  }

  std::vector<Block> BlocksFor(float roomPoints, float points) const {
    const int lastColumn = numColumns_ - 1;
    if (roomPoints <= 0 || lastColumn < 1) return {{1, lastColumn}};
    const int room = CharactersIn(roomPoints, points);
    std::vector<Block> blocks;
    for (int column = 1; column <= lastColumn;) {
      Block block{column, column};
      int width = Width(0) + BlanksBetweenColumns + Width(column);
      for (++column; column <= lastColumn; ++column) {
        width += BlanksBetweenColumns + Width(column);
        if (width > room) break;
        block.LastColumn = column;
      }
      blocks.push_back(block);
    }
    return blocks;
  }

  bool WriteBlock(const Block& block) {
    FillWithZeros(block);
    for (int row = 0; row < table_.NumRows(); ++row) {
      WriteRow(row, block);
      ++rowsWritten_;
      if (!GoesOn(MeasuringPart + (1 - MeasuringPart) * rowsWritten_ / rowsToWrite_)) return false;
    }
    return true;
  }

  void WriteRow(int row, const Block& block) {
    role_ = row == 0 ? LineRole::TableHeader : LineRole::TableRow;
    std::string first = Filled(row, 0);
    std::string others = zeros_;
    table_.VisitRow(row, block.FirstColumn, block.LastColumn, [&](int column) {
      const std::string text = Filled(row, column);
      others.replace(placeInRow_[static_cast<std::size_t>(column)], text.size(), text);
    });
    if (row == 0) {
      AppendPiece(first + others, LightBlue);
      AppendPiece(LineBreak, Black);
    } else if (kind_ == TableKind::HeaderRowAndFirstColumn) {
      AppendPiece(first, LightBlue);
      AppendPiece(others.append(LineBreak), Black);
    } else {
      AppendPiece(first.append(others).append(LineBreak), Black);
    }
  }

  // What a row has beside its first cell where all of it is zero, and where each column stands in it.
  void FillWithZeros(const Block& block) {
    zeros_.clear();
    placeInRow_.resize(widths_.size());
    for (int column = block.FirstColumn; column <= block.LastColumn; ++column) {
      zeros_.append(BlanksBetweenColumns, ' ');
      placeInRow_[static_cast<std::size_t>(column)] = zeros_.size();
      std::string zero = "0";
      FillUp(zero, Width(column));
      zeros_ += zero;
    }
  }

  std::string Filled(int row, int column) const {
    std::string text = CellText(table_, row, column);
    FillUp(text, Width(column));
    return text;
  }

  void AppendPiece(std::string_view text, int colour) {
    if (text.empty()) return;
    cell_.Colour = colour;
    report_.Document.Append(ToUtf8(text), cell_, role_);
  }

  void WriteNumberOfOtherColumns() const {
    const int others = table_.NumColumns() - numColumns_;
    if (others == 0) return;
    const std::string line =
        "and " + std::to_string(others) + " more " + (others == 1 ? "column" : "columns");
    RTBText(report_, line, 0, 1, PlainBlack);
  }

  const ReportTable& table_;
  const ReportText& report_;
  TableKind kind_;
  const TableProgress& progress_;
  int numColumns_;
  std::vector<int> widths_;  // characters, of each column
  std::string zeros_;
  std::vector<std::size_t> placeInRow_;
  CharacterFormat cell_;
  LineRole role_ = LineRole::TableHeader;  // of the row that is written
  double rowsToWrite_ = 0;
  double rowsWritten_ = 0;
};

}  // namespace

void StripBlanks(std::string& text) { std::erase_if(text, IsBlank); }

void FillUp(std::string& text, int width) {
  const auto length = static_cast<std::size_t>(std::max(width, 0));
  if (text.size() < length && IsNumber(text)) {
    text.insert(0, length - text.size(), ' ');
  } else {
    text.resize(length, ' ');
  }
}

float TablePoints(int characters, float points, float roomPoints) {
  if (roomPoints <= 0) return points;
  while (points > SmallestTablePoints && CharactersIn(roomPoints, points) < characters) {
    points = std::max(points - 0.5F, SmallestTablePoints);
  }
  return points;
}

bool RTBTable(const ReportTable& table, const ReportText& report, TableKind kind, float roomPoints,
              const TableProgress& progress) {
  return TableWriter(table, report, kind, progress).Write(roomPoints);
}
