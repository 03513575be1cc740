// The hints of the tools in the status bar, and choosing tools with digits.
#include "editing/ToolPicture.h"
#include "support/RealMouse.h"

namespace {

class ToolHints : public RealMouse {
 protected:
  QToolButton* Button(int tool) const {
    return Find<QToolButton>(("imgTool(" + std::to_string(tool) + ")").c_str());
  }
  void Over(int tool) { MouseTo(Button(tool), QPoint(16, 16)); }
  void OverTheCanvas() { MouseTo(Canvas(), QPoint(300, 300)); }

  // Of all buttons the one of this tool shows the pressed picture, and the others show theirs raised.
  void ExpectPressed(int pressed) const {
    for (int tool = 1; tool <= NumTools; ++tool) {
      const QToolButton* button = Button(tool);
      const QImage shown = button->icon().pixmap(button->iconSize(), button->devicePixelRatioF()).toImage();
      const auto picture = [&](bool isDown) {
        return ToolPicture(tool, isDown, button->devicePixelRatioF(), button->palette()).toImage();
      };
      ASSERT_NE(picture(true), picture(false)) << tool;
      EXPECT_EQ(shown, picture(tool == pressed)) << "tool " << tool << " while " << pressed << " is chosen";
    }
  }

  static QString Hint(int tool) { return QString::fromLatin1(ToolHint(tool)); }
};

constexpr const char* Step1 = " Step 1: Design the truss. ";

}  // namespace

TEST_F(ToolHints, LeavingThePaletteShowsTheHintOfTheChosenTool) {
  Start();
  Over(4);
  EXPECT_EQ(Status(), Hint(4));
  ChooseTool(Tool::Force);
  Over(6);
  EXPECT_EQ(Status(), Hint(6));
  OverTheCanvas();
  EXPECT_EQ(Status(), Hint(4));
}

TEST_F(ToolHints, OnlyTheChosenToolHasItsPressedPicture) {
  Start();
  ExpectPressed(0);
  for (int tool = 1; tool <= NumTools; ++tool) {
    ChooseTool(static_cast<Tool>(tool));
    ExpectPressed(tool);
  }
  ChooseTool(Tool::Erase);  // again
  ExpectPressed(8);
  Canvas()->setFocus();
  Key(Qt::Key_3);
  ExpectPressed(3);
}

TEST_F(ToolHints, LeavingThePaletteWithoutAToolShowsTheStep) {
  Start();
  Over(6);
  EXPECT_EQ(Status(), Hint(6));
  OverTheCanvas();
  EXPECT_EQ(Status(), QString::fromLatin1(Step1));
  Over(6);
  EXPECT_EQ(Status(), Hint(6));
}

TEST_F(ToolHints, AToolChosenByKeyIsTheOneWhoseHintWasShownLast) {
  Start();
  Over(2);
  EXPECT_EQ(Status(), Hint(2));
  Canvas()->setFocus();
  Key(Qt::Key_3);
  EXPECT_EQ(Status(), Hint(3));
  Over(2);  // still there, and it is another tool's hint that was shown last
  MouseTo(Button(2), QPoint(20, 20));
  EXPECT_EQ(Status(), Hint(2));
  Key(Qt::Key_3);
  Over(3);
  EXPECT_EQ(Status(), Hint(3));
}

TEST_F(ToolHints, DigitsChooseToolsWhileAToolButtonHasTheFocus) {
  Start();
  for (const int focused : {1, 5, 8}) {
    for (int tool = 1; tool <= NumTools; ++tool) {
      Button(focused)->setFocus(Qt::TabFocusReason);
      ASSERT_TRUE(Button(focused)->hasFocus());
      QTest::keyClick(Button(focused), static_cast<Qt::Key>(Qt::Key_0 + tool));
      EXPECT_TRUE(Button(tool)->isChecked()) << tool;
      EXPECT_EQ(Status(), Hint(tool));
    }
    QTest::keyClick(Button(focused), Qt::Key_9);
    QTest::keyClick(Button(focused), Qt::Key_0);
    QTest::keyClick(Button(focused), Qt::Key_1, Qt::ControlModifier);
    EXPECT_TRUE(Button(8)->isChecked());
  }
  ButtonDown(At(3, 3));
  ButtonUp(At(3, 3));
  EXPECT_TRUE(messages_.Shown.empty());
}

TEST_F(ToolHints, AToolChosenWithTheSpaceBarShowsItsHintToo) {
  Start();
  Button(7)->setFocus(Qt::TabFocusReason);
  QTest::keyClick(Button(7), Qt::Key_Space);
  EXPECT_TRUE(Button(7)->isChecked());
  EXPECT_EQ(Status(), Hint(7));
}

TEST_F(ToolHints, TheDigitsOfThePaletteWorkOnTheCanvasAtOnce) {
  Start();
  Button(1)->setFocus(Qt::TabFocusReason);
  QTest::keyClick(Button(1), Qt::Key_2);
  CalmClick(At(4, 4));
  EXPECT_EQ(truss_.NumSupports, 1);
}

TEST_F(ToolHints, AMenuThatTakesTheMouseAwayKeepsItsOwnText) {
  Start();
  ChooseTool(Tool::Force);
  Over(6);
  FileMenu()->popup(form_->mapToGlobal(QPoint(0, 20)));
  QApplication::processEvents();
  EXPECT_NE(Status(), Hint(4));
  EXPECT_NE(Status(), Hint(6));
  FileMenu()->close();
}
