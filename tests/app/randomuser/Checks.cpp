// What must hold whatever a random user did.
#include <algorithm>

#include "RandomUser.h"
#include "analysis/JointEquations.h"
#include "canvas/RedrawTruss.h"
#include "document/BrokenName.h"
#include "document/DocumentLifecycle.h"
#include "document/JointList.h"
#include "platform/qt/QtText.h"
#include "reports/CountingReport.h"
#include "support/ReportReader.h"

void RandomUser::CheckDocument() {
  const auto isLabel = [this](LabelIndex label) { return label >= 1 && label <= truss_.NumLabels; };
  const auto isArrow = [this](int line) { return line >= 4 && line <= truss_.NumArrowLines; };
  for (const MemberRec& member : truss_.MembersInUse()) {
    if (!member.Live || member.NameLabel1 == 0) continue;  // erased, or still being drawn
    EXPECT_TRUE(mouseIsDown_ || member.X1 != member.X2 || member.Y1 != member.Y2);
    ASSERT_TRUE(isLabel(member.NameLabel1) && isLabel(member.NameLabel2));
    EXPECT_EQ(truss_.Name(member.NameLabel1), truss_.Name(member.NameLabel2));
    EXPECT_TRUE(isArrow(member.ArrowLine1) && isArrow(member.ArrowLine2));
  }
  for (const SupportRec& support : truss_.SupportsInUse()) {
    if (!support.Live) continue;
    EXPECT_TRUE(support.TypeIndex >= 1 && support.TypeIndex <= LastSupportType);
    ASSERT_TRUE(isLabel(support.NameLabel1) && (!support.IsClamp() || isLabel(support.NameLabel2)));
  }
  for (const JointRec& joint : truss_.JointsInUse()) EXPECT_TRUE(isLabel(joint.NameLabel));
  EXPECT_LE(NumLiveMembers(truss_), truss_.NumMembers);
  EXPECT_LE(NumLiveSupports(truss_), truss_.NumSupports);
  EXPECT_EQ(truss_.NumArrowLines % 4, 0);
  EXPECT_EQ(form_->windowTitle().toStdString(), MainWindowCaption(truss_.FileName));
}

namespace {

bool IsSameLine(const PixelLine& a, const PixelLine& b) {
  return a.X1 == b.X1 && a.Y1 == b.Y1 && a.X2 == b.X2 && a.Y2 == b.Y2;
}

bool IsSamePoint(const PixelPoint& a, const PixelPoint& b) { return a.X == b.X && a.Y == b.Y; }

}  // namespace

void RandomUser::CheckDrawing() {
  Drawing expected;
  expected.Mapping = Shapes().Mapping;
  FitTables(expected, truss_);
  PlaceObjects(expected, truss_);
  for (int i = 1; i <= truss_.NumMembers; ++i) {
    const MemberRec& member = truss_.Members[i];
    if (!member.Live || member.NameLabel1 == 0) continue;
    EXPECT_TRUE(IsSameLine(Shapes().Rod[i], expected.Rod[i])) << "member " << i;
    EXPECT_TRUE(IsSamePoint(Shapes().Pin1[i], expected.Pin1[i])) << "member " << i;
    EXPECT_TRUE(IsSamePoint(Shapes().Pin2[i], expected.Pin2[i])) << "member " << i;
  }
  for (int i = 1; i <= truss_.NumSupports; ++i) {
    if (truss_.Supports[i].Live) {
      EXPECT_TRUE(IsSamePoint(Shapes().Support[i], expected.Support[i])) << "support " << i;
    }
  }
  for (int i = 1; i <= truss_.NumForces; ++i) {
    if (truss_.Forces[i].Active) {
      EXPECT_TRUE(IsSameLine(Shapes().Force[i], expected.Force[i])) << "force " << i;
    }
  }
  EXPECT_EQ(Shapes().LabelsShown, !InStep1());
}

bool RandomUser::IsDrawingAMember() const {
  return std::ranges::any_of(truss_.MembersInUse(),
                             [](const MemberRec& member) { return member.Live && member.NameLabel1 == 0; });
}

void RandomUser::CheckSaving() {
  if (IsDrawingAMember()) return;
  Truss copy = truss_;
  ASSERT_TRUE(CheckJoints(copy));
  if (!ElementWithBrokenName(copy).empty()) return;
  const std::string written = TrussText(copy);
  Truss again;
  ASSERT_FALSE(ReadTrussText(again, CanvasBounds{}, written));
  const auto withoutSwitches = [](const std::string& text) { return text.substr(text.find("\r\n", 12)); };
  EXPECT_EQ(withoutSwitches(TrussText(again)), withoutSwitches(written));
}

