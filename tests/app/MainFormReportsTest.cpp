// Step 3 says the same whatever is done to the window, and what it says is about one truss.
#include <QPlainTextEdit>
#include <QTextEdit>

#include "explanation/Explanation.h"
#include "explanation/RoundingText.h"
#include "platform/qt/QtText.h"
#include "reports/PrintableReportWindow.h"
#include "support/MainFormFixture.h"
#include "support/NumberedStrip.h"
#include "support/ReportReader.h"
#include "support/TrussOfShape.h"

namespace {

// The joint list is collected in another order than that of the joints' names.
Truss TriangleNamedFromTheTop() {
  return TrussBuilder()
      .Member(2, 2, 18, 2, "AB")
      .Member(2, 2, 10, 10, "AC")
      .Member(18, 2, 10, 10, "BC")
      .Clamp(2, 2, "Ax", "Ay")
      .Roller(18, 2, "By")
      .Force(10, 10, 0, -2000)
      .Joint(2, 2, "C")
      .Joint(18, 2, "b")
      .Joint(10, 10, "A");
}

class MainFormReports : public MainFormTest {
 protected:
  void OpenNamedInStep3(const Truss& truss) {
    OpenInStep2(truss);
    Click("cmdAutoName(1)");
    Click("cmdNext2");
  }

  const QAbstractItemModel& Equations() {
    Click("cmdReportSystemEqs");
    return ShownTable(*Report());
  }

  QStringList Lines(const char* button) {
    Click(button);
    return ShownReport(*Report());
  }

  struct ShownEquations {
    QString X, Y;
  };

  ShownEquations EquationsOf(const QString& joint) {
    ClickLabel(JointLabel(joint.toStdString()));
    EXPECT_EQ(Find<QLabel>("lblCaption")->text(), QStringLiteral("Equations for joint ") + joint);
    const ShownEquations shown{Find<QLineEdit>("txtXEqn")->text(), Find<QLineEdit>("txtYEqn")->text()};
    Click("cmdOKJointReport");
    return shown;
  }

  QString PrintableReport() {
    QString text;
    InModalWindow([&text](QWidget& window) {
      auto& report = dynamic_cast<PrintableReportWindow&>(window);
      ASSERT_TRUE(QTest::qWaitFor([&report] { return report.HasDocument(); }));
      text = report.findChild<QTextEdit*>()->toPlainText();
      report.close();
    });
    Trigger("mnuFilePrint");
    return text;
  }

  // Everything but pictures.
  QStringList AllThatStep3Says() {
    QStringList lines;
    for (const char* button :
         {"cmdReportCounting", "cmdReportSystemEqs", "cmdReportRREF", "cmdReportSolutions"}) {
      lines.append(Lines(button));
    }
    for (const QString& joint : JointsOfRows(Equations())) {
      const ShownEquations shown = EquationsOf(joint);
      lines.append({shown.X, shown.Y});
    }
    lines.append(PrintableReport());
    return lines;
  }

  // A row has a coefficient for each force that the equation of its joint names, and for no other.
  void ExpectRowsAreThoseOfTheJointEquations() {
    const QAbstractItemModel& table = Equations();
    const QStringList joints = JointsOfRows(table);
    ASSERT_EQ(joints.size(), truss_.NumJoints);
    for (int j = 0; j < joints.size(); ++j) {
      const ShownEquations shown = EquationsOf(joints[j]);
      EXPECT_EQ(ForcesIn(table, 2 * j), ForcesIn(shown.X)) << joints[j].toStdString();
      EXPECT_EQ(ForcesIn(table, 2 * j + 1), ForcesIn(shown.Y)) << joints[j].toStdString();
    }
  }
};

TEST_F(MainFormReports, RowsAreNamedAfterTheJointsWhoseEquationsTheyAre) {
  Started();
  OpenNamedInStep3(NumberedStrip());
  ExpectRowsAreThoseOfTheJointEquations();
}

TEST_F(MainFormReports, RowsKeepTheirNamesWhenTheWindowIsResized) {
  Started();
  OpenNamedInStep3(NumberedStrip());
  for (const QSize& size : {QSize(900, 700), QSize(480, 400), QSize(1300, 700)}) {
    ResizeInside(size.width(), size.height());
    ExpectRowsAreThoseOfTheJointEquations();
  }
}

TEST_F(MainFormReports, NothingThatStep3SaysChangesWhenTheWindowIsResizedOrMaximised) {
  for (const Truss& truss : {TriangleNamedFromTheTop(), NumberedStrip()}) {
    Started();
    OpenInStep2(truss);
    if (truss.NumJoints > 3) Click("cmdAutoName(1)");
    Click("cmdNext2");
    const QStringList said = AllThatStep3Says();
    ResizeInside(1000, 640);
    EXPECT_EQ(AllThatStep3Says(), said);
    form_->showMaximized();
    QApplication::processEvents();
    EXPECT_EQ(AllThatStep3Says(), said);
    form_->showNormal();
    QApplication::processEvents();
    EXPECT_EQ(AllThatStep3Says(), said);
  }
}

TEST_F(MainFormReports, SavingChangesNothingThatStep3Says) {
  Started();
  OpenNamedInStep3(NumberedStrip());
  const QStringList said = AllThatStep3Says();
  ResizeInside(800, 600);
  Trigger("mnuFileSave");
  EXPECT_EQ(AllThatStep3Says(), said);
}

TEST_F(MainFormReports, TheOldReportIsGoneBeforeItsFontChanges) {
  // Remembers how many rows the table had when its font changed.
  class FontWatcher : public QObject {
   public:
    using QObject::QObject;
    std::vector<int> Rows;

   protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
      if (event->type() == QEvent::FontChange) {
        Rows.push_back(static_cast<QAbstractItemView*>(watched)->model()->rowCount());
      }
      return false;
    }
  };

