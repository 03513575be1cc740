// The window with the forces on the truss, by itself: with the mouse, with the keyboard, and read aloud.
#include "explanation/forces/ForcesWindow.h"

#include <cmath>

#include "document/JointList.h"
#include "explanation/forces/ForcesText.h"
#include "explanation/forces/ForcesView.h"
#include "platform/Palette.h"
#include "support/CutTexts.h"
#include "support/FindControl.h"
#include "support/LearnWindowFixture.h"
#include "support/TrussBuilder.h"

namespace {

Truss LoadedTruss() {
  return TrussBuilder()
      .Member(0, 0, 4, 0, "AB")
      .Member(0, 0, 2, 2, "AC")
      .Member(4, 0, 2, 2, "BC")
      .Clamp(0, 0, "Ax", "Ay")
      .Roller(4, 0, "By")
      .Force(2, 2, 0, -1000)
      .Joint(0, 0, "A")
      .Joint(4, 0, "B")
      .Joint(2, 2, "C");
}

// More members than have room for their numbers.
Truss LongStrip() {
  TrussBuilder builder;
  for (int i = 0; i < 60; ++i) {
    const auto x = static_cast<float>(i);
    builder.Member(x, 0, x + 1, 0).Member(x, 0, x, 1).Member(x, 1, x + 1, 1).Member(x, 1, x + 1, 0);
  }
  return builder.Member(60, 0, 60, 1).Clamp(0, 0).Roller(60, 0).Force(30, 1, 0, -10);
}

class ForcesWindowTest : public LearnWindowFixture<ForcesWindow> {
 protected:
  ForcesWindowTest() : LearnWindowFixture({680, 720}) {}

  ForcesView& View() { return FindControl<ForcesView>(window_, "picForces"); }
  QTableWidget& List() { return FindControl<QTableWidget>(window_, "lstForces"); }
  QString Cell(int row, int column) { return List().item(row, column)->text(); }
  void Press(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    widget.setFocus();
    QTest::keyClick(&widget, key, modifiers);
  }

  // The middle of a member on the widget.
  QPoint MiddleOf(int member) {
    const PixelLine& line = View().Drawn()->Members[static_cast<std::size_t>(member)].Line;
    const QPointF pan = View().Pan();
    return QPointF(double{line.X1 + line.X2} / 2 + pan.x(), double{line.Y1 + line.Y2} / 2 + pan.y())
        .toPoint();
  }

  void Wheel(QPoint at, int delta) {
    QWheelEvent event(at, View().mapToGlobal(at), {}, {0, delta}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&View(), &event);
  }

  void Drag(QPoint from, QPoint to) {
    QTest::mousePress(&View(), Qt::LeftButton, Qt::NoModifier, from);
    for (const QPoint& at : {(from + to) / 2, to}) {
      QMouseEvent move(QEvent::MouseMove, QPointF(at), View().mapToGlobal(QPointF(at)), Qt::NoButton,
                       Qt::LeftButton, Qt::NoModifier);
      QApplication::sendEvent(&View(), &move);
    }
    QTest::mouseRelease(&View(), Qt::LeftButton, Qt::NoModifier, to);
  }

  // How many of the view's pixels have a colour.
  int Count(const PaletteColour& colour) {
    const QImage image = View().grab().toImage();
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x)
        count += int{image.pixelColor(x, y) == QColor(colour.Red, colour.Green, colour.Blue)};
    }
    return count;
  }
};

TEST_F(ForcesWindowTest, ListsEveryForceBesideTheDrawing) {
  Show(LoadedTruss());
  ASSERT_EQ(List().rowCount(), 6);
  EXPECT_EQ(Cell(3, 0), QStringLiteral("AB"));
  EXPECT_EQ(Cell(3, 1), QStringLiteral("member from A to B"));
  EXPECT_EQ(Cell(3, 2), QStringLiteral("500 T"));
  EXPECT_EQ(Cell(3, 3), QString::fromUtf8("\xE2\x80\x93"
                                          "500"));
  EXPECT_EQ(View().Drawn()->Members.size(), 3U);
  EXPECT_EQ(View().Drawn()->NumLeftOut, 0);
}

