#include "practice/CsvReading.h"

#include <algorithm>
#include <array>
#include <optional>

#include "text/CodePage.h"
#include "text/ControlCharacters.h"
#include "text/CsvField.h"

namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
constexpr std::array<std::string_view, 2> WideMarks = {"\xFF\xFE", "\xFE\xFF"};
constexpr std::array<char, 3> Separators = {'\t', ';', ','};

std::string WithoutOuterBlanks(const std::string& text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

// Takes a text apart, cell by cell. A cell is quoted when its first character that is no blank is a quote;
// the quote inside it is written twice.
class CellReader {
 public:
  CellReader(std::string_view text, char separator) : text_(text), separator_(separator) {}

  AnswerTable Read() {
    while (at_ < text_.size() && table_.Why.empty()) ReadLine();
    return std::move(table_);
  }

 private:
  bool IsAtEnd() const { return at_ >= text_.size() || text_[at_] == '\n' || text_[at_] == '\r'; }

  void ReadLine() {
    CsvLine line{numLine_, {}};
    for (;;) {
      line.Cells.push_back(ReadCell());
      if (IsAtEnd()) break;
      ++at_;  // the separator
    }
    PassLineEnd();
    const auto isBlank = [](const std::string& cell) { return cell.empty(); };
    if (!std::ranges::all_of(line.Cells, isBlank)) table_.Lines.push_back(std::move(line));
  }

  void PassLineEnd() {
    if (at_ < text_.size() && text_[at_] == '\r' && at_ + 1 < text_.size() && text_[at_ + 1] == '\n') ++at_;
    ++at_;
    ++numLine_;
  }

  std::string ReadCell() {
    while (at_ < text_.size() && text_[at_] == ' ') ++at_;
    std::string cell;
    if (at_ < text_.size() && text_[at_] == '"') cell = ReadQuoted();
    // What stands behind the closing quote belongs to the cell.
    const std::size_t first = at_;
    while (!IsAtEnd() && text_[at_] != separator_) ++at_;
    return WithoutOuterBlanks(cell.append(text_.substr(first, at_ - first)));
  }

  std::string ReadQuoted() {
    const int begun = numLine_;
    std::string cell;
    for (++at_; at_ < text_.size(); ++at_) {
      if (text_[at_] == '"') {
        if (at_ + 1 >= text_.size() || text_[at_ + 1] != '"') {
          ++at_;
          return cell;
        }
        ++at_;
      }
      if (text_[at_] == '\n') ++numLine_;
      cell += text_[at_];
    }
    table_.Why = "line " + std::to_string(begun) + ": a quotation mark is opened and never closed";
    return cell;
  }

  std::string_view text_;
  char separator_;
  std::size_t at_ = 0;
  int numLine_ = 1;
  AnswerTable table_;
};

// The separator that a line "sep=;" names.
std::optional<char> NamedSeparator(const CsvLine& line) {
  if (line.Cells.size() != 1 || line.Cells[0].size() != 5 || !line.Cells[0].starts_with("sep="))
    return std::nullopt;
  return line.Cells[0][4];
}

AnswerTable ReadWith(std::string_view text, char separator) {
  AnswerTable table = CellReader(text, separator).Read();
  // The separator itself parts the line that names it.
  const bool names = !table.Lines.empty() && table.Lines[0].Cells.size() == 2 &&
                     table.Lines[0].Cells[0] == "sep=" && table.Lines[0].Cells[1].empty();
  if (names || (!table.Lines.empty() && NamedSeparator(table.Lines[0])))
    table.Lines.erase(table.Lines.begin());
  return table;
}

}  // namespace

bool IsHeading(std::string_view heading, std::string_view smallLetters) {
  if (heading == smallLetters) return true;
  const bool hasCapital = !heading.empty() && heading[0] >= 'A' && heading[0] <= 'Z';
  return hasCapital && heading.size() == smallLetters.size() && heading[0] - 'A' + 'a' == smallLetters[0] &&
         heading.substr(1) == smallLetters.substr(1);
}

AnswerTable ReadCsv(std::string_view bytes, std::string_view expected) {
  if (std::ranges::any_of(WideMarks, [&](std::string_view mark) { return bytes.starts_with(mark); }))
    return {{}, "this is written in UTF-16; save it as CSV in UTF-8"};
  if (bytes.starts_with(ByteOrderMark)) bytes.remove_prefix(ByteOrderMark.size());
  const std::string text = IsUtf8(bytes) ? std::string(bytes) : ToUtf8(bytes);
  std::optional<AnswerTable> first;
  for (const char separator : Separators) {
    AnswerTable table = ReadWith(text, separator);
    if (!table.Lines.empty() && std::ranges::any_of(table.Lines[0].Cells, [&](const std::string& cell) {
          return IsHeading(cell, expected);
        }))
      return table;
    if (!first || !table.Why.empty()) first = std::move(table);
  }
  if (first->Why.empty()) first->Why = "the first line has no column \"" + std::string(expected) + '"';
  return *first;
}

std::string CsvTextField(const std::string& utf8Text) {
  std::string text = VisibleText(utf8Text);
  // Also behind blanks, which spreadsheets pass over.
  const std::size_t first = text.find_first_not_of(' ');
  if (first != std::string::npos && std::string_view("=+-@").find(text[first]) != std::string_view::npos)
    text.insert(text.begin(), '\'');
  return CsvField(text);
}
