// The report window beside the main window: where it opens, and that one goes from report to report in it.
#include <QAbstractItemView>
#include <QMenu>

#include "platform/qt/ScreenRoom.h"
#include "support/MainFormFixture.h"

namespace {

class ReportBesideMainForm : public MainFormTest {
 protected:
  // A button of the main window, on the screen.
  QRect OnScreen(const char* name) const {
    const QWidget* widget = Widget(name);
    return {widget->mapToGlobal(QPoint()), widget->size()};
  }

  void ExpectButtonsFree() const {
    for (const char* name :
         {"cmdReportCounting", "cmdReportSystemEqs", "cmdReportRREF", "cmdReportSolutions", "cmdPrev3"}) {
      EXPECT_FALSE(Report()->frameGeometry().intersects(OnScreen(name))) << name;
    }
    EXPECT_TRUE(Report()->screen()->availableGeometry().contains(Report()->frameGeometry()));
  }
};

TEST_F(ReportBesideMainForm, LeavesTheReportButtonsAndBackFree) {
  Shown();
  Click("cmdOKInstruct1");
  OpenInStep3(LoadedTriangle());
  ASSERT_TRUE(Report()->isVisible());
  ExpectButtonsFree();
}

TEST_F(ReportBesideMainForm, FollowsAMainWindowThatWasMovedOrEnlarged) {
  Started();
  form_->move(form_->screen()->availableGeometry().topLeft() + QPoint(0, 120));
  OpenInStep3(LoadedTriangle());
  ExpectButtonsFree();
  Report()->close();
  form_->move(form_->screen()->availableGeometry().topLeft() + QPoint(150, 20));
  ResizeInside(500, 450);
  Click("cmdReportRREF");
  ExpectButtonsFree();
}

TEST_F(ReportBesideMainForm, StaysWhereTheUserHasPutIt) {
  Started();
  OpenInStep3(LoadedTriangle());
  const QRect chosen(31, 47, 456, 333);
  Report()->setGeometry(chosen);
  for (const char* button : {"cmdReportSystemEqs", "cmdReportSolutions"}) {
    Click(button);
    EXPECT_EQ(Report()->geometry(), chosen);
    Report()->close();
  }
  Click("cmdReportRREF");
  EXPECT_EQ(Report()->geometry(), chosen);
}

TEST_F(ReportBesideMainForm, TheMainWindowOpensWholeOnTheScreen) {
  Shown();
  const QRect screen = form_->screen()->availableGeometry();
  EXPECT_TRUE(screen.contains(form_->frameGeometry()));
  const QRect expected(screen.left() + (screen.width() - 566) / 2, screen.top() + screen.height() / 20, 566,
                       0);
  EXPECT_EQ(form_->width(), 566);
  EXPECT_EQ(form_->pos(), expected.topLeft());
  const QWidget* status = Widget("StatusBar1");
  EXPECT_TRUE(screen.contains(QRect(status->mapToGlobal(QPoint()), status->size())));
}

TEST_F(ReportBesideMainForm, TheAccessKeysOfTheReportButtonsWorkInTheReportToo) {
  Started();
  OpenInStep3(LoadedTriangle());
  ASSERT_TRUE(QTest::qWaitForWindowActive(Report()));
  struct {
    Qt::Key Key;
    const char* Caption;
  } const reports[] = {
      {Qt::Key_E, "Report - The system of equations for the unknown forces"},
      {Qt::Key_R, "Report - the system of equations in RREF form"},
      {Qt::Key_L, "Report - the forces"},
      {Qt::Key_C, "Report - Counting the number of unknown forces and the number of determining equations"},
  };
  for (const auto& report : reports) {
    QTest::keyClick(Report()->focusWidget(), report.Key, Qt::AltModifier);
    EXPECT_EQ(Report()->windowTitle(), QString::fromLatin1(report.Caption));
    EXPECT_TRUE(Report()->isActiveWindow());
  }
}

// The report has no menus, and hides those of the main window from who has only the keys.
TEST_F(ReportBesideMainForm, TheKeyOfTheMenuLearnWorksInTheReportToo) {
  Started();
  OpenInStep3(LoadedTriangle());
  ASSERT_TRUE(QTest::qWaitForWindowActive(Report()));
  QTest::keyClick(Report()->focusWidget(), Qt::Key_N, Qt::AltModifier);
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  EXPECT_EQ(menu->objectName(), QStringLiteral("mnuLearn"));
  ASSERT_NE(menu->activeAction(), nullptr) << "the first entry is at hand";
  EXPECT_EQ(menu->activeAction()->objectName(), QStringLiteral("mnuLearnTry"));
  QTest::keyClick(menu, Qt::Key_J);
  QWidget* byJoint = nullptr;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->objectName() == QStringLiteral("ByJoint") && window->isVisible()) byJoint = window;
  }
  ASSERT_NE(byJoint, nullptr);
  EXPECT_TRUE(QTest::qWaitForWindowActive(byJoint));
}

// It is the active window whenever a report has been asked for.
TEST_F(ReportBesideMainForm, TheKeysForGoingBackWorkInTheReportToo) {
  Started();
  OpenInStep2(LoadedTriangle());
  for (const Qt::Key key : {Qt::Key_Left, Qt::Key_B}) {
    Click("cmdNext2");
    ASSERT_TRUE(QTest::qWaitForWindowActive(Report()));
    QTest::keyClick(Report()->focusWidget(), key, Qt::AltModifier);
    EXPECT_TRUE(Widget("picStep2")->isVisible());
    EXPECT_TRUE(QTest::qWaitForWindowActive(form_.get()));
  }
}

TEST_F(ReportBesideMainForm, TheKeyForPrintingWorksInTheReportToo) {
  Started();
  OpenInStep3(LoadedTriangle());
  ASSERT_TRUE(QTest::qWaitForWindowActive(Report()));
  InModalWindow([](QWidget& window) {
    EXPECT_EQ(window.objectName(), QStringLiteral("frmReport"));
    window.close();
  });
  QTest::keyClick(Report()->focusWidget(), Qt::Key_P, Qt::ControlModifier);
  EXPECT_EQ(modalWindows_, 1);
}

// Its table would be of a truss that may have other names and forces meanwhile.
TEST_F(ReportBesideMainForm, LeavingStep3ClosesTheReport) {
  Started();
  OpenInStep3(LoadedTriangle());
  Click("cmdReportSolutions");
  const QRect place = Report()->geometry();
  Click("cmdPrev3");
  EXPECT_FALSE(Report()->isVisible());
  Report()->show();
  const auto* grid = Report()->findChild<QAbstractItemView*>(QStringLiteral("EqnGrid"));
  EXPECT_FALSE(grid->isVisible());
  Report()->hide();
  Click("cmdNext2");
  EXPECT_TRUE(Report()->isVisible());
  EXPECT_EQ(Report()->geometry(), place);
}

}  // namespace
