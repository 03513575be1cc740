#include "practice/ExerciseSheets.h"

#include <algorithm>

#include "analysis/FormatSigFigs.h"
#include "explanation/Directions.h"
#include "explanation/TrussGraph.h"
#include "explanation/byjoint/HandSolution.h"
#include "explanation/byjoint/HandText.h"
#include "practice/JointPlaces.h"
#include "reports/DescribePicture.h"
#include "reports/RTBTable.h"
#include "reports/ReportTables.h"
#include "reports/TrussPaint.h"
#include "text/ControlCharacters.h"

namespace {

constexpr float LetterPoints = 10;
constexpr PictureContent WithNamesAndValues{.ForceValues = true, .Names = true};

// Forces in pairs of columns, name and value, as many pairs beside each other as a page has room for.
class ForcesOnPaper final : public ReportTable {
 public:
  /// `values` holds what stands beside each name.
  ForcesOnPaper(std::vector<std::string> names, std::vector<std::string> values)
      : names_(std::move(names)), values_(std::move(values)), numPairs_(names_.size() > FewForces ? 3 : 1) {}

  const char* Caption() const override { return "Forces"; }
  const char* Heading() const override { return "Forces"; }
  int NumRows() const override { return 1 + RowsOfPair(); }
  int NumColumns() const override { return 2 * numPairs_; }

  std::string Text(int row, int column) const override {
    const bool isName = column % 2 == 0;
    if (row == 0) return isName ? "Force" : "Value";
    const auto index = static_cast<std::size_t>(column / 2 * RowsOfPair() + row - 1);
    if (index >= names_.size()) return {};
    return isName ? names_[index] : values_[index];
  }

  void VisitRow(int, int firstColumn, int lastColumn, const std::function<void(int)>& visit) const override {
    VisitAll(firstColumn, lastColumn, visit);
  }

 private:
  static constexpr std::size_t FewForces = 8;

  int RowsOfPair() const { return (static_cast<int>(names_.size()) + numPairs_ - 1) / numPairs_; }

  std::vector<std::string> names_, values_;
  int numPairs_;
};

class Writer {
 public:
  Writer(const ExerciseSet& set, const NumberFormat& numbers, const DocumentTools& paper)
      : set_(set), numbers_(numbers), paper_(paper), report_{paper.Document, LetterPoints} {}

  bool Write() {
    for (const Variant& variant : set_.All) {
      WriteSheet(variant);
      if (!HasDone()) return false;
    }
    for (const Variant& variant : set_.All) {
      WriteSolution(variant);
      if (!HasDone()) return false;
    }
    return true;
  }

 private:
  bool HasDone() {
    ++numDone_;
    return !paper_.Progress || paper_.Progress(numDone_ / (2.0 * static_cast<double>(set_.All.size())));
  }

  ReportFormat FormatOf(const Variant& variant) const {
    return {variant.Document.Settings.SigFigs, numbers_};
  }

  void Title(const std::string& title) {
    const CharacterFormat large{.Bold = true, .Points = LetterPoints + TitleEnlargement};
    paper_.Document.Append(title, large, LineRole::PageTitle);
    paper_.Document.Append(LineBreak, large);
  }

  void Text(const std::string& utf8Text, int breaksBefore = 1) {
    RTBText(report_, utf8Text, breaksBefore, 0, PlainBlack);
  }

  void Drawing(const Variant& variant) {
    const Picture picture =
        TrussPaint(variant.Document, FormatOf(variant), paper_.Measure, WithNamesAndValues);
    RTBPicture(picture, report_, paper_.Clipboard, 2, 0,
               DescribePicture(variant.Document, WithNamesAndValues));
  }

  void Forces(const Variant& variant, const std::vector<std::string>& values) {
    std::vector<std::string> names;
    for (int k = 1; k <= variant.Analysis.System.NumUnknowns(); ++k)
      names.push_back(variant.Analysis.System.UnknownList[k].Name.String());
    Text({}, 2);
    RTBTable(ForcesOnPaper(std::move(names), values), report_, TableKind::HeaderRow, paper_.TableRoom);
  }

  void Begin(const Variant& variant, const std::string& what) {
    Title("Variant " + std::to_string(variant.Number) + " of " + std::to_string(set_.Wishes.NumVariants) +
          what);
    Text("The forces in a truss.  " + Capital(WithoutControls(TitleOf(set_))) + '.', 0);
  }

  void DrawingWithPlaces(const Variant& variant) {
    Drawing(variant);
    Text(PrintableText(JointPlaces(GraphOf(variant.Document, variant.Analysis), FormatOf(variant))), 2);
  }

  void WriteSheet(const Variant& variant) {
    Begin(variant, "");
    Text("Name: ______________________________     Date: ______________", 2);
    DrawingWithPlaces(variant);
    Text(
        "Find the reactions and the forces in all members.  A positive value says that a member is in "
        "compression "
        "(it pushes into the joints at its ends), a negative one that it is in tension; or write the "
        "magnitude "
        "with C or T.  Reactions are positive in the directions of their arrows.",
        2);
    const std::vector<std::string> blanks(static_cast<std::size_t>(variant.Analysis.System.NumUnknowns()),
                                          "____________");
    Forces(variant, blanks);
  }

  void WriteSolution(const Variant& variant) {
    const ReportFormat format = FormatOf(variant);
    Begin(variant, ": solution");
    DrawingWithPlaces(variant);
    std::vector<std::string> values;
    for (int k = 1; k <= variant.Analysis.System.NumUnknowns(); ++k)
      values.push_back(TableNumber(variant.Analysis.Reading.Values[k].value_or(0), format));
    Forces(variant, values);
    WriteWorking(variant, format);
  }

  void WriteWorking(const Variant& variant, const ReportFormat& format) {
    const TrussGraph graph = GraphOf(variant.Document, variant.Analysis);
    const HandSolution solution = SolveByHand(graph);
    const HandReport report = ReportByHand(graph, solution, variant.Analysis.Reading, format);
    RTBText(report_, "Joint by joint:", 1, 0, SectionHeading, LineRole::Heading);
    Text(HandText::Convention(), 2);
    int number = 0;
    for (const HandStepText& step : report.Steps) {
      RTBText(report_, std::to_string(++number) + ".  " + PrintableText(step.Heading), 2, 0, BoldBlack,
              LineRole::Joined);
      for (const std::string& line : step.Lines) Text(PrintableText(line));
    }
    int breaksBefore = 2;
    for (const std::string& line : report.Closing) Text(PrintableText(line), std::exchange(breaksBefore, 1));
    Text({}, 1);
  }

  const ExerciseSet& set_;
  const NumberFormat& numbers_;
  const DocumentTools& paper_;
  ReportText report_;
  int numDone_ = 0;
};

}  // namespace

std::string TitleOf(const ExerciseSet& set) {
  return (set.Name.empty() ? "" : set.Name + ", ") + "seed " + std::to_string(set.Wishes.Seed);
}

bool AppendExercise(const ExerciseSet& set, const NumberFormat& numbers, const DocumentTools& paper) {
  return Writer(set, numbers, paper).Write();
}
