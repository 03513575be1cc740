// The floating panel of the value editor under a real keyboard and mouse: its texts, the focus, its default
// and cancel buttons, and being dragged.
#include "editing/ValueEditorFrame.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <QStyleHints>
#include <QtTest>

#include "canvas/RedrawTruss.h"
#include "support/FakeMessageBox.h"
#include "support/TrussBuilder.h"

namespace {

// A canvas that counts what reaches it.
struct Canvas : QWidget {
  int Presses = 0;
  int Keys = 0;

 protected:
  void mousePressEvent(QMouseEvent*) override { ++Presses; }
  void keyPressEvent(QKeyEvent*) override { ++Keys; }
};

struct ValueEditorFrameTest : testing::Test {
  FakeMessageBox messages;
  Drawing drawing;
  Truss truss = TrussBuilder().Member(0, 0, 3, 4).Member(6, 0, 6, 4).Force(3, 4, -1, 0);
  ValueEditor editor{{truss, drawing, messages, NumberFormat{}, [] {}}};

  QWidget window;
  Canvas canvas;
  ValueEditorFrame memberFrame{MemberKind, editor, &canvas};
  ValueEditorFrame forceFrame{ForceKind, editor, &canvas};

  void SetUp() override {
    window.resize(600, 500);
    canvas.setParent(&window);
    canvas.setGeometry(0, 0, 600, 500);
    canvas.setFocusPolicy(Qt::StrongFocus);
    canvas.setCursor(Qt::CrossCursor);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    drawing.Mapping.SetMapping(50, 550, 450, 50, 0, 10, 0, 8);
    FitTables(drawing, truss);
    PlaceObjects(drawing, truss);
  }

  void ShowBoth() {
    memberFrame.ShowEditor();
    forceFrame.ShowEditor();
  }

  void OpenMember(int member = 1, float t = 1) {
    canvas.setFocus();
    drawing.SupportsEnabled = false;
    editor.OpenForMember(member, t);
    ShowBoth();
  }

  void OpenForce() {
    drawing.SupportsEnabled = false;
    editor.OpenForForce(1);
    ShowBoth();
  }

  template <class Widget>
  Widget* Find(const char* name, int kind) {
    auto* widget = window.findChild<Widget*>(QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(kind));
    EXPECT_NE(widget, nullptr) << name;
    return widget;
  }
  QLineEdit* Box(int box, int kind = MemberKind) {
    return Find<QLineEdit>(box == 1 ? "txtNewCoords1" : "txtNewCoords2", kind);
  }
  QString LabelText(int box, int kind = MemberKind) {
    return Find<QLabel>(box == 1 ? "lblNewCoords1" : "lblNewCoords2", kind)->text();
  }
  QRadioButton* Option(const char* name, int kind = MemberKind) { return Find<QRadioButton>(name, kind); }
  QPushButton* Ok(int kind = MemberKind) { return Find<QPushButton>("cmdNewCoordsOK", kind); }
  QPushButton* Cancel(int kind = MemberKind) { return Find<QPushButton>("cmdNewCoordsCancel", kind); }

  static void Click(QWidget* widget) { QTest::mouseClick(widget, Qt::LeftButton); }

  // A radio button answers a click on its own picture and text only.
  static void Choose(QRadioButton* option) {
    QTest::mouseClick(option, Qt::LeftButton, Qt::NoModifier, QPoint(8, option->height() / 2));
  }

  static void ExpectWholeTextSelected(const QLineEdit* box) {
    EXPECT_TRUE(box->hasFocus());
    EXPECT_EQ(box->selectedText(), box->text());
    EXPECT_FALSE(box->text().isEmpty());
  }
};

}  // namespace

// --- what it shows

TEST_F(ValueEditorFrameTest, IsHiddenUntilTheEditorOpens) {
  ShowBoth();
  EXPECT_TRUE(memberFrame.isHidden());
  EXPECT_TRUE(forceFrame.isHidden());
  OpenMember();
  EXPECT_TRUE(memberFrame.isVisible());
  EXPECT_TRUE(forceFrame.isHidden());
  OpenForce();
  EXPECT_TRUE(memberFrame.isHidden());
  EXPECT_TRUE(forceFrame.isVisible());
}