void RandomUser::CheckAnalysis() {
  if (IsDrawingAMember()) return;
  Truss copy = truss_;
  ASSERT_TRUE(CheckJoints(copy));
  SolveTruss(copy);
}

namespace {

QStringList NamesOf(const Table<CountedJoint>& joints) {
  QStringList names;
  for (const CountedJoint& joint : joints.First(joints.Size())) names.append(ToQt(joint.Name));
  return names;
}

// The button whose report has this caption. "Report" stands while no truss with forces has come to Step 3.
const char* ButtonOf(const QString& caption) {
  if (caption.contains(QLatin1String("system of equations for"))) return "cmdReportSystemEqs";
  if (caption.contains(QLatin1String("RREF"))) return "cmdReportRREF";
  if (caption.contains(QLatin1String("the forces"))) return "cmdReportSolutions";
  EXPECT_TRUE(caption == QLatin1String(CountingCaption) || caption == QLatin1String("Report"))
      << caption.toStdString() << " is the caption of no report";
  return "cmdReportCounting";
}

}  // namespace

QStringList RandomUser::JointsOfFreshEquations() {
  const bool wasShown = Report()->isVisible();
  const QString caption = Report()->windowTitle();
  Find<QAbstractButton>("cmdReportSystemEqs")->click();
  const QStringList joints = JointsOfRows(ShownTable(*Report()));
  if (!wasShown) {
    Report()->close();
  } else if (caption != Report()->windowTitle()) {
    Find<QAbstractButton>(ButtonOf(caption))->click();
  }
  return joints;
}

void RandomUser::CheckStep3() {
  if (!InStep3()) return;
  Truss copy = truss_;
  ASSERT_TRUE(CheckJoints(copy));
  const TrussAnalysis fresh = SolveTruss(copy);
  // Another report that is on the screen is taken away and shown again only now and then: it takes longest.
  const bool showsAnother =
      Report()->isVisible() && std::string_view(ButtonOf(Report()->windowTitle())) != "cmdReportSystemEqs";
  const QStringList expected = fresh.System.NumUnknowns() > 0 ? NamesOf(fresh.Counted.Joints) : QStringList();
  const QStringList rows = showsAnother && Below(4) > 0 ? expected : JointsOfFreshEquations();
  EXPECT_EQ(rows, expected);
  CheckJointEquations(fresh.Counted, rows);
}

// Of a few joints, by clicks on their labels where they can be clicked.
void RandomUser::CheckJointEquations(const CountedTruss& counted, const QStringList& rows) {
  QWidget* panel = Widget("frNewCoords(3)");
  const bool wasShown = panel->isVisible();
  const JointEquations equations(truss_, numbers_);
  for (int clicks = std::min(3, counted.Joints.Size()); clicks > 0; --clicks) {
    const int j = 1 + Below(counted.Joints.Size());
    const CountedJoint& joint = counted.Joints[j];
    const LabelPlace& place = Shapes().lblRodJoint[joint.Label];
    const QPoint point(static_cast<int>(place.Left + place.Width / 2),
                       static_cast<int>(place.Top + place.Height / 2));
    const bool canBeClicked =
        Canvas()->rect().contains(point) &&
        LabelAt(Shapes(), static_cast<float>(point.x()), static_cast<float>(point.y())) == joint.Label;
    if (!canBeClicked) continue;
    QTest::mouseClick(Canvas(), Qt::LeftButton, Qt::NoModifier, point);
    ASSERT_TRUE(panel->isVisible());
    EXPECT_EQ(Find<QLabel>("lblCaption")->text(), QStringLiteral("Equations for joint ") + ToQt(joint.Name));
    if (!rows.isEmpty()) {
      EXPECT_EQ(rows.value(j - 1), ToQt(joint.Name));
    }
    const JointEquationTexts texts = equations.ReportOnJoint(joint);
    EXPECT_EQ(Find<QLineEdit>("txtXEqn")->text(), ToQt(texts.X));
    EXPECT_EQ(Find<QLineEdit>("txtYEqn")->text(), ToQt(texts.Y));
  }
  if (!wasShown && panel->isVisible()) Find<QAbstractButton>("cmdOKJointReport")->click();
}
