// The sections in their order. Headings and texts begin with two line breaks; where a table follows its
// heading it is set off in the same way, since tables bring none of their own.
#include "reports/PrintableReport.h"

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "analysis/Classification.h"
#include "analysis/JointEquations.h"
#include "explanation/RoundingText.h"
#include "reports/CountingReport.h"
#include "reports/DescribePicture.h"
#include "reports/RTBTable.h"
#include "reports/RTBText.h"
#include "reports/TrussPaint.h"
#include "text/CodePage.h"
#include "text/ControlCharacters.h"

namespace {

constexpr int BreaksBeforeText = 2;

// How long the parts take beside one cell of a table.
constexpr double WorkOfPicture = 5000;
constexpr double WorkOfMemberInPicture = 50;
constexpr double WorkOfJoint = 40;
constexpr double PicturesOfExtra = 4;  // an extra section takes about as long as so many pictures

void MakePrintable(SharedText& name) {
  if (std::ranges::none_of(name.View(), IsControl)) return;
  std::string printable = name.String();
  std::erase_if(printable, IsControl);
  name = std::move(printable);
}

Truss WithPrintableNames(Truss truss) {
  for (NameLabel& label : truss.Labels.First(truss.NumLabels)) MakePrintable(label.Caption);
  return truss;
}

CountedTruss WithPrintableNames(CountedTruss counted) {
  for (CountedJoint& joint : counted.Joints.First(counted.Joints.Size())) MakePrintable(joint.Name);
  for (Table<SharedText>* names : {&counted.MemberForces, &counted.ReactionForces}) {
    for (SharedText& name : names->First(names->Size())) MakePrintable(name);
  }
  return counted;
}

double WorkOf(const ReportTable& table) {
  return static_cast<double>(table.NumRows()) * std::min(table.NumColumns(), MaxTableColumns);
}

class ReportBuilder {
 public:
  ReportBuilder(const Truss& truss, const TrussAnalysis& analysis, const PrintableReportContext& context)
      : truss_(WithPrintableNames(truss)),
        counted_(WithPrintableNames(analysis.Counted)),
        outcome_(analysis.Reading.Code),
        hasUnknowns_(analysis.System.NumUnknowns() > 0),
        context_(context),
        report_{context.Document, truss.Settings.ReportFontSize},
        format_{truss.Settings.SigFigs, context.Numbers},
        equations_(LoadGridWithEquations(analysis, format_)),
        rref_(LoadGridWithRREF(analysis, format_)),
        solutions_(LoadGridWithSolutions(analysis, format_)),
        wholeWork_(2 * WorkOfOnePicture() + WorkOfJoint * counted_.Joints.Size() + WorkOf(*equations_) +
                   WorkOf(*rref_) + WorkOf(*solutions_) +
                   static_cast<double>(context.With.size()) * WorkOfExtra()),
        reasons_(truss, analysis) {}

  BuiltReport Build() {
    if (!AppendAll()) return BuiltReport::Ended;
    return hasAllPictures_ ? BuiltReport::Whole : BuiltReport::LacksAPicture;
  }

 private:
  bool AppendAll() {
    AppendTitle();
    if (!AppendPictures()) return false;
    AppendCounting();
    if (!AppendJointEquations()) return false;
    AppendHeading("The augmented matrix for this system of equations:");
    if (!AppendTable(*equations_, TableKind::HeaderRowAndFirstColumn)) return false;
    AppendHeading("The augmented matrix in RREF form:");
    if (!AppendTable(*rref_, TableKind::HeaderRow)) return false;
    AppendHeading("The solution:");
    if (!AppendSolution()) return false;
    if (!hasUnknowns_) return true;
    AppendNotice();
    return std::ranges::all_of(context_.With, [this](ReportExtra extra) { return AppendExtra(extra); });
  }

  void AppendTitle() {
    RTBTitle(report_, "Orvane", 1, 0);
    if (truss_.FileName.empty()) return;
    RTBText(report_, "Name of file containing truss:", 0, 0, BoldBlack, LineRole::Joined);
    RTBText(report_, WithoutControls(truss_.FileName) + ' ', BreaksBeforeText, 0, PlainBlack,
            LineRole::JoinedLast);
  }

  void AppendHeading(std::string_view heading) {
    RTBText(report_, heading, BreaksBeforeText, 0, SectionHeading, LineRole::Heading);
  }

  void AppendText(std::string_view utf8Text, int breaksAfter = 0) {
    RTBText(report_, utf8Text, BreaksBeforeText, breaksAfter, PlainBlack);
  }

  bool AppendPictures() {
    AppendHeading("Picture of the truss with applied forces:");
    if (!AppendPicture({.ForceValues = true, .Names = false})) return false;
    AppendHeading("Naming the joints, member forces and reaction forces:");
    return AppendPicture({.ForceValues = false, .Names = true});
  }

