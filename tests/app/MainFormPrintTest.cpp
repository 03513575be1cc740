// The printable report as it is opened from the main window.
#include <QPrintPreviewDialog>
#include <QTextEdit>

#include "reports/PrintableReportWindow.h"
#include "support/MainFormFixture.h"

namespace {

class MainFormPrint : public MainFormTest {
 protected:
  // Opens the printable report and does something in it once its document is there.
  void InReport(const std::function<void(PrintableReportWindow&, QTextEdit&)>& act) {
    InModalWindow([act](QWidget& window) {
      auto* report = qobject_cast<PrintableReportWindow*>(&window);
      ASSERT_NE(report, nullptr);
      ASSERT_TRUE(QTest::qWaitFor([report] { return report->HasDocument(); }));
      act(*report, *report->findChild<QTextEdit*>());
      report->close();
    });
    Trigger("mnuFilePrint");
  }

  std::string TextOfReport() {
    std::string text;
    InReport([&](PrintableReportWindow&, QTextEdit& box) { text = box.toPlainText().toStdString(); });
    return text;
  }
};

TEST_F(MainFormPrint, WithoutUnknownForcesNothingHappens) {
  Started();
  Click("cmdNext1");
  Click("cmdNext2");
  ASSERT_TRUE(Entry("mnuFilePrint")->isEnabled());
  Trigger("mnuFilePrint");
  QApplication::processEvents();
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  EXPECT_EQ(modalWindows_, 0);
  EXPECT_TRUE(messages_.Shown.empty());
}

TEST_F(MainFormPrint, TheReportOpensModallyOverTheMainWindow) {
  Started();
  OpenInStep3(LoadedTriangle());
  InReport([this](PrintableReportWindow& report, QTextEdit& box) {
    EXPECT_TRUE(report.isModal());
    EXPECT_EQ(report.parentWidget(), form_.get());
    EXPECT_TRUE(QTest::qWaitForWindowActive(&report));
    EXPECT_THAT(box.toPlainText().toStdString(), testing::HasSubstr(truss_.FileName));
  });
  EXPECT_EQ(modalWindows_, 1);
}

TEST_F(MainFormPrint, TheReportWindowIsLeftWithTheSolutions) {
  Started();
  OpenInStep3(LoadedTriangle());
  Click("cmdReportSystemEqs");
  TextOfReport();
  EXPECT_EQ(Report()->windowTitle(), QStringLiteral("Report - the forces"));
  EXPECT_TRUE(Report()->isVisible());
}

TEST_F(MainFormPrint, AReportOpenedAfterAChangeIsOfTheTrussAsItIsNow) {
  Started();
  OpenInStep3(LoadedTriangle());
  EXPECT_THAT(TextOfReport(), testing::HasSubstr(" 1000"));
  Click("cmdPrev3");
  Click("cmdPrev2");
  truss_.Forces[1].Fy = -4000;
  Click("cmdNext1");
  Click("cmdNext2");
  const std::string text = TextOfReport();
  EXPECT_THAT(text, testing::HasSubstr("2828"));
  EXPECT_THAT(text, testing::Not(testing::HasSubstr("1414")));
}

TEST_F(MainFormPrint, TheWindowOpensInTheSizeInWhichItWasLeft) {
  Started();
  OpenInStep3(LoadedTriangle());
  InReport([](PrintableReportWindow& report, QTextEdit&) { report.resize(801, 477); });
  InReport([](PrintableReportWindow& report, QTextEdit&) { EXPECT_EQ(report.size(), QSize(801, 477)); });
}

TEST_F(MainFormPrint, TheMenusKeysOpenIt) {
  Started();
  OpenInStep3(LoadedTriangle());
  form_->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(form_.get()));
  InModalWindow([](QWidget& window) {
    EXPECT_EQ(window.objectName(), QStringLiteral("frmReport"));
    QTest::keyClick(&window, Qt::Key_Escape);
  });
  QTest::keyClick(form_.get(), Qt::Key_P, Qt::ControlModifier);
  EXPECT_EQ(modalWindows_, 1);
}

}  // namespace
