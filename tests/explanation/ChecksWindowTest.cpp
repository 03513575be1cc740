// The list of the checks.
#include "explanation/ChecksWindow.h"

#include "support/CutTexts.h"

namespace {

const std::vector<DrawingCheck>& TwoChecks() {
  static const std::vector<DrawingCheck> checks = {
      {CheckKind::NearEnds, 4, 0,
       "Joints D at (4, 0) and E at (4.02, 0) nearly meet, but they are two joints."},
      {CheckKind::Apart, 7, -2, "The roller at (7, -2) touches no member: \xE9\x1B."}};
  return checks;
}

class ChecksWindowTest : public testing::Test {
 protected:
  void Show(const std::vector<DrawingCheck>& checks) {
    window_.ShowChecks(checks, 10);
    window_.resize(480, 320);
    window_.BringUp();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window_));
  }

  QListWidget& List() { return *window_.findChild<QListWidget*>(QStringLiteral("lstChecks")); }
  QString Heading() { return window_.findChild<QLabel*>(QStringLiteral("lblChecks"))->text(); }
  void Copy() { QTest::keyClick(&List(), Qt::Key_C, Qt::ControlModifier); }

  ChecksWindow window_;
};

TEST_F(ChecksWindowTest, ListsWhatWasFound) {
  Show(TwoChecks());
  EXPECT_EQ(Heading(), QStringLiteral("2 things to look at:"));
  ASSERT_EQ(List().count(), 2);
  EXPECT_EQ(List().item(0)->text(), QString::fromStdString(TwoChecks()[0].Text));
  EXPECT_TRUE(List().item(1)->text().contains(QString::fromUtf8("\xC3\xA9\xE2\x90\x9B")));
}

TEST_F(ChecksWindowTest, SaysWhenThereIsNothing) {
  Show({});
  EXPECT_EQ(Heading(), QStringLiteral("Nothing was found."));
  EXPECT_EQ(List().count(), 0);
  const QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&List());
  EXPECT_EQ(spoken->text(QAccessible::Description), QStringLiteral("Nothing was found."));
  Copy();
  EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("Nothing was found."));
}

TEST_F(ChecksWindowTest, CopiesWhatIsChosenOrAll) {
  Show(TwoChecks());
  Copy();
  EXPECT_EQ(QApplication::clipboard()->text(),
            List().item(0)->text() + QLatin1Char('\n') + List().item(1)->text());
  List().setCurrentRow(1);
  Copy();
  EXPECT_EQ(QApplication::clipboard()->text(), List().item(1)->text());
}

// Also where the key reaches the list itself, which knows of one line only.
TEST_F(ChecksWindowTest, CopiesAllThatIsChosenWithTheListsOwnKeyToo) {
  Show(TwoChecks());
  const auto press = [this](Qt::Key key) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::ControlModifier);
    QApplication::sendEvent(&List(), &event);
  };
  const QString all = List().item(0)->text() + QLatin1Char('\n') + List().item(1)->text();
  QApplication::clipboard()->clear();
  press(Qt::Key_C);
  EXPECT_EQ(QApplication::clipboard()->text(), all) << "none is chosen";
  List().setCurrentRow(0);
  press(Qt::Key_C);
  EXPECT_EQ(QApplication::clipboard()->text(), List().item(0)->text());
  press(Qt::Key_A);
  EXPECT_EQ(List().selectedItems().size(), 2);
  press(Qt::Key_C);
  EXPECT_EQ(QApplication::clipboard()->text(), all);
}

TEST_F(ChecksWindowTest, IsNeverSoSmallThatItsPartsCoverEachOther) {
  const QFont usual = QApplication::font();
  for (const int points : {8, 24}) {
    QFont font = usual;
    font.setPointSize(points);
    QApplication::setFont(font);
    ChecksWindow window;
    window.ShowChecks({}, 10);
    window.BringUp();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    window.resize(1, 1);
    QCoreApplication::processEvents();
    const QWidget* heading = window.findChild<QLabel*>();
    EXPECT_LE(heading->geometry().bottom(), window.findChild<QListWidget*>()->geometry().top()) << points;
    EXPECT_THAT(CutTexts::In(window), testing::IsEmpty()) << points;
  }
  QApplication::setFont(usual);
}

TEST_F(ChecksWindowTest, TellsThePlaceOfTheFindingThatIsChosen) {
  Show(TwoChecks());
  QSignalSpy chosen(&window_, &ChecksWindow::PlaceChosen);
  QSignalSpy left(&window_, &ChecksWindow::PlaceLeft);
  List().setFocus();
  QTest::keyClick(&List(), Qt::Key_End);
  ASSERT_EQ(chosen.count(), 1);
  EXPECT_EQ(chosen[0][0].toFloat(), 7);
  EXPECT_EQ(chosen[0][1].toFloat(), -2);
  QTest::keyClick(&window_, Qt::Key_Escape);
  EXPECT_FALSE(window_.isVisible());
  EXPECT_GE(left.count(), 1);
}

TEST_F(ChecksWindowTest, KeepsTheChoiceWhileTheFindingIsThere) {
  Show(TwoChecks());
  List().setCurrentRow(1);
  window_.ShowChecks({TwoChecks()[1]}, 10);
  ASSERT_EQ(List().selectedItems().size(), 1);
  QSignalSpy left(&window_, &ChecksWindow::PlaceLeft);
  window_.ShowChecks({TwoChecks()[0]}, 10);
  EXPECT_TRUE(List().selectedItems().isEmpty());
  EXPECT_EQ(left.count(), 1);
}

TEST_F(ChecksWindowTest, NoTextIsCutWithLettersOfAnySize) {
  const QFont usual = QApplication::font();
  for (const int points : {8, 14, 24}) {
    QFont font = usual;
    font.setPointSize(points);
    QApplication::setFont(font);
    for (const auto& checks : {TwoChecks(), std::vector<DrawingCheck>{}}) {
      ChecksWindow window;
      window.ShowChecks(checks, 16);
      window.resize(320, 240);
      window.BringUp();
      ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
      EXPECT_THAT(CutTexts::In(window), testing::IsEmpty()) << points;
    }
  }
  QApplication::setFont(usual);
}

}  // namespace
