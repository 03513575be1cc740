// Where everything stands in the window, at hand-computed positions.
#include <array>

#include "support/MainFormFixture.h"

namespace {

QRect Place(const QWidget& widget) { return widget.geometry(); }

class MainFormLayout : public MainFormTest {
 protected:
  int StatusBarHeight() const { return Widget("StatusBar1")->height(); }

  // The status bar takes more lines in a narrow window, so its height is known when the width is.
  void ResizeWithCanvasHeight(int width, int canvasHeight) {
    ResizeInside(width, canvasHeight + StatusBarHeight());
    ResizeInside(width, canvasHeight + StatusBarHeight());
    ASSERT_EQ(Canvas()->height(), canvasHeight);
  }

  // A caption stands in the middle between a fixed edge and the left edge of a step button.
  void ExpectCaption(const char* label, int fixedLeft, int buttonLeft) const {
    const QRect place = Place(*Widget(label));
    EXPECT_EQ(place.left(), fixedLeft + (buttonLeft - fixedLeft - place.width()) / 2) << label;
    EXPECT_LE(place.right(), buttonLeft) << label;
  }

  std::vector<QRect> AllPlaces() const {
    std::vector<QRect> places;
    for (const char* name :
         {"frInstruct1", "picDraw", "picToolBox", "picStep2", "picStep3", "StatusBar1(1)", "StatusBar1(2)",
          "cmdNext1", "cmdPrev2", "cmdNext2", "cmdPrev3", "Label9", "Label10", "Label11"}) {
      places.push_back(Place(*Widget(name)));
    }
    return places;
  }
};

TEST_F(MainFormLayout, AtTheStartingWidth) {
  Started(566, 500);
  EXPECT_EQ(Place(*Widget("cmdNext1")).left(), 478);
  EXPECT_EQ(Place(*Widget("cmdNext2")).left(), 478);
  EXPECT_EQ(Place(*Widget("cmdPrev2")).left(), 414);
  EXPECT_EQ(Place(*Widget("cmdPrev3")).left(), 414);
  ExpectCaption("Label9", 264, 478);
  ExpectCaption("Label10", 217, 414);
  ExpectCaption("Label11", 321, 414);
  for (const char* panel : {"picToolBox", "picStep2", "picStep3", "picDraw"}) {
    EXPECT_EQ(Widget(panel)->width(), 567) << panel;
    EXPECT_EQ(Widget(panel)->pos(), QPoint(0, 0)) << panel;
  }
  EXPECT_EQ(Canvas()->height(), 500 - StatusBarHeight());
  EXPECT_EQ(Place(*Widget("StatusBar1(1)")).width(), 426);
  EXPECT_EQ(Place(*Widget("StatusBar1(2)")), QRect(426, 0, 120, StatusBarHeight()));
}

TEST_F(MainFormLayout, InALargerWindow) {
  Started(900, 700);
  EXPECT_EQ(Place(*Widget("cmdNext1")).left(), 812);
  EXPECT_EQ(Place(*Widget("cmdPrev3")).left(), 748);
  ExpectCaption("Label9", 264, 812);
  ExpectCaption("Label10", 217, 748);
  ExpectCaption("Label11", 321, 748);
  EXPECT_EQ(Canvas()->size(), QSize(901, 700 - StatusBarHeight()));
  EXPECT_EQ(Widget("StatusBar1(1)")->width(), 760);
}

TEST_F(MainFormLayout, TheCanvasEndsWhereTheStatusBarBegins) {
  Started();
  for (const QSize size : {QSize(566, 500), QSize(900, 700), QSize(300, 250)}) {
    ResizeInside(size.width(), size.height());
    const int canvasBottom = Canvas()->mapTo(form_.get(), QPoint(0, Canvas()->height())).y();
    EXPECT_EQ(canvasBottom, Widget("StatusBar1")->y());
  }
}

TEST_F(MainFormLayout, TheInstructionsStandInTheMiddle) {
  Shown();
  ResizeInside(900, 700);
  const QRect frame = Place(*Widget("frInstruct1"));
  EXPECT_EQ(frame.left(), (900 - frame.width()) / 2);
  EXPECT_EQ(frame.top(), (700 - frame.height()) / 2);
}

TEST_F(MainFormLayout, NothingMovesBelow200Pixels) {
  Started(566, 500);
  const std::vector<QRect> before = AllPlaces();
  const float yMax = truss_.View.YMax;
  for (const QSize size : {QSize(566, 199), QSize(566, 100)}) {
    ResizeInside(size.width(), size.height());
    EXPECT_EQ(AllPlaces(), before) << size.width() << " by " << size.height();
    EXPECT_EQ(truss_.View.YMax, yMax);
  }
  ResizeInside(566, 200);
  EXPECT_EQ(Canvas()->height(), 200 - StatusBarHeight());
}

TEST_F(MainFormLayout, ANarrowWindowIsLeftAsItIs) {
  Started(566, 500);
  const std::vector<QRect> before = AllPlaces();
  ResizeInside(199, 500);
  if (form_->width() != 199) GTEST_SKIP() << "this style's menu bar is wider than that";
  EXPECT_EQ(AllPlaces(), before);
}

TEST_F(MainFormLayout, TheMaximumYFollowsFromTheCanvas) {
  Started();
  // 400 pixels for 20 units of x; 330 of y, between 70 and 33 above the canvas's end.
  ResizeWithCanvasHeight(500, 433);
  EXPECT_FLOAT_EQ(truss_.View.YMax, 16.5F);
  // 800 pixels for 20 units of x; 400 of y.
  ResizeWithCanvasHeight(900, 503);
  EXPECT_FLOAT_EQ(truss_.View.YMax, 10);
}

class MainFormDrawing : public MainFormLayout {
 protected:
  // 20 pixels to the unit; the origin stands at (48, 400).
  void StartedEasily() {
    Started();
    ResizeWithCanvasHeight(500, 433);
  }
};

TEST_F(MainFormDrawing, TheTrussStandsAtItsPixels) {
  StartedEasily();
  OpenTruss(LoadedTriangle());
  EXPECT_EQ(Shapes().Rod[1], (PixelLine{88, 360, 408, 360}));
  EXPECT_EQ(Shapes().Rod[2], (PixelLine{88, 360, 248, 200}));
  EXPECT_EQ(Shapes().Pin1[1], (PixelPoint{85, 357}));
  EXPECT_EQ(Shapes().Pin2[1], (PixelPoint{405, 357}));
  EXPECT_EQ(Shapes().Support[1], (PixelPoint{72, 344}));
  EXPECT_EQ(Shapes().Support[2], (PixelPoint{392, 344}));
  EXPECT_EQ(truss_.Forces[1].PixX2, 248);
  EXPECT_EQ(truss_.Forces[1].PixY2, 240);
}

TEST_F(MainFormDrawing, NamesAndArrowsStandAtTheirPixels) {
  StartedEasily();
  OpenInStep2(LoadedTriangle());
  const LabelPlace& joint = Shapes().lblRodJoint[JointLabel("A")];
  EXPECT_EQ(joint.Left, 88);
  EXPECT_EQ(joint.Top, 360);
  const LabelPlace& member = Shapes().lblRodJoint[truss_.Members[1].NameLabel1];
  EXPECT_FLOAT_EQ(member.Left + member.Width / 2, 248);
  EXPECT_FLOAT_EQ(member.Top + member.Height / 2, 360);
  const LabelPlace& reaction = Shapes().lblRodJoint[truss_.Supports[1].NameLabel1];
  EXPECT_FLOAT_EQ(reaction.Left + reaction.Width, 72 - 26);
  EXPECT_FLOAT_EQ(reaction.Top + reaction.Height / 2, 344 + 21);
  // The shafts: of the roller's reaction, and of the member's force on its first joint.
  EXPECT_EQ(Shapes().ArLin[truss_.Supports[2].ArrowLine1 - 3].Line, (PixelLine{413, 402, 413, 380}));
  const PixelLine onJoint = Shapes().ArLin[truss_.Members[1].ArrowLine1 - 3].Line;
  EXPECT_NEAR(onJoint.X1, 88 + 0.3 * 320, 1e-3);
  EXPECT_NEAR(onJoint.X2, 88 + 0.1 * 320, 1e-3);
}

TEST_F(MainFormDrawing, ThePaperIsWhiteAndItsInkBlackInADarkStyle) {
  const QPalette usual = QApplication::palette();
  QPalette dark = usual;
  dark.setColor(QPalette::Window, Qt::black);
  dark.setColor(QPalette::Base, Qt::black);
  dark.setColor(QPalette::WindowText, Qt::white);
  QApplication::setPalette(dark);
  StartedEasily();
  OpenTruss(LoadedTriangle());
  EXPECT_EQ(Pixel(20, 300), Qt::white);
  EXPECT_EQ(Pixel(200, 360), Qt::black) << "the member at the foot";
  EXPECT_EQ(Pixel(48, 300), Qt::black) << "the ruler";
  EXPECT_EQ(Pixel(248, 225), Qt::red) << "the force";
  QApplication::setPalette(usual);
}

TEST_F(MainFormDrawing, ANewTrussLeavesNothingOfTheOldOneOnThePaper) {
  StartedEasily();
  const QImage empty = Picture();
  OpenInStep2(LoadedTriangle());
  EXPECT_NE(Picture(), empty);
  Trigger("mnuFileNew");
  EXPECT_EQ(Picture(), empty);
}

TEST_F(MainFormDrawing, RulersAndGridGoWhenTheirSwitchesAreOff) {
  StartedEasily();
  Truss bare = TrussBuilder().Member(2, 2, 18, 2);
  bare.Settings.RulersOn = bare.Settings.GridOn = false;
  truss_.Settings = bare.Settings;
  ResizeWithCanvasHeight(520, 433);
  const QImage picture = Picture();
  for (int x = 0; x < picture.width(); ++x) {
    for (int y = StepPanelHeight; y < picture.height(); ++y) ASSERT_EQ(picture.pixelColor(x, y), Qt::white);
  }
}

}  // namespace
