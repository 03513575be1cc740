// Help from the main window: the menu's topics, and F1 where the user is.
#include <QTextBrowser>

#include "app/OptionsDialog.h"
#include "reports/PrintableReportWindow.h"
#include "support/BuiltHelp.h"
#include "support/MainFormFixture.h"
#include "support/ModalDialog.h"

namespace {

class MainFormHelpTest : public MainFormTest {
 protected:
  MainFormHelpTest() { programDirectory_ = ProgramDirectory(); }

  static QWidget* Viewer() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (window->objectName() == QStringLiteral("HelpViewer")) return window;
    }
    return nullptr;
  }

  // The page that the viewer shows.
  static std::string Page() {
    if (Viewer() == nullptr || !Viewer()->isVisible()) return "no help";
    return Viewer()->findChild<QTextBrowser*>()->source().path().mid(1).toStdString();
  }

  static void PressF1(QWidget& window) {
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&window] { return QApplication::activeWindow() == &window; }));
    QTest::keyClick(&window, Qt::Key_F1);
    QApplication::processEvents();
  }
};

TEST_F(MainFormHelpTest, TheMenuOpensItsThreeTopics) {
  Started();
  Trigger("mnuHelpProgram");
  EXPECT_EQ(Page(), "index.htm");
  Trigger("mnuHelpTrusses");
  EXPECT_EQ(Page(), "truss help/truss_theory.htm");
  Trigger("mnuHelpMath");
  EXPECT_EQ(Page(), "gauss help/backgd3.htm");
  EXPECT_TRUE(messages_.Shown.empty());
}

TEST_F(MainFormHelpTest, F1OpensTheTopicOfTheStep) {
  PressF1(Shown());
  EXPECT_EQ(Page(), "index.htm") << "the instructions are shown";
  Click("cmdOKInstruct1");
  PressF1(*form_);
  EXPECT_EQ(Page(), "program/drawing.htm");
  OpenInStep2(LoadedTriangle());
  PressF1(*form_);
  EXPECT_EQ(Page(), "program/naming.htm");
  Click("cmdNext2");
  PressF1(*form_);
  EXPECT_EQ(Page(), "program/reports.htm");
}

TEST_F(MainFormHelpTest, F1InTheReportWindowOpensThePageOfItsConclusion) {
  Started();
  OpenInStep3(LoadedTriangle());
  PressF1(*Report());
  EXPECT_EQ(Page(), "truss help/determinacy.htm");
  Click("cmdReportSystemEqs");
  PressF1(*Report());
  EXPECT_EQ(Page(), "gauss help/backgd3.htm");
  for (const char* button : {"cmdReportSolutions", "cmdReportRREF"}) {
    Click(button);
    PressF1(*Report());
    EXPECT_EQ(Page(), "truss help/conclusions.htm") << button;
  }
}

TEST_F(MainFormHelpTest, F1WhereRoundingHasMisledOpensThePageAboutIt) {
  Started();
  OpenInStep3(TrussBuilder().Member(0, 0, 1, 3, "AB").Clamp(0, 0, "Ax", "Ay").Force(1, 3, 100, 300));
  Click("cmdReportSolutions");
  PressF1(*Report());
  EXPECT_EQ(Page(), "truss help/exact.htm");
  Click("cmdReportCounting");
  PressF1(*Report());
  EXPECT_EQ(Page(), "truss help/determinacy.htm");
}

TEST_F(MainFormHelpTest, F1InTheSettingsOpensATopicThatCanBeReadBesideThem) {
  Started();
  std::string page;
  WhenOpen<OptionsDialog>([&page](OptionsDialog& dialog) {
    PressF1(dialog);
    page = Page();
    EXPECT_EQ(dialog.windowModality(), Qt::WindowModal);
    EXPECT_TRUE(dialog.isVisible());
  });
  Trigger("mnuSettings");
  EXPECT_EQ(page, "program/settings.htm");
}

TEST_F(MainFormHelpTest, F1InThePrintableReportOpensATopicThatCanBeReadBesideIt) {
  Started();
  OpenInStep3(LoadedTriangle());
  std::string page;
  WhenOpen<PrintableReportWindow>([&page](PrintableReportWindow& report) {
    ASSERT_TRUE(QTest::qWaitFor([&report] { return report.HasDocument(); }));
    PressF1(report);
    page = Page();
    EXPECT_TRUE(report.isVisible());
    report.close();
  });
  Trigger("mnuFilePrint");
  EXPECT_EQ(page, "program/printing.htm");
}

TEST_F(MainFormHelpTest, ThereIsOneHelpWindow) {
  Started();
  Trigger("mnuHelpProgram");
  const QWidget* first = Viewer();
  Trigger("mnuHelpMath");
  EXPECT_EQ(Viewer(), first);
}

TEST_F(MainFormHelpTest, TheHelpWindowClosesWithTheMainWindow) {
  Started();
  Trigger("mnuHelpProgram");
  form_->close();
  EXPECT_EQ(Page(), "no help");
}

TEST_F(MainFormHelpTest, AMissingHelpFileIsSaid) {
  programDirectory_ = directory_ / "none";
  Started();
  Trigger("mnuHelpTrusses");
  ASSERT_EQ(messages_.Shown.size(), 1U);
  EXPECT_EQ(messages_.Shown[0], (Message{.Text = "The help file was not found, so help cannot be shown: " +
                                                 directory_ / "none/orvane.chm",
                                         .Icon = MessageIcon::Exclamation}));
  EXPECT_EQ(Page(), "no help");
}

}  // namespace