TEST_F(ForcesWindowTest, AClickOnAMemberFindsItInTheList) {
  Show(LoadedTruss());
  QTest::mouseClick(&View(), Qt::LeftButton, Qt::NoModifier, MiddleOf(1));
  EXPECT_EQ(List().currentRow(), 4) << "AC";
  EXPECT_EQ(View().Marked(), 5);
  QTest::mouseClick(&View(), Qt::LeftButton, Qt::NoModifier, QPoint(3, 3));
  EXPECT_TRUE(List().selectedItems().isEmpty());
  EXPECT_EQ(View().Marked(), 0);
}

TEST_F(ForcesWindowTest, ARowOfTheListMarksItsMemberAndBringsItIntoSight) {
  Show(LongStrip());
  for (int i = 0; i < 10; ++i) Press(View(), Qt::Key_Plus, Qt::ControlModifier);
  List().setFocus();
  QTest::keyClick(&List(), Qt::Key_End, Qt::ControlModifier);
  QTest::keyClick(&List(), Qt::Key_Up);
  QTest::keyClick(&List(), Qt::Key_Down);
  const int unknown = List().currentRow() + 1;
  EXPECT_EQ(unknown, List().rowCount());
  EXPECT_EQ(View().Marked(), unknown);
  const QPoint middle = MiddleOf(static_cast<int>(View().Drawn()->Members.size()) - 1);
  EXPECT_TRUE(View().rect().contains(middle)) << middle.x();
  EXPECT_GT(Count(Palette[14]), 20) << "the band";
}

TEST_F(ForcesWindowTest, TheWheelZoomsAboutTheMouse) {
  Show(LoadedTruss());
  const QPoint at = MiddleOf(2);
  Wheel(at, 120);
  EXPECT_NEAR(View().Zoom(), 1.25, 1e-9);
  EXPECT_LE((MiddleOf(2) - at).manhattanLength(), 2) << "what is under the mouse stays there";
  Wheel(at, 240);
  EXPECT_NEAR(View().Zoom(), std::pow(1.25, 3), 1e-9);
  EXPECT_LE((MiddleOf(2) - at).manhattanLength(), 2);
  Wheel(at, -120 * 20);
  EXPECT_EQ(View().Zoom(), 1) << "never smaller than the whole";
}

