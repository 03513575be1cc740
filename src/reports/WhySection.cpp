// The explanation as a section of the printable report, with a picture of each motion.
#include <algorithm>
#include <string>

#include "explanation/DrawingChecks.h"
#include "explanation/ExplanationText.h"
#include "explanation/MotionDrawing.h"
#include "explanation/MotionText.h"
#include "reports/RTBTable.h"
#include "reports/ReportExtras.h"

namespace {

constexpr int BreaksBefore = 2;

class WhySection {
 public:
  explicit WhySection(const ReportExtraContext& context)
      : on_(context), explanation_(context.Reasons.Whole()) {}

  AppendedExtra Append() {
    AppendHeading("Why this conclusion:");
    AppendText(
        "Here nothing is rounded: every coordinate and every load is the number that its shortest decimal "
        "form says.");
    for (const ExplanationSection& section : ExplanationText(explanation_, on_.Format)) {
      AppendHeading(section.Heading);
      if (section.Heading == VerdictHeading) AppendKinds();
      const bool isOfMotions = section.Heading == MotionsHeading;
      for (std::size_t i = 0; i < section.Paragraphs.size(); ++i) {
        const bool hasPicture = isOfMotions && i < NumMotionsTold();
        AppendText(section.Paragraphs[i], hasPicture ? LineRole::Joined : LineRole::Text);
        if (hasPicture && !AppendMotion(i)) return AppendedExtra::Ended;
      }
    }
    if (HasChecks() && AppendChecks(on_) == AppendedExtra::Ended) return AppendedExtra::Ended;
    if (!on_.Progress(1)) return AppendedExtra::Ended;
    return hasAllPictures_ ? AppendedExtra::Whole : AppendedExtra::LacksAPicture;
  }

 private:
  // Where they have a section of their own they are not told twice, and that there are none is not told here.
  bool HasChecks() const {
    return std::ranges::count(on_.With, ReportExtra::Checks) == 0 &&
           !CheckDrawing(on_.Document, UsuallyDrawn(on_.Document), on_.Format).empty();
  }

  std::size_t NumMotionsTold() const { return std::min(explanation_.Exact.Motions.size(), MostMotionsTold); }

  void AppendHeading(std::string_view heading) {
    RTBText(on_.Report, heading, BreaksBefore, 0, SectionHeading, LineRole::Heading);
  }

  // A text stays on the page of its picture.
  void AppendText(std::string text, LineRole role = LineRole::Text) {
    RTBText(on_.Report, PrintableText(std::move(text)), BreaksBefore, 0, PlainBlack, role);
  }

  // Set smaller where the paper is too narrow for it.
  void AppendKinds() {
    const std::vector<std::string> lines = KindTable(explanation_.Exact.Verdict);
    std::size_t width = 0;
    for (const std::string& line : lines) width = std::max(width, line.size());
    CharacterFormat format{.Family = FontFamily::Monospaced,
                           .Points = TablePoints(static_cast<int>(width), on_.Report.Points, on_.TableRoom)};
    RTBText(on_.Report, "", BreaksBefore, 0, PlainBlack);
    for (const std::string& line : lines) {
      const bool isHeader = &line == &lines.front();
      const LineRole role = isHeader                 ? LineRole::TableHeader
                            : &line == &lines.back() ? LineRole::TableRow
                                                     : LineRole::JoinedRow;
      format.Colour = isHeader ? LightBlue : Black;
      on_.Report.Document.Append(line, format, role);
      format.Colour = Black;
      on_.Report.Document.Append(LineBreak, format, role);
    }
  }

  bool AppendMotion(std::size_t index) {
    const Motion& motion = explanation_.Exact.Motions[index];
    const std::string text = "Drawing of the truss in motion " + std::to_string(index + 1) +
                             ", with an arrow at each joint that moves. " +
                             MotionText(explanation_.Graph, motion, on_.Format);
    const Picture picture = MotionPicture(
        {.Document = on_.Document, .Graph = explanation_.Graph, .Moves = &motion, .Format = on_.Format},
        on_.Measure);
    if (!RTBPicture(picture, on_.Report, on_.Clipboard, BreaksBefore, 0, PrintableText(text))) {
      hasAllPictures_ = false;
    }
    return on_.Progress(static_cast<double>(index + 1) / static_cast<double>(NumMotionsTold() + 1));
  }

  const ReportExtraContext& on_;
  const Explanation& explanation_;
  bool hasAllPictures_ = true;
};

}  // namespace

AppendedExtra AppendWhy(const ReportExtraContext& context) { return WhySection(context).Append(); }
