// The window that solves joint by joint, by itself: its steps, its picture, and where the keys lead.
#include "explanation/byjoint/ByJointWindow.h"

#include "explanation/byjoint/HandView.h"
#include "support/CutTexts.h"
#include "support/FindControl.h"
#include "support/HandTrusses.h"
#include "support/LearnWindowFixture.h"

namespace {

class ByJointWindowTest : public LearnWindowFixture<ByJointWindow> {
 protected:
  ByJointWindowTest() : LearnWindowFixture({700, 600}) {}

  QListWidget& Steps() { return FindControl<QListWidget>(window_, "lstSteps"); }
  QPushButton& Next() { return FindControl<QPushButton>(window_, "cmdNextStep"); }
  QPushButton& Back() { return FindControl<QPushButton>(window_, "cmdBack"); }
  QString Text() { return FindControl<QPlainTextEdit>(window_, "txtStep").toPlainText(); }
  HandView& Picture() { return FindControl<HandView>(window_, "picStep"); }
};

TEST_F(ByJointWindowTest, BeginsWithTheReactionsAndWhatIsAssumed) {
  Show(KingPost());
  EXPECT_EQ(Steps().item(0)->text(), QStringLiteral("1.  Reactions"));
  EXPECT_EQ(Steps().item(1)->text(), QStringLiteral("2.  Nothing in CD"));
  EXPECT_EQ(Steps().item(Steps().count() - 1)->text(), QStringLiteral("What is found"));
  EXPECT_TRUE(Text().startsWith(QStringLiteral("Every member is assumed to push")));
  EXPECT_TRUE(Text().contains(QStringLiteral("The balance of the whole truss.")));
  EXPECT_FALSE(Back().isEnabled());
  EXPECT_TRUE(Steps().hasFocus());
  ASSERT_TRUE(Picture().Drawn());
  EXPECT_EQ(Picture().Drawn()->Part.size(), 5U);
}

// Two joints of one name are told apart by their places.
TEST_F(ByJointWindowTest, TheListIsAsWideAsItsLines) {
  for (const float points : {9.0F, 14.0F}) {
    Show(KingPost(4.02F).Joint(0, 0, "Near").Joint(8, 0, "Near").Joint(4, 4, "Near").Joint(4.02F, 0, "Near"),
         points, {900, 700});
    const QFontMetrics letters(Steps().font());
    int widest = 0;
    for (int row = 0; row < Steps().count(); ++row) {
      widest = std::max(widest, letters.horizontalAdvance(Steps().item(row)->text()));
      EXPECT_LT(Steps().visualItemRect(Steps().item(row)).height(), 2 * letters.height())
          << Steps().item(row)->text().toStdString();
    }
    EXPECT_GE(Steps().viewport()->width(), widest);
    EXPECT_LT(Steps().width(), window_.width() / 2);
  }
}

TEST_F(ByJointWindowTest, TheListStaysAsWideAsTheUserHasItMade) {
  Show(KingPost());
  auto& splitter = *qobject_cast<QSplitter*>(Steps().parentWidget());
  QWidget* edge = splitter.handle(1);
  const QPoint middle = edge->rect().center();
  QTest::mousePress(edge, Qt::LeftButton, {}, middle);
  QTest::mouseMove(edge, middle + QPoint(80, 0));
  QTest::mouseRelease(edge, Qt::LeftButton, {}, middle + QPoint(80, 0));
  const int chosen = Steps().width();
  Show(KingPost());
  EXPECT_EQ(Steps().width(), chosen);
}

TEST_F(ByJointWindowTest, SaysWhichSensesThePicturesArrowsShow) {
  Show(KingPost());
  const QLabel& note = FindControl<QLabel>(window_, "lblArrows");
  EXPECT_TRUE(note.isVisible());
  EXPECT_TRUE(note.text().startsWith(QStringLiteral("The picture's arrows show the senses found")));
  // A triangle that hangs on three links in a larger one takes a cut.
  Show(TrussBuilder()
           .Member(0, 0, 12, 0)
           .Member(0, 0, 6, 10)
           .Member(12, 0, 6, 10)
           .Member(5, 2, 8, 3)
           .Member(8, 3, 6.5F, 5)
           .Member(6.5F, 5, 5, 2)
           .Member(0, 0, 5, 2)
           .Member(12, 0, 8, 3)
           .Member(6, 10, 6.5F, 5)
           .Clamp(0, 0)
           .Roller(12, 0)
           .Force(5, 2, 10, -20));
  for (int row = 0; row < Steps().count(); ++row) {
    Steps().setCurrentRow(row);
    const bool isSection = Steps().item(row)->text().contains(QStringLiteral("Section"));
    if (row + 1 < Steps().count()) {
      EXPECT_EQ(note.text().startsWith(QStringLiteral("The picture's arrows show the senses assumed")),
                isSection)
          << row;
    }
    if (isSection) {
      EXPECT_FALSE(Picture().Drawn()->Cut.empty());
    }
  }
  EXPECT_EQ(note.text(), QString()) << "beyond the steps";
}

TEST_F(ByJointWindowTest, NextAndBackGoFromStepToStepAndTellTheJoint) {
  Show(KingPost());
  QSignalSpy chosen(&window_, &ByJointWindow::PlaceChosen);
  QTest::mouseClick(&Next(), Qt::LeftButton);
  ASSERT_EQ(chosen.count(), 1);
  EXPECT_EQ(chosen[0][0].toFloat(), 4);
  EXPECT_EQ(chosen[0][1].toFloat(), 0);
  EXPECT_TRUE(Text().startsWith(QStringLiteral("AD and BD lie in one line at joint D")));
  QTest::mouseClick(&Next(), Qt::LeftButton);
  EXPECT_EQ(Steps().currentItem()->text(), QStringLiteral("3.  Joint A"));
  EXPECT_EQ(chosen.last()[0].toFloat(), 0);
  EXPECT_EQ(FindControl<QLabel>(window_, "lblStep").text(),
            QStringLiteral("Step 3 of %1").arg(Steps().count()));
  QTest::mouseClick(&Back(), Qt::LeftButton);
  EXPECT_EQ(Steps().currentRow(), 1);
}

// What is found is the last entry of the list, and counts.
TEST_F(ByJointWindowTest, CountsWhatTheListShows) {
  for (const Truss& truss : {Truss(KingPost()), Truss(HandTriangle()), Truss(SlopingArch(100, 300))}) {
    Show(truss);
    for (int row = 0; row < Steps().count(); ++row) {
      Steps().setCurrentRow(row);
      EXPECT_EQ(FindControl<QLabel>(window_, "lblStep").text(),
                QStringLiteral("Step %1 of %2").arg(row + 1).arg(Steps().count()));
    }
  }
  window_.Clear();
  EXPECT_EQ(FindControl<QLabel>(window_, "lblStep").text(), QString());
}

TEST_F(ByJointWindowTest, GoesToTheEndAndBackWithKeysAlone) {
  Show(KingPost());
  Next().setFocus();
  for (int i = 0; i < 40 && Next().isEnabled(); ++i) QTest::keyClick(&Next(), Qt::Key_Space);
  EXPECT_EQ(Steps().currentRow(), Steps().count() - 1);
  EXPECT_TRUE(Text().startsWith(QStringLiteral("Every force is found.")));
  EXPECT_FALSE(Picture().isVisible());
  EXPECT_TRUE(Back().hasFocus()) << "a button that is switched off does not keep the keys";
  QTest::keyClick(&Back(), Qt::Key_Space);
  EXPECT_TRUE(Picture().isVisible());
  Next().setFocus();
  QTest::keyClick(&Next(), Qt::Key_Space);
  EXPECT_EQ(Steps().currentRow(), Steps().count() - 1);
  QSignalSpy left(&window_, &ByJointWindow::PlaceLeft);
  QTest::keyClick(&window_, Qt::Key_Escape);
  EXPECT_FALSE(window_.isVisible());
  EXPECT_GE(left.count(), 1);
}

TEST_F(ByJointWindowTest, IsReadThroughWithTheMouseAlone) {
  Show(KingPost());
  QStringList read;
  for (int row = 0; row < Steps().count(); ++row) {
    QListWidgetItem* item = Steps().item(row);
    QTest::mouseClick(Steps().viewport(), Qt::LeftButton, {}, Steps().visualItemRect(item).center());
    EXPECT_EQ(Steps().currentRow(), row);
    read.append(Text());
    EXPECT_EQ(Picture().isVisible(), row + 1 < Steps().count());
  }
  QTest::mouseClick(&FindControl<QPushButton>(window_, "cmdCopy"), Qt::LeftButton);
  for (const QString& text : read)
    EXPECT_TRUE(QApplication::clipboard()->text().contains(text.section(u'\n', -1)));
}

TEST_F(ByJointWindowTest, IsReadThroughWithItsLettersAlone) {
  Show(KingPost());
  const auto press = [this](Qt::Key key) {
    QTest::keyClick(window_.focusWidget(), key, Qt::AltModifier);
    QTest::qWait(1);
  };
  for (int row = 1; row < Steps().count(); ++row) {
    press(Qt::Key_N);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Steps().currentRow() == row; })) << row;
  }
  press(Qt::Key_B);
  EXPECT_TRUE(QTest::qWaitFor([&] { return Steps().currentRow() == Steps().count() - 2; }));
  press(Qt::Key_C);
  EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::clipboard()->text() == window_.CopiedText(); }));
}

