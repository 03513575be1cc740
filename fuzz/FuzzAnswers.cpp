// Any bytes as a class's answers: each line is marked or named as a problem, and a reader of RFC 4180 finds
// the marks of each student in what is written, without a formula or a command to a terminal.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "InputBytes.h"
#include "NamedTruss.h"
#include "ReadBack.h"
#include "Require.h"
#include "explanation/TrussGraph.h"
#include "practice/CsvReading.h"
#include "practice/ForceNames.h"
#include "practice/Marking.h"
#include "practice/Variants.h"

namespace {

// A right triangle, for inputs whose own truss cannot be solved: most cannot.
AnalysedFile Triangle() {
  constexpr std::uint8_t bytes[] = {1, 0, 32, 36, 2, 0, 0, 1, 4, 3, 0, 1, 1, 2, 2, 0, 1, 2, 11};
  InputBytes input(bytes, sizeof bytes);
  return AnalysedSmallTruss(input);
}

bool CanBeAsked(const AnalysedFile& file) {
  return WhyNotSolvable(file.Document, file.Analysis).empty() &&
         WhyNotByName(GraphOf(file.Document, file.Analysis)).empty();
}

AskedTruss AskAbout(const AnalysedFile& file) {
  return {"asked.trs", GraphOf(file.Document, file.Analysis), file.Analysis.Reading.Values};
}

// The line of headings with which the answers begin, so that most of the strange bytes are answers.
std::string HeadingsFor(const std::vector<AskedTruss>& asked, char separator) {
  std::string headings = "student";
  for (const std::string& name : ForceNames(asked)) headings += separator + CsvTextField(name);
  return headings + "\n";
}

void CheckStudent(const MarkedStudent& student, const TrussGraph& graph) {
  Require(student.NumRight >= 0 && student.NumRight <= graph.NumUnknowns(), "right are some of the forces");
  Require(student.NumBalanced >= 0 && student.NumBalanced <= student.NumJudged &&
              student.NumJudged <= graph.NumJoints(),
          "joints that balance are some of those that are judged");
  Require(student.Slip.empty() || student.NumBalanced < student.NumJudged,
          "a slip is where nothing balances");
}

void CheckMarks(const MarkedClass& marked, const std::vector<AskedTruss>& asked) {
  const std::string text = MarksAsCsv(marked, asked);
  CheckForTerminal(text);
  const std::optional<Records> records = ReadRecords(text);
  Require(records.has_value(), "the marks are as RFC 4180 has it");
  Require(records->size() == marked.Students.size() + 1, "each student has a line");
  for (const std::vector<std::string>& record : *records) {
    Require(record.size() == records->front().size(), "each line has all columns");
    for (const std::string& cell : record)
      Require(cell.empty() || std::string_view("=+-@").find(cell[0]) == std::string_view::npos,
              "no cell is a formula");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const AnalysedFile triangle = Triangle();
  InputBytes input(data, size);
  const int choice = input.Below(8);
  const bool isOwnTruss = choice < 2;
  const AnalysedFile own = isOwnTruss ? AnalysedSmallTruss(input) : AnalysedFile();
  const bool asksOwn = isOwnTruss && CanBeAsked(own);
  const std::vector<AskedTruss> asked = {AskAbout(asksOwn ? own : triangle)};
  constexpr char separators[] = {',', ';', '\t'};
  const std::string headings = choice % 2 == 0 ? HeadingsFor(asked, separators[choice % 3]) : std::string();
  const MarkedClass marked =
      MarkAnswers(headings + std::string(input.Rest()), asked, TrussColumn::None, {4, {}});
  Require(headings.empty() || !marked.Students.empty() || !marked.Problems.empty() || input.Rest().empty() ||
              input.Rest().find_first_not_of(" \t\r\n\",;") == std::string_view::npos,
          "what is neither marked nor blank is a problem");
  for (const MarkedStudent& student : marked.Students) CheckStudent(student, asked[student.Truss].Graph);
  CheckMarks(marked, asked);
  return 0;
}