TEST_F(ValueEditorFrameTest, TheMemberVariantHasThreeNotations) {
  OpenMember();
  EXPECT_EQ(memberFrame.objectName(), QStringLiteral("frNewCoords(1)"));
  EXPECT_EQ(Find<QLabel>("lblCaption", 1)->text(), QStringLiteral("new components for the big endpoint"));
  EXPECT_EQ(Find<QLabel>("lblRelative", 1)->text(), QStringLiteral("relative to other endpoint:"));
  EXPECT_EQ(Option("optAbsolute")->text(), QStringLiteral("absolute"));
  EXPECT_EQ(Option("optRectangular")->text(), QStringLiteral("rectangular"));
  EXPECT_EQ(Option("optPolar")->text(), QStringLiteral("polar"));
  EXPECT_TRUE(Option("optAbsolute")->isChecked());
  EXPECT_EQ(Ok()->text(), QStringLiteral("OK"));
  EXPECT_EQ(Cancel()->text(), QStringLiteral("Cancel"));
}

TEST_F(ValueEditorFrameTest, TheForceVariantHasTwoNotations) {
  OpenForce();
  EXPECT_EQ(forceFrame.objectName(), QStringLiteral("frNewCoords(2)"));
  EXPECT_EQ(Find<QLabel>("lblCaption", 2)->text(), QStringLiteral("new components for this force"));
  EXPECT_EQ(forceFrame.findChildren<QRadioButton*>().size(), 2);
  EXPECT_TRUE(Option("optRectangular", 2)->isChecked());
  EXPECT_EQ(LabelText(1, 2), QStringLiteral("Fx"));
  EXPECT_EQ(Box(1, 2)->text(), QStringLiteral("-1"));
  EXPECT_EQ(LabelText(2, 2), QStringLiteral("Fy"));
  EXPECT_EQ(Box(2, 2)->text(), QStringLiteral("0"));
}

TEST_F(ValueEditorFrameTest, AClickOnANotationShowsTheStoredValuesInIt) {
  OpenMember();
  QTest::keyClicks(Box(1), QStringLiteral("77"));
  Choose(Option("optPolar"));
  EXPECT_EQ(LabelText(1), QStringLiteral("rel. magnitude"));
  EXPECT_EQ(Box(1)->text(), QStringLiteral("5"));
  EXPECT_EQ(LabelText(2), QStringLiteral("rel. angle"));
  EXPECT_EQ(Box(2)->text(), QStringLiteral("53.1301"));
  Choose(Option("optAbsolute"));
  EXPECT_EQ(LabelText(1), QStringLiteral("abs. x"));
  EXPECT_EQ(Box(1)->text(), QStringLiteral("3"));
}

TEST_F(ValueEditorFrameTest, TheArrowKeysChooseANotationToo) {
  OpenMember();
  Option("optAbsolute")->setFocus();
  QTest::keyClick(Option("optAbsolute"), Qt::Key_Down);
  EXPECT_EQ(LabelText(1), QStringLiteral("rel. x"));
  EXPECT_TRUE(Option("optRectangular")->isChecked());
}

TEST_F(ValueEditorFrameTest, NothingMovesWhenTheNotationChanges) {
  OpenMember();
  const QRect place = memberFrame.geometry();
  const QRect box = Box(1)->geometry();
  Choose(Option("optPolar"));
  QCoreApplication::processEvents();
  EXPECT_EQ(memberFrame.geometry(), place);
  EXPECT_EQ(Box(1)->geometry(), box);
}

TEST_F(ValueEditorFrameTest, EveryControlHasANameForScreenReadersAndAToolTip) {
  OpenMember();
  OpenForce();
  for (const QWidget* frame : {&memberFrame, &forceFrame}) {
    EXPECT_FALSE(frame->accessibleName().isEmpty());
    for (const QLineEdit* box : frame->findChildren<QLineEdit*>()) {
      EXPECT_FALSE(box->accessibleName().isEmpty());
      EXPECT_FALSE(box->toolTip().isEmpty());
    }
    for (const QAbstractButton* button : frame->findChildren<QAbstractButton*>()) {
      EXPECT_FALSE(button->toolTip().isEmpty()) << button->text().toStdString();
    }
  }
  EXPECT_EQ(Box(1)->accessibleName(), QStringLiteral("abs. x"));
}

TEST_F(ValueEditorFrameTest, OpensBesideItsObjectAndStaysWhereItIs) {
  OpenMember(2);
  EXPECT_TRUE(canvas.rect().contains(memberFrame.geometry()));
  const PixelLine rod = drawing.Rod[2];
  EXPECT_FALSE(memberFrame.geometry().contains(QPoint(qRound(rod.X1), qRound(rod.Y1))));
  EXPECT_FALSE(memberFrame.geometry().contains(QPoint(qRound(rod.X2), qRound(rod.Y2))));
  memberFrame.move(7, 9);
  OpenMember(2);
  EXPECT_EQ(memberFrame.pos(), QPoint(7, 9));
  OpenMember(1);
  EXPECT_NE(memberFrame.pos(), QPoint(7, 9));
}