TEST_F(ByJointWindowTest, EveryControlIsReachedWithTabAndTellsItself) {
  Show(KingPost());
  QTest::keyClick(&Steps(), Qt::Key_Down);
  QStringList reached;
  for (int i = 0; i < 10; ++i) {
    QWidget* at = window_.focusWidget();
    reached.append(at->objectName());
    EXPECT_FALSE(QAccessible::queryAccessibleInterface(at)->text(QAccessible::Name).isEmpty())
        << at->objectName().toStdString();
    QTest::keyClick(at, Qt::Key_Tab);
    if (window_.focusWidget() == &Steps()) break;
  }
  for (const char* name : {"lstSteps", "picStep", "txtStep", "cmdBack", "cmdNextStep", "cmdCopy"})
    EXPECT_TRUE(reached.contains(QString::fromLatin1(name))) << name;
}

// Who sees nothing hears of each step its heading and all its lines.
TEST_F(ByJointWindowTest, IsReadThroughTheAccessibilityTree) {
  Show(KingPost());
  QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&Steps());
  QAccessibleInterface* text =
      QAccessible::queryAccessibleInterface(&FindControl<QPlainTextEdit>(window_, "txtStep"));
  ASSERT_NE(text->textInterface(), nullptr);
  ASSERT_EQ(list->childCount(), Steps().count());
  EXPECT_EQ(text->text(QAccessible::Name), QStringLiteral("Equations of the step"));
  for (int row = 0; row < list->childCount(); ++row) {
    EXPECT_EQ(list->child(row)->text(QAccessible::Name), Steps().item(row)->text());
    QTest::keyClick(&Steps(), row == 0 ? Qt::Key_Home : Qt::Key_Down);
    EXPECT_TRUE(list->child(row)->state().selected) << row;
    EXPECT_EQ(text->textInterface()->text(0, text->textInterface()->characterCount()), Text());
  }
}

