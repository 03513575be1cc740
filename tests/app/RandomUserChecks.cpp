// What must hold whatever a random user did.
#include <algorithm>

#include "RandomUser.h"
#include "analysis/JointEquations.h"
#include "document/JointList.h"
#include "platform/qt/QtText.h"
#include "support/ReportReader.h"

void RandomUser::CheckDocument() {
  const auto isLabel = [this](LabelIndex label) { return label >= 1 && label <= truss_.NumLabels; };
  const auto isArrow = [this](int line) { return line >= 4 && line <= truss_.NumArrowLines; };
  const bool drawing = QApplication::mouseButtons() != Qt::NoButton;
  for (const MemberRec& member : truss_.MembersInUse()) {
    if (!member.Live || member.NameLabel1 == 0) continue;  // erased, or still being drawn
    EXPECT_TRUE(drawing || member.X1 != member.X2 || member.Y1 != member.Y2);
    EXPECT_TRUE(isLabel(member.NameLabel1) && isLabel(member.NameLabel2));
    EXPECT_TRUE(isArrow(member.ArrowLine1) && isArrow(member.ArrowLine2));
  }
  for (const SupportRec& support : truss_.SupportsInUse()) {
    if (!support.Live) continue;
    EXPECT_TRUE(support.TypeIndex >= 1 && support.TypeIndex <= LastSupportType);
    EXPECT_TRUE(isLabel(support.NameLabel1) && (!support.IsClamp() || isLabel(support.NameLabel2)));
  }
  for (const JointRec& joint : truss_.JointsInUse()) EXPECT_TRUE(isLabel(joint.NameLabel));
}

void RandomUser::CheckSavingAndAnalysis() {
  Truss copy = truss_;
  ASSERT_TRUE(CheckJoints(copy));
  SolveTruss(copy);
  bool hasQuote = false;
  for (int i = 1; i <= copy.NumLabels; ++i) {
    hasQuote = hasQuote || copy.Labels[i].Caption.find('"') != std::string::npos;
  }
  if (hasQuote) return;  // a quote in a name does not survive a save
  const std::string written = TrussText(copy);
  Truss again;
  ASSERT_FALSE(ReadTrussText(again, CanvasBounds{}, written));
  const auto withoutSwitches = [](const std::string& text) { return text.substr(text.find("\r\n", 12)); };
  EXPECT_EQ(withoutSwitches(TrussText(again)), withoutSwitches(written));
}

namespace {

QStringList NamesOf(const Table<CountedJoint>& joints) {
  QStringList names;
  for (const CountedJoint& joint : joints.First(joints.Size())) names.append(ToQt(joint.Name));
  return names;
}

// The button whose report has this caption.
const char* ButtonOf(const QString& caption) {
  if (caption.contains(QLatin1String("system of equations for"))) return "cmdReportSystemEqs";
  if (caption.contains(QLatin1String("RREF"))) return "cmdReportRREF";
  if (caption.contains(QLatin1String("the forces"))) return "cmdReportSolutions";
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
  const JointEquations equations(truss_, NumberFormat{});
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