TEST_F(ValueEditorFrameTest, KeepsToItsRoom) {
  const QRect room(0, 46, 600, 454);
  memberFrame.SetRoom(room);
  truss.Members[1] = {.X1 = 0, .Y1 = 8, .X2 = 10, .Y2 = 8};
  PlaceObjects(drawing, truss);
  OpenMember();
  EXPECT_TRUE(room.contains(memberFrame.geometry()));
  const QRect smaller(0, 46, 300, 300);
  memberFrame.SetRoom(smaller);
  EXPECT_TRUE(smaller.contains(memberFrame.geometry()));
}

TEST_F(ValueEditorFrameTest, FollowsADragOfTheEditedEnd) {
  OpenMember();
  truss.Members[1].X2 = 7.5F;
  editor.Refresh();
  ShowBoth();
  EXPECT_EQ(Box(1)->text(), QStringLiteral("7.5"));
  ExpectWholeTextSelected(Box(1));
}

TEST_F(ValueEditorFrameTest, DisappearsWhenARedrawClosesThePanel) {
  OpenMember();
  Deselect(drawing);
  ShowBoth();
  EXPECT_TRUE(memberFrame.isHidden());
  EXPECT_TRUE(canvas.hasFocus());
}

// --- the focus

TEST_F(ValueEditorFrameTest, OpensWithTheFirstTextSelected) {
  OpenMember();
  ExpectWholeTextSelected(Box(1));
}

TEST_F(ValueEditorFrameTest, ATextBoxThatGetsTheFocusSelectsItsWholeText) {
  OpenMember();
  QTest::keyClick(Box(1), Qt::Key_Tab);
  ExpectWholeTextSelected(Box(2));
  Box(1)->setText(QStringLiteral("123456"));
  Click(Box(1));
  ExpectWholeTextSelected(Box(1));
}

TEST_F(ValueEditorFrameTest, ASecondClickPutsTheCursor) {
  OpenMember();
  Click(Box(2));
  QTest::qWait(QGuiApplication::styleHints()->mouseDoubleClickInterval() + 50);
  Click(Box(2));
  EXPECT_TRUE(Box(2)->hasFocus());
  EXPECT_EQ(Box(2)->selectedText(), QString());
}

TEST_F(ValueEditorFrameTest, AShakyClickKeepsTheSelection) {
  OpenMember();
  Box(2)->setText(QStringLiteral("123456"));
  QTest::mousePress(Box(2), Qt::LeftButton, Qt::NoModifier, QPoint(20, 8));
  QTest::mouseMove(Box(2), QPoint(30, 8));
  QTest::mouseRelease(Box(2), Qt::LeftButton, Qt::NoModifier, QPoint(30, 8));
  ExpectWholeTextSelected(Box(2));
}

TEST_F(ValueEditorFrameTest, AClickOnTheFrameLeavesTheFocusWhereItIs) {
  OpenMember();
  Box(2)->setFocus();
  Box(2)->deselect();
  QTest::mouseClick(&memberFrame, Qt::LeftButton, Qt::NoModifier, QPoint(3, 3));
  EXPECT_TRUE(Box(2)->hasFocus());
  EXPECT_EQ(Box(2)->selectedText(), QString());
}

TEST_F(ValueEditorFrameTest, AClickOnTheFrameBringsTheFocusBackFromTheCanvas) {
  OpenMember();
  canvas.setFocus();
  QTest::mouseClick(&memberFrame, Qt::LeftButton, Qt::NoModifier, QPoint(3, 3));
  ExpectWholeTextSelected(Box(1));
}

// --- OK and Cancel

TEST_F(ValueEditorFrameTest, TypedValuesReplaceTheOldOnesOnEnter) {
  OpenMember();
  QTest::keyClicks(Box(1), QStringLiteral("6"));
  QTest::keyClick(Box(1), Qt::Key_Tab);
  QTest::keyClicks(Box(2), QStringLiteral("-2.5"));
  QTest::keyClick(Box(2), Qt::Key_Return);
  EXPECT_EQ(truss.Members[1].X2, 6);
  EXPECT_EQ(truss.Members[1].Y2, -2.5F);
  EXPECT_TRUE(memberFrame.isHidden());
  EXPECT_TRUE(drawing.SupportsEnabled);
  EXPECT_TRUE(canvas.hasFocus());
}