TEST_F(ForcesWindowTest, KeysAndButtonsZoom) {
  Show(LoadedTruss());
  EXPECT_FALSE(FindControl<QPushButton>(window_, "cmdZoomOut").isEnabled());
  Press(View(), Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_NEAR(View().Zoom(), 1.25, 1e-9);
  Press(List(), Qt::Key_Equal, Qt::ControlModifier);
  EXPECT_NEAR(View().Zoom(), std::pow(1.25, 2), 1e-9) << "from the list too, and without Shift";
  Press(View(), Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_NEAR(View().Zoom(), 1.25, 1e-9);
  Press(View(), Qt::Key_0, Qt::ControlModifier);
  EXPECT_EQ(View().Zoom(), 1);
  QTest::mouseClick(&FindControl<QPushButton>(window_, "cmdZoomIn"), Qt::LeftButton);
  QTest::mouseClick(&FindControl<QPushButton>(window_, "cmdZoomIn"), Qt::LeftButton);
  QTest::mouseClick(&FindControl<QPushButton>(window_, "cmdZoomOut"), Qt::LeftButton);
  EXPECT_NEAR(View().Zoom(), 1.25, 1e-9);
  QTest::mouseClick(&FindControl<QPushButton>(window_, "cmdZoomWhole"), Qt::LeftButton);
  EXPECT_EQ(View().Zoom(), 1);
  for (int i = 0; i < 100; ++i) Press(View(), Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_FALSE(FindControl<QPushButton>(window_, "cmdZoomIn").isEnabled());
  EXPECT_LT(View().Zoom(), 1000);
}

TEST_F(ForcesWindowTest, ADragAndTheArrowKeysMoveTheDrawing) {
  Show(LoadedTruss());
  const QPoint before = MiddleOf(0);
  Drag({200, 200}, {260, 170});
  EXPECT_EQ(MiddleOf(0) - before, QPoint(60, -30));
  EXPECT_EQ(View().Marked(), 0) << "a drag is no click";
  Press(View(), Qt::Key_Right);
  EXPECT_EQ(MiddleOf(0) - before, QPoint(20, -30));
  Press(View(), Qt::Key_Down);
  EXPECT_EQ(MiddleOf(0) - before, QPoint(20, -70));
  Press(View(), Qt::Key_Left);
  Press(View(), Qt::Key_Up);
  EXPECT_EQ(MiddleOf(0) - before, QPoint(60, -30));
  for (int i = 0; i < 200; ++i) Press(View(), Qt::Key_Right);
  EXPECT_TRUE(View().rect().intersects(QRect(MiddleOf(0) - QPoint(250, 20), MiddleOf(0) + QPoint(250, 250))))
      << "not out of sight";
}

TEST_F(ForcesWindowTest, SaysHowManyNumbersHaveNoRoom) {
  Show(LongStrip());
  auto& note = FindControl<QLabel>(window_, "lblRoom");
  ASSERT_GT(View().Drawn()->NumLeftOut, 0);
  EXPECT_TRUE(note.text().startsWith(QString::number(View().Drawn()->NumLeftOut)));
  const int before = View().Drawn()->NumLeftOut;
  for (int i = 0; i < 12; ++i) Press(View(), Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_LT(View().Drawn()->NumLeftOut, before);
  Show(LoadedTruss());
  EXPECT_TRUE(note.text().startsWith(QStringLiteral("Every number")));
}

TEST_F(ForcesWindowTest, TheColoursCanBeSwapped) {
  Show(LoadedTruss());
  const int blue = Count(Palette[DeepBlue]);
  const int rose = Count(Palette[Rose]);
  EXPECT_GT(blue, 200);
  EXPECT_GT(rose, 200);
  QTest::keyClick(&window_, Qt::Key_S, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([this] { return FindControl<QCheckBox>(window_, "chkSwapHues").isChecked(); }));
  EXPECT_NE(Count(Palette[DeepBlue]), blue);
  EXPECT_GT(Count(Palette[Rose]), rose) << "two compressed members are now red";
}

TEST_F(ForcesWindowTest, OnADarkDesktopThePaperIsDark) {
  Show(LoadedTruss());
  EXPECT_GT(Count(Palette[White]), 10'000);
  QPalette dark;
  dark.setColor(QPalette::Window, QColor(40, 40, 40));
  dark.setColor(QPalette::Base, QColor(20, 20, 20));
  dark.setColor(QPalette::Text, Qt::white);
  window_.setPalette(dark);
  EXPECT_GT(Count(DarkPalette[White]), 10'000);
  EXPECT_GT(Count(DarkPalette[DeepBlue]), 200);
  EXPECT_GT(Count(DarkPalette[Rose]), 200);
  EXPECT_EQ(Count(Palette[DeepBlue]), 0);
}

TEST_F(ForcesWindowTest, IsCopiedAsAPictureAndAsText) {
  Show(LoadedTruss());
  Press(View(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_FALSE(QApplication::clipboard()->image().isNull());
  EXPECT_TRUE(QApplication::clipboard()->text().contains(QStringLiteral("AB\tmember from A to B\t500 T\t")));
  Press(List(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_TRUE(QApplication::clipboard()->image().isNull());
  EXPECT_EQ(QApplication::clipboard()->text().count(u'\n'), 6) << "the heads and six forces";
  List().selectRow(4);
  Press(List(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("AC\tmember from A to C\t707.1 C\t707.1"));
}

TEST_F(ForcesWindowTest, IsToldInWords) {
  Show(LoadedTruss());
  const QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&View());
  EXPECT_EQ(spoken->text(QAccessible::Name), QStringLiteral("Drawing of the truss with its forces"));
  EXPECT_TRUE(spoken->text(QAccessible::Description)
                  .contains(QStringLiteral("2 members in compression and 1 member in tension")));
  EXPECT_TRUE(spoken->text(QAccessible::Description).contains(QStringLiteral("AB 500 T")));
}

TEST_F(ForcesWindowTest, EveryControlIsReachedWithTabAndHasAName) {
  Show(LoadedTruss());
  window_.activateWindow();
  Press(View(), Qt::Key_Plus, Qt::ControlModifier);  // so that all buttons can be pressed
  QStringList reached;
  for (int i = 0; i < 7; ++i) {
    QWidget* at = window_.focusWidget();
    reached.append(at->objectName());
    const QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(at);
    EXPECT_FALSE(spoken->text(QAccessible::Name).isEmpty()) << at->objectName().toStdString();
    QTest::keyClick(at, Qt::Key_Tab);
  }
  reached.sort();
  EXPECT_EQ(reached, (QStringList{QStringLiteral("chkSwapHues"), QStringLiteral("cmdCopyForces"),
                                  QStringLiteral("cmdZoomIn"), QStringLiteral("cmdZoomOut"),
                                  QStringLiteral("cmdZoomWhole"), QStringLiteral("lstForces"),
                                  QStringLiteral("picForces")}));
}

TEST_F(ForcesWindowTest, ATipTellsTheForceUnderTheMouse) {
  Show(LoadedTruss());
  const QPoint at = MiddleOf(0);
  QHelpEvent tip(QEvent::ToolTip, at, View().mapToGlobal(at));
  QApplication::sendEvent(&View(), &tip);
  EXPECT_TRUE(QToolTip::text().contains(QStringLiteral("AB 500 T"))) << QToolTip::text().toStdString();
  QToolTip::hideText();
}

TEST_F(ForcesWindowTest, ShowsNothingOfTheTrussBefore) {
  Show(LongStrip());
  Press(View(), Qt::Key_Plus, Qt::ControlModifier);
  List().selectRow(3);
  Show(LoadedTruss());
  EXPECT_EQ(List().rowCount(), 6);
  EXPECT_EQ(View().Zoom(), 1);
  EXPECT_EQ(View().Marked(), 0);
  window_.Clear();
  EXPECT_EQ(List().rowCount(), 0);
  EXPECT_FALSE(View().Drawn().has_value());
  EXPECT_EQ(View().accessibleDescription(), QString());
  EXPECT_FALSE(FindControl<QPushButton>(window_, "cmdCopyForces").isEnabled());
  Press(View(), Qt::Key_C, Qt::ControlModifier);
  Press(View(), Qt::Key_Plus, Qt::ControlModifier);
  Wheel({20, 20}, 120);
  QTest::mouseClick(&View(), Qt::LeftButton, Qt::NoModifier, QPoint(20, 20));
}

TEST_F(ForcesWindowTest, ClosesWithEscape) {
  Show(LoadedTruss());
  Press(View(), Qt::Key_Escape);
  EXPECT_FALSE(window_.isVisible());
}

TEST_F(ForcesWindowTest, NoTextIsCutWithLettersOfAnySize) {
  const QFont usual = QApplication::font();
  for (const int points : {8, 14, 24}) {
    QFont font = usual;
    font.setPointSize(points);
    QApplication::setFont(font);
    ForcesWindow window;
    Truss truss = LoadedTruss();
    const TrussAnalysis analysis = SolveTruss(truss);
    window.ShowSubject({.Document = std::make_shared<const Truss>(truss),
                        .Reasons = std::make_shared<ExplanationOnDemand>(truss, analysis),
                        .Format = {},
                        .Points = 16});
    window.resize(400, 400);
    window.BringUp();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    EXPECT_THAT(CutTexts::In(window), testing::IsEmpty()) << points;
  }
  QApplication::setFont(usual);
}

// At its opening size, however large the letters are.
TEST_F(ForcesWindowTest, TheListShowsAtLeastFourForces) {
  for (const float points : {8.0F, 10.0F, 20.0F}) {
    ForcesWindow window;
    const auto truss = std::make_shared<Truss>(LongStrip());
    const auto analysis = std::make_shared<const TrussAnalysis>(SolveTruss(*truss));
    window.ShowSubject({.Document = truss,
                        .Reasons = std::make_shared<ExplanationOnDemand>(*truss, *analysis),
                        .Format = {},
                        .Points = points});
    window.BringUp();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    const auto& list = FindControl<QTableWidget>(window, "lstForces");
    const int lastSeen = list.rowAt(list.viewport()->height() - 1);
    EXPECT_TRUE(lastSeen < 0 || lastSeen >= 4 - 1) << points;
    EXPECT_GE(list.viewport()->height(), 4 * list.rowHeight(0)) << points;
    EXPECT_GT(FindControl<ForcesView>(window, "picForces").height(), 200) << points;
  }
}

}  // namespace