TEST_F(ByJointWindowTest, SaysWhatThePictureShows) {
  Show(KingPost());
  Steps().setCurrentRow(2);
  const QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&Picture());
  EXPECT_EQ(spoken->text(QAccessible::Name), QStringLiteral("Picture of the step"));
  EXPECT_TRUE(spoken->text(QAccessible::Description)
                  .startsWith(QStringLiteral("Joint A alone, and what acts on it: ")));
}

TEST_F(ByJointWindowTest, CopiesAllStepsAsText) {
  Show(KingPost());
  QTest::mouseClick(&FindControl<QPushButton>(window_, "cmdCopy"), Qt::LeftButton);
  const QString copied = QApplication::clipboard()->text();
  EXPECT_EQ(copied, window_.CopiedText());
  EXPECT_TRUE(copied.contains(QStringLiteral("\n\n3.  Joint A\nSought:  ")));
  EXPECT_TRUE(copied.contains(QStringLiteral("Every force is found.")));
}

TEST_F(ByJointWindowTest, EmptiesWhenTheTrussIsGone) {
  Show(KingPost());
  window_.Clear();
  EXPECT_EQ(Steps().count(), 0);
  EXPECT_EQ(Text(), QString());
  EXPECT_FALSE(Next().isEnabled());
  EXPECT_FALSE(Picture().Drawn());
}

TEST_F(ByJointWindowTest, CutsNoTextInLargeLettersAndSmallWindows) {
  for (const float points : {10.0F, 16.0F}) {
    Show(KingPost(), points, {460, 320});
    for (int row = 0; row < Steps().count(); ++row) {
      Steps().setCurrentRow(row);
      EXPECT_THAT(CutTexts::In(window_), testing::IsEmpty());
    }
  }
}

}  // namespace
