#include "practice/Marking.h"

#include <algorithm>
#include <map>
#include <memory>

#include "explanation/Directions.h"
#include "explanation/DistinctNames.h"
#include "explanation/byjoint/HandSolution.h"
#include "practice/CsvReading.h"
#include "practice/FollowThrough.h"
#include "text/CodePage.h"

namespace {

// What is the same for all who answer to one truss, worked out once.
class Marker {
 public:
  Marker(const AskedTruss& truss, const ReportFormat& format)
      : truss_(truss),
        names_(truss.Graph, format),
        order_(OrderByHand(truss.Graph, SolveByHand(truss.Graph))) {}

  MarkedStudent Mark(const StudentsAnswers& answers) const {
    MarkedStudent marked{answers.Student, answers.Truss};
    marked.Verdicts = Judge(answers.Given, truss_.Solutions);
    marked.NumRight =
        static_cast<int>(std::ranges::count(marked.Verdicts.First(marked.Verdicts.Size()), Verdict::Right));
    marked.CountsTensionPositive = CountsTensionPositive(truss_.Graph, marked.Verdicts, truss_.Solutions);
    // Whoever counts the other way round throughout is followed in his own way of counting.
    const Followed followed =
        Follow(truss_.Graph,
               marked.CountsTensionPositive ? WithMembersTurned(truss_.Graph, answers.Given) : answers.Given,
               order_);
    marked.NumBalanced = followed.NumBalanced();
    marked.NumJudged = followed.NumJudged();
    if (followed.Slip != 0) marked.Slip = ToUtf8(names_.Joint(followed.Slip));
    return marked;
  }

 private:
  const AskedTruss& truss_;
  DistinctNames names_;
  std::vector<int> order_;
};

// Of each force name its number among the unknowns of a truss; 0 where it has none of this name.
std::vector<int> ColumnsOf(const AskedTruss& truss, const std::vector<std::string>& names) {
  const std::vector<std::string> own = ForceNames({truss});
  std::vector<int> columns;
  columns.reserve(names.size());
  for (const std::string& name : names) {
    const auto found = std::ranges::find(own, name);
    columns.push_back(found == own.end() ? 0 : static_cast<int>(found - own.begin()) + 1);
  }
  return columns;
}

}  // namespace

MarkedClass MarkAnswers(std::string_view bytes, const std::vector<AskedTruss>& trusses, TrussColumn column,
                        const ReportFormat& format) {
  AnswerSheet sheet = ReadAnswers(bytes, trusses, column);
  MarkedClass marked;
  marked.Problems = std::move(sheet.Problems);
  marked.Column = sheet.Column;
  std::map<std::size_t, std::unique_ptr<Marker>> markers;
  for (const StudentsAnswers& answers : sheet.Lines) {
    std::unique_ptr<Marker>& marker = markers[answers.Truss];
    if (!marker) marker = std::make_unique<Marker>(trusses[answers.Truss], format);
    marked.Students.push_back(marker->Mark(answers));
  }
  return marked;
}

std::string MarksAsCsv(const MarkedClass& marked, const std::vector<AskedTruss>& trusses) {
  const std::vector<std::string> names = ForceNames(trusses);
  std::string text = "student";
  if (marked.Column != TrussColumn::None) text += std::string(",") + HeadingOf(marked.Column);
  for (const std::string& name : names) text += ',' + CsvTextField(name);
  text += ",strict,followed,judged,slip\r\n";
  std::map<std::size_t, std::vector<int>> columns;
  for (const MarkedStudent& student : marked.Students) {
    const AskedTruss& truss = trusses[student.Truss];
    std::vector<int>& own = columns[student.Truss];
    if (own.empty()) own = ColumnsOf(truss, names);
    text += CsvTextField(student.Student);
    if (marked.Column != TrussColumn::None) text += ',' + CsvTextField(truss.Name);
    for (const int k : own) text += std::string(",") + (k == 0 ? "" : VerdictWord(student.Verdicts[k]));
    for (const int number : {student.NumRight, student.NumBalanced, student.NumJudged})
      text += ',' + std::to_string(number);
    text += ',' + CsvTextField(student.Slip) + "\r\n";
  }
  return text;
}

std::string SummaryOf(const MarkedClass& marked, const std::vector<AskedTruss>& trusses) {
  const int count = static_cast<int>(marked.Students.size());
  std::string text = Counted(count, "student", "students") + " marked";
  if (count == 0) return text + ".\n";
  int numAllRight = 0, numNoSlip = 0, numTurned = 0;
  std::map<std::string, int> slips;
  for (const MarkedStudent& student : marked.Students) {
    const int numAsked = trusses[student.Truss].Graph.NumUnknowns();
    numAllRight += student.NumRight == numAsked ? 1 : 0;
    numNoSlip +=
        student.Slip.empty() && student.NumJudged == trusses[student.Truss].Graph.NumJoints() ? 1 : 0;
    numTurned += student.CountsTensionPositive ? 1 : 0;
    if (!student.Slip.empty()) ++slips[student.Slip];
  }
  text += "; every force is right for " + std::to_string(numAllRight) + ", every joint balances for " +
          std::to_string(numNoSlip) + ".\n";
  if (numTurned > 0)
    text += Counted(numTurned, "student counts", "students count") + " tension as positive, throughout.\n";
  const auto most = std::ranges::max_element(slips, {}, &std::pair<const std::string, int>::second);
  if (most != slips.end()) {
    text += "First slips are most often at joint " + most->first + ": " +
            Counted(most->second, "student", "students") + ".\n";
  }
  return text;
}