TEST_F(ValueEditorFrameTest, OKIsTheDefaultButtonFromEveryOption) {
  OpenMember();
  EXPECT_TRUE(Ok()->isDefault());
  QTest::keyClicks(Box(1), QStringLiteral("6"));
  Option("optAbsolute")->setFocus();
  QTest::keyClick(Option("optAbsolute"), Qt::Key_Enter);
  EXPECT_EQ(truss.Members[1].X2, 6);
}

TEST_F(ValueEditorFrameTest, AClickOnOKApplies) {
  OpenForce();
  QTest::keyClicks(Box(1, 2), QStringLiteral("1e3"));
  Click(Ok(2));
  EXPECT_EQ(truss.Forces[1].Fx, 1000);
  EXPECT_TRUE(forceFrame.isHidden());
}

TEST_F(ValueEditorFrameTest, RefusedInputStaysInThePanel) {
  OpenForce();
  QTest::keyClicks(Box(1, 2), QStringLiteral("east"));
  QTest::keyClick(Box(1, 2), Qt::Key_Return);
  ASSERT_EQ(messages.Shown.size(), 1U);
  EXPECT_EQ(messages.Shown[0].Text, "Invalid input.  The components must be numbers.");
  EXPECT_EQ(messages.Shown[0].Icon, MessageIcon::Critical);
  EXPECT_TRUE(forceFrame.isVisible());
  EXPECT_EQ(Box(1, 2)->text(), QStringLiteral("east"));
  EXPECT_EQ(truss.Forces[1].Fx, -1);
}

TEST_F(ValueEditorFrameTest, CharactersOutsideTheCodePageAreNoNumberAndStayAsTyped) {
  OpenForce();
  Box(1, 2)->clear();
  Box(1, 2)->insert(QString(QChar(0x0661)));
  Q_EMIT Box(1, 2)->textEdited(Box(1, 2)->text());
  QTest::keyClick(Box(1, 2), Qt::Key_Return);
  EXPECT_EQ(messages.Shown.size(), 1U);
  EXPECT_EQ(Box(1, 2)->text(), QString(QChar(0x0661)));
}

TEST_F(ValueEditorFrameTest, EscapeCancels) {
  OpenMember();
  QTest::keyClicks(Box(1), QStringLiteral("6"));
  QTest::keyClick(Box(1), Qt::Key_Escape);
  EXPECT_EQ(truss.Members[1].X2, 3);
  EXPECT_TRUE(memberFrame.isHidden());
  EXPECT_TRUE(drawing.SupportsEnabled);
  EXPECT_TRUE(canvas.hasFocus());
}

TEST_F(ValueEditorFrameTest, EnterOnCancelCancels) {
  OpenMember();
  QTest::keyClicks(Box(1), QStringLiteral("6"));
  Cancel()->setFocus();
  QTest::keyClick(Cancel(), Qt::Key_Return);
  EXPECT_EQ(truss.Members[1].X2, 3);
  EXPECT_TRUE(memberFrame.isHidden());
}

TEST_F(ValueEditorFrameTest, ReopenedAfterCancelItShowsTheStoredValues) {
  OpenMember();
  QTest::keyClicks(Box(1), QStringLiteral("6"));
  Click(Cancel());
  OpenMember();
  EXPECT_EQ(Box(1)->text(), QStringLiteral("3"));
}

TEST_F(ValueEditorFrameTest, AKeyThatIsStillHeldDownDoesNotAnswerThePanel) {
  OpenMember();
  QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"), true);
  QCoreApplication::sendEvent(Box(1), &held);
  EXPECT_TRUE(memberFrame.isVisible());
}

TEST_F(ValueEditorFrameTest, SaysWhenTheEditorHasChanged) {
  const QSignalSpy changed(&memberFrame, &ValueEditorFrame::EditorChanged);
  OpenMember();
  Choose(Option("optPolar"));
  Click(Cancel());
  EXPECT_EQ(changed.count(), 2);
}

// --- keys and mouse stay in the panel