  bool AppendPicture(PictureContent content) {
    const Picture picture = TrussPaint(truss_, format_, context_.Measure, content);
    if (!RTBPicture(picture, report_, context_.Clipboard, BreaksBeforeText, 0,
                    DescribePicture(truss_, content))) {
      hasAllPictures_ = false;
    }
    return HasDone(WorkOfOnePicture());
  }

  void AppendCounting() {
    const CountingReport counting = ReportCounting(counted_);
    AppendHeading("Counting the number of unknown forces:");
    AppendText(ToUtf8(counting.Forces));
    AppendHeading("Counting the number of determining equations:");
    AppendText(ToUtf8(counting.Equations));
    AppendHeading("Conclusions regarding existence and uniqueness of solution:");
    AppendText(ToUtf8(counting.Count));
  }

  // The equations of all joints are one text: each joint's part ends with two line breaks and begins with
  // none.
  bool AppendJointEquations() {
    AppendHeading("The equations:");
    AppendText("");
    const JointEquations equations(truss_, context_.Numbers);
    for (const CountedJoint& joint : counted_.Joints.First(counted_.Joints.Size())) {
      const JointEquationTexts texts = equations.ReportOnJoint(joint);
      AppendLine("Equations for joint " + joint.Name, 1, LineRole::Joined);
      AppendLine("\tforces right = forces left :     " + texts.X, 1, LineRole::Joined);
      AppendLine("\tforces up = forces down :    " + texts.Y, 2, LineRole::JoinedLast);
      if (!HasDone(WorkOfJoint)) return false;
    }
    return true;
  }

  void AppendLine(const std::string& text, int breaksAfter, LineRole role) {
    RTBText(report_, ToUtf8(text), 0, breaksAfter, PlainBlack, role);
  }

  bool AppendTable(const ReportTable& table, TableKind kind) {
    AppendText("");
    const double work = WorkOf(table);
    return RTBTable(table, report_, kind, context_.TableRoom,
                    [&](double part) { return GoesOn(workDone_ + part * work); }) &&
           HasDone(work);
  }

  bool AppendSolution() {
    if (outcome_ == Outcome::Inconsistent) {
      AppendText(InconsistentText);
      return HasDone(WorkOf(*solutions_));
    }
    if (!AppendTable(*solutions_, TableKind::HeaderRowAndFirstColumn)) return false;
    if (outcome_ == Outcome::Redundant) AppendText(RedundantText, 1);
    return true;
  }

  ExplanationOnDemand& Reasons() { return context_.Reasons != nullptr ? *context_.Reasons : reasons_; }

  void AppendNotice() {
    const bool hasReasons = std::ranges::count(context_.With, ReportExtra::Why) > 0;
    const std::string notice = NoticeBelowConclusion(Reasons().Graph(), Reasons().Rounded(), format_,
                                                     hasReasons ? ReadOn::FurtherBelow : ReadOn::OnPaper);
    if (notice.empty()) return;
    AppendText(PrintableText(notice));
  }

  bool AppendExtra(ReportExtra extra) {
    const AppendedExtra appended = KindOf(extra).Append(
        {.Report = report_,
         .Format = format_,
         .Document = truss_,
         .Reasons = Reasons(),
         .Clipboard = context_.Clipboard,
         .Measure = context_.Measure,
         .TableRoom = context_.TableRoom,
         .With = context_.With,
         .Progress = [this](double part) { return GoesOn(workDone_ + part * WorkOfExtra()); }});
    if (appended == AppendedExtra::LacksAPicture) hasAllPictures_ = false;
    return appended != AppendedExtra::Ended && HasDone(WorkOfExtra());
  }

  double WorkOfExtra() const { return PicturesOfExtra * WorkOfOnePicture(); }

  double WorkOfOnePicture() const { return WorkOfPicture + WorkOfMemberInPicture * truss_.NumMembers; }

  bool GoesOn(double workDone) const {
    return !context_.Progress || context_.Progress(std::min(workDone / wholeWork_, 1.0));
  }

  bool HasDone(double work) {
    workDone_ += work;
    return GoesOn(workDone_);
  }

  const Truss truss_;
  const CountedTruss counted_;
  const Outcome outcome_;
  const bool hasUnknowns_;
  const PrintableReportContext& context_;
  const ReportText report_;
  const ReportFormat format_;
  const std::unique_ptr<ReportTable> equations_, rref_, solutions_;
  const double wholeWork_;
  ExplanationOnDemand reasons_;
  double workDone_ = 0;
  bool hasAllPictures_ = true;
};

}  // namespace

BuiltReport BuildPrintableReport(const Truss& truss, const TrussAnalysis& analysis,
                                 const PrintableReportContext& context) {
  return ReportBuilder(truss, analysis, context).Build();
}
