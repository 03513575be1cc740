// The truss solved joint by joint as a section of the printable report, with a picture of each step that is
// about a joint or a part of the truss.
#include <algorithm>
#include <set>
#include <string>

#include "explanation/byjoint/HandPicture.h"
#include "explanation/byjoint/HandText.h"
#include "reports/ReportExtras.h"

namespace {

// More pictures would fill a book, and say nothing new.
constexpr std::size_t MostPictures = 60;

class ByJointSection {
 public:
  explicit ByJointSection(const ReportExtraContext& context)
      : on_(context),
        graph_(context.Reasons.Graph()),
        solution_(SolveByHand(graph_)),
        report_(ReportByHand(graph_, solution_, context.Reasons.Analysis().Reading, context.Format)) {}

  AppendedExtra Append() {
    RTBText(on_.Report, "Joint by joint:", 2, 0, SectionHeading, LineRole::Heading);
    RTBText(on_.Report, HandText::Convention(), 2, 0, PlainBlack);
    for (std::size_t i = 0; i < report_.Steps.size(); ++i) {
      AppendStep(i);
      if (!on_.Progress(static_cast<double>(i + 1) / static_cast<double>(report_.Steps.size() + 1)))
        return AppendedExtra::Ended;
    }
    AppendLines(report_.Closing, 2);
    if (!on_.Progress(1)) return AppendedExtra::Ended;
    return hasAllPictures_ ? AppendedExtra::Whole : AppendedExtra::LacksAPicture;
  }

 private:
  void AppendStep(std::size_t index) {
    const HandStepText& step = report_.Steps[index];
    RTBText(on_.Report, std::to_string(index + 1) + ".  " + PrintableText(step.Heading), 2, 0, BoldBlack,
            LineRole::Joined);
    if (solution_.Steps[index].Kind != HandStepKind::ZeroForce && numPictures_ < MostPictures) {
      ++numPictures_;
      const std::string text = PrintableText(DescribeHandStep(graph_, solution_, index, on_.Format));
      const Picture picture = PictureOfHandStep(graph_, solution_, index, on_.Format, on_.Measure);
      if (!RTBPicture(picture, on_.Report, on_.Clipboard, 1, 0, text)) hasAllPictures_ = false;
      AppendNoteOfArrows(solution_.Steps[index]);
    }
    AppendLines(step.Lines, 1);
  }

  // Once for all pictures that it is true of.
  void AppendNoteOfArrows(const HandStep& step) {
    const std::string note = NoteOfArrows(step);
    if (notes_.insert(note).second) RTBText(on_.Report, note, 1, 0, PlainBlack);
  }

  void AppendLines(const std::vector<std::string>& lines, int breaksBefore) {
    for (const std::string& line : lines) {
      RTBText(on_.Report, PrintableText(line), breaksBefore, 0, PlainBlack);
      breaksBefore = 1;
    }
  }

  const ReportExtraContext& on_;
  const TrussGraph& graph_;
  HandSolution solution_;
  HandReport report_;
  std::set<std::string> notes_;  // of arrows, that stand in the report
  std::size_t numPictures_ = 0;
  bool hasAllPictures_ = true;
};

}  // namespace

AppendedExtra AppendByJoint(const ReportExtraContext& context) { return ByJointSection(context).Append(); }