TEST_F(ValueEditorFrameTest, NoKeyAndNoPressReachesTheCanvas) {
  QShortcut eraseTool(QKeySequence(Qt::Key_8), &window);
  const QSignalSpy tool(&eraseTool, &QShortcut::activated);
  OpenMember();
  Option("optPolar")->setFocus();
  QTest::keyClick(Option("optPolar"), Qt::Key_8);
  QTest::keyClick(Ok(), Qt::Key_8);
  QTest::keyClick(Box(1), Qt::Key_8);
  for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
    QTest::mouseClick(&memberFrame, button, Qt::NoModifier, QPoint(3, 3));
    QTest::mouseClick(Find<QLabel>("lblCaption", 1), button);
    QTest::mouseClick(Find<QLabel>("lblNewCoords1", 1), button);
  }
  EXPECT_EQ(canvas.Keys, 0);
  EXPECT_EQ(canvas.Presses, 0);
  EXPECT_EQ(tool.count(), 0);
}

TEST_F(ValueEditorFrameTest, FunctionKeysStillReachTheWindow) {
  QShortcut help(QKeySequence(Qt::Key_F1), &window);
  const QSignalSpy asked(&help, &QShortcut::activated);
  OpenMember();
  QTest::keyClick(Box(1), Qt::Key_F1);
  EXPECT_EQ(asked.count(), 1);
}

// --- dragging

TEST_F(ValueEditorFrameTest, IsDroppedAtThePointerMinusTheGrabOffset) {
  OpenMember(2);
  memberFrame.move(100, 100);
  EXPECT_EQ(memberFrame.cursor().shape(), Qt::ArrowCursor);
  QTest::mousePress(&memberFrame, Qt::LeftButton, Qt::NoModifier, QPoint(5, 4));
  EXPECT_EQ(memberFrame.cursor().shape(), Qt::SizeAllCursor);
  QTest::mouseMove(&memberFrame, QPoint(35, 24));
  EXPECT_EQ(memberFrame.pos(), QPoint(130, 120));
  QTest::mouseRelease(&memberFrame, Qt::LeftButton, Qt::NoModifier, QPoint(5, 4));
  EXPECT_EQ(memberFrame.cursor().shape(), Qt::ArrowCursor);
  QTest::mouseMove(&memberFrame, QPoint(60, 60));
  EXPECT_EQ(memberFrame.pos(), QPoint(130, 120));
}

TEST_F(ValueEditorFrameTest, CanBeDraggedByItsCaption) {
  OpenMember(2);
  memberFrame.move(100, 100);
  auto* caption = Find<QLabel>("lblCaption", 1);
  QTest::mousePress(caption, Qt::LeftButton, Qt::NoModifier, QPoint(10, 5));
  QTest::mouseMove(caption, QPoint(30, 15));
  EXPECT_EQ(memberFrame.pos(), QPoint(120, 110));
  QTest::mouseRelease(caption, Qt::LeftButton, Qt::NoModifier, QPoint(10, 5));
}

TEST_F(ValueEditorFrameTest, IsKeptInsideTheCanvas) {
  OpenMember(2);
  memberFrame.move(100, 100);
  QTest::mousePress(&memberFrame, Qt::LeftButton, Qt::NoModifier, QPoint(5, 4));
  QTest::mouseMove(&memberFrame, QPoint(-3000, 3000));
  EXPECT_EQ(memberFrame.pos(), QPoint(0, 500 - memberFrame.height()));
  QTest::mouseRelease(&memberFrame, Qt::LeftButton);
}

TEST_F(ValueEditorFrameTest, ASecondButtonOrClosingEndsTheDrag) {
  OpenMember(2);
  memberFrame.move(100, 100);
  QTest::mousePress(&memberFrame, Qt::LeftButton, Qt::NoModifier, QPoint(5, 4));
  QTest::mousePress(&memberFrame, Qt::RightButton, Qt::NoModifier, QPoint(5, 4));
  QTest::mouseMove(&memberFrame, QPoint(35, 24));
  EXPECT_EQ(memberFrame.pos(), QPoint(100, 100));
  EXPECT_EQ(memberFrame.cursor().shape(), Qt::ArrowCursor);
  QTest::mouseRelease(&memberFrame, Qt::RightButton, Qt::NoModifier, QPoint(5, 4));
  QTest::mouseRelease(&memberFrame, Qt::LeftButton, Qt::NoModifier, QPoint(5, 4));

  QTest::mousePress(&memberFrame, Qt::LeftButton, Qt::NoModifier, QPoint(5, 4));
  QTest::keyClick(Box(1), Qt::Key_Escape);
  EXPECT_TRUE(memberFrame.isHidden());
  EXPECT_EQ(memberFrame.cursor().shape(), Qt::ArrowCursor);
  QTest::mouseRelease(&memberFrame, Qt::LeftButton, Qt::NoModifier, QPoint(5, 4));
}