  Started();
  OpenInStep3(LoadedTriangle());
  ASSERT_EQ(Equations().rowCount(), 6);
  FontWatcher watcher(form_.get());
  Report()->findChild<QAbstractItemView*>(QStringLiteral("EqnGrid"))->installEventFilter(&watcher);
  Click("cmdPrev3");
  truss_.Settings.ReportFontSize = 16;
  Click("cmdNext2");
  EXPECT_THAT(watcher.Rows, testing::Each(0));
  EXPECT_FALSE(watcher.Rows.empty());
  EXPECT_EQ(Equations().rowCount(), 6);
}

// A rope that hangs straight; rounded directions contradict each other.
Truss ObliqueTie() {
  return TrussBuilder()
      .Member(2, 2, 3, 5, "AB")
      .Clamp(2, 2, "Ax", "Ay")
      .Force(3, 5, 100, 300)
      .Joint(2, 2, "A")
      .Joint(3, 5, "B");
}

TEST_F(MainFormReports, WhereRoundingHasMisledItIsToldBelowTheConclusion) {
  Started();
  OpenInStep3(ObliqueTie());
  const auto* notice = Report()->findChild<QPlainTextEdit*>(QStringLiteral("txtNotice"));
  EXPECT_TRUE(notice->isHidden()) << "Counting concludes from the numbers alone";
  for (const char* button : {"cmdReportRREF", "cmdReportSolutions"}) {
    Click(button);
    EXPECT_TRUE(notice->isVisible()) << button;
    EXPECT_TRUE(notice->toPlainText().startsWith(QStringLiteral("Exactly, the system is redundant")));
    EXPECT_TRUE(notice->toPlainText().contains(QStringLiteral("\"Why this conclusion\"")));
  }
  Click("cmdReportSystemEqs");
  EXPECT_TRUE(notice->isHidden());
  EXPECT_TRUE(PrintableReport().contains(QStringLiteral("Exactly, the system is redundant")));
  EXPECT_FALSE(notice->isHidden()) << "the solutions are shown after the printable report";
}

// How sure the figures are takes as long as the elimination. Nobody waits for it.
TEST_F(MainFormReports, BelowTheConclusionOfALargeTrussItIsToldWhenItIsKnown) {
  Started();
  Truss strip = TrussOf(WarrenStrip(600));
  strip.Settings.SigFigs = 9;  // more than are sure
  OpenInStep3(strip);
  const TrussAnalysis analysis = SolveTruss(strip);
  ExplanationOnDemand reasons(strip, analysis);
  const std::string expected = NoticeBelowConclusion(reasons.Graph(), reasons.Rounded(),
                                                     {.SigFigs = truss_.Settings.SigFigs, .Numbers = {}});
  ASSERT_FALSE(expected.empty());
  const auto* notice = Report()->findChild<QPlainTextEdit*>(QStringLiteral("txtNotice"));
  Click("cmdReportRREF");
  EXPECT_EQ(notice->toPlainText(), QLatin1String(RoundingIsComing));
  Click("cmdReportCounting");
  EXPECT_TRUE(notice->isHidden());
  Click("cmdReportSolutions");
  EXPECT_TRUE(QTest::qWaitFor([&] { return notice->toPlainText() == ToQt(expected); }))
      << notice->toPlainText().toStdString();
  Click("cmdReportRREF");
  EXPECT_EQ(notice->toPlainText(), ToQt(expected)) << "the second time at once";
}

TEST_F(MainFormReports, ATrussThatIsLeftWhileItsFiguresAreWorkedOutIsForgotten) {
  Started();
  OpenInStep3(TrussOf(WarrenStrip(600)));
  Click("cmdReportRREF");
  Click("cmdPrev3");
  QTest::qWait(100);
  OpenInStep3(TriangleNamedFromTheTop());
  Click("cmdReportSolutions");
  EXPECT_TRUE(Report()->findChild<QPlainTextEdit*>(QStringLiteral("txtNotice"))->isHidden());
}

TEST_F(MainFormReports, WhereTheVerdictsAgreeNothingIsAdded) {
  Started();
  OpenInStep3(TriangleNamedFromTheTop());
  const auto* notice = Report()->findChild<QPlainTextEdit*>(QStringLiteral("txtNotice"));
  for (const char* button : {"cmdReportRREF", "cmdReportSolutions"}) {
    Click(button);
    EXPECT_TRUE(notice->isHidden()) << button;
  }
  OpenInStep3(ObliqueTie());
  Click("cmdReportSolutions");
  EXPECT_FALSE(notice->isHidden()) << "it is about the truss that is open";
}

}  // namespace
