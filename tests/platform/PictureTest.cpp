// A picture remembers what was drawn, how far it reaches, and draws it again.
#include "platform/Picture.h"

#include <array>

#include "paper/PictureShelf.h"
#include "platform/Palette.h"
#include "support/RecordingSurface.h"

namespace {

// The frame in words that a failing test can print.
void ExpectFrame(const Picture& picture, float left, float top, float right, float bottom) {
  const PixelRect frame = picture.Frame();
  EXPECT_FLOAT_EQ(frame.Left, left);
  EXPECT_FLOAT_EQ(frame.Top, top);
  EXPECT_FLOAT_EQ(frame.Right, right);
  EXPECT_FLOAT_EQ(frame.Bottom, bottom);
}

Picture NewPicture() { return Picture(RecordingSurface::Measure); }

// Something of everything.
void DrawAll(Surface& surface) {
  surface.SetLineWidth(3);
  surface.SetForeground(LightRed);
  surface.Line(10, 20, 30, 25);
  surface.LineTo(40, 60);
  surface.SetLineWidth(1);
  const std::array<PixelPoint, 3> corners = {{{0, 0}, {5, 9}, {7, 2}}};
  surface.FillPolygon(corners, White);
  surface.SetFont({10, true});
  surface.PrintText(12, 14, "A");
  surface.SetFont({8, false});
  surface.SetForeground(Black);
  surface.PrintText(50, 51, "F\xE9");
  surface.SetPixel(4, 5);
  surface.PrintTextWithRim(70, 71, "R", DarkGrey);
  surface.LineTo(1, 2);
}

// All that a surface was told, step by step.
class StepSurface : public RecordingSurface {
 public:
  void SetPixel(float x, float y) override { Tell("pixel", x, y); }
  void Line(float x1, float y1, float x2, float y2) override {
    from_ = {x1, y1};
    LineTo(x2, y2);
  }
  void LineTo(float x, float y) override {
    Tell("line", from_.X, from_.Y, x, y);
    from_ = {x, y};
  }
  void FillPolygon(std::span<const PixelPoint> corners, int fill) override {
    Tell("polygon", static_cast<float>(fill));
    for (const PixelPoint& corner : corners) Tell("corner", corner.X, corner.Y);
  }
  void PrintText(float left, float top, std::string_view text) override {
    Tell("text " + std::string(text), left, top);
  }
  void PrintTextWithRim(float left, float top, std::string_view text, int colour) override {
    Tell("text with rim " + std::string(text), left, top, static_cast<float>(colour));
    SetForeground(colour);
  }

  std::vector<std::string> Steps;

 private:
  // Each step with the pen and the font that it is drawn with.
  template <class... Numbers>
  void Tell(std::string step, Numbers... numbers) {
    ((step += ' ' + std::to_string(numbers)), ...);
    step += " width " + std::to_string(Width) + " colour " + std::to_string(Colour) + " font " +
            std::to_string(Font.Points) + (Font.Bold ? " bold" : "") +
            (CurrentPen == Pen::ExclusiveOr ? " exclusive-or" : "");
    Steps.push_back(step);
  }

  PixelPoint from_;
};

std::vector<std::string> StepsOf(const Picture& picture) {
  StepSurface surface;
  picture.DrawOn(surface);
  return surface.Steps;
}

}  // namespace

TEST(Picture, IsEmptyUntilSomethingIsDrawn) {
  Picture picture = NewPicture();
  picture.SetLineWidth(5);
  picture.SetFont({10, true});
  EXPECT_EQ(picture.Frame(), PixelRect{});
}

TEST(Picture, APixelReachesToTheNextOne) {
  Picture picture = NewPicture();
  picture.SetPixel(3.4F, 7.6F);
  ExpectFrame(picture, 3, 8, 4, 9);
}

TEST(Picture, ALineReachesHalfItsWidthAroundTheMiddlesOfItsPixels) {
  Picture picture = NewPicture();
  picture.Line(10, 20, 30, 20);
  ExpectFrame(picture, 10, 20, 31, 21);
  picture.SetLineWidth(5);
  picture.Line(40, 20, 40, 60);
  ExpectFrame(picture, 10, 18, 43, 63);
}

TEST(Picture, ASlopingLineReachesAsFarAsTheCornersOfItsEnds) {
  Picture picture = NewPicture();
  picture.SetLineWidth(10);
  picture.Line(0, 0, 30, -40);
  ExpectFrame(picture, 0.5F - 7, -39.5F - 7, 30.5F + 7, 0.5F + 7);
}

TEST(Picture, ALineToGoesOnFromTheCurrentPoint) {
  Picture picture = NewPicture();
  picture.LineTo(10, 0);
  picture.LineTo(10, 30);
  ExpectFrame(picture, 0, 0, 11, 31);
  RecordingSurface surface;
  picture.DrawOn(surface);
  EXPECT_EQ(surface.Lines, (std::vector<DrawnLine>{{0, 0, 10, 0}, {10, 0, 10, 30}}));
}

TEST(Picture, APolygonReachesToItsCorners) {
  Picture picture = NewPicture();
  const std::array<PixelPoint, 3> corners = {{{5, 50}, {9, -8}, {70, 3}}};
  picture.FillPolygon(corners, LightGrey);
  ExpectFrame(picture, 5.5F, -7.5F, 70.5F, 50.5F);
}

TEST(Picture, ATextReachesAsFarAsItIsMeasuredInItsFont) {
  Picture picture = NewPicture();
  picture.PrintText(100, 200, "abc");
  ExpectFrame(picture, 100, 200, 118, 210);
  picture.SetFont({10, true});
  picture.PrintText(100, 200, "abc");
  ExpectFrame(picture, 100, 200, 121, 212);
}

TEST(Picture, ARimReachesBeyondTheLetters) {
  Picture picture = NewPicture();
  picture.PrintTextWithRim(100, 200, "abc", Black);
  ExpectFrame(picture, 98, 198, 120, 212);
}

TEST(Picture, TheColourOfATextWithARimBecomesTheForeground) {
  Picture picture = NewPicture();
  picture.PrintTextWithRim(100, 200, "abc", LightRed);
  picture.Clear();
  RecordingSurface surface;
  picture.DrawOn(surface);
  EXPECT_EQ(surface.Colour, LightRed);
}

TEST(Picture, AnEmptyTextIsNotDrawn) {
  Picture picture = NewPicture();
  picture.PrintText(100, 200, "");
  EXPECT_EQ(picture.Frame(), PixelRect{});
  EXPECT_TRUE(StepsOf(picture).empty());
}

TEST(Picture, MeasuresTextsInTheCurrentFont) {
  Picture picture = NewPicture();
  EXPECT_EQ(picture.Extent("abc"), (TextExtent{18, 10}));
  picture.SetFont({10, true});
  EXPECT_EQ(picture.Extent("abc"), (TextExtent{21, 12}));
}

TEST(Picture, ReachesAsFarAsAnythingWasDrawn) {
  Picture picture = NewPicture();
  picture.SetPixel(-500, 900);
  picture.SetPixel(30000, -20000);
  ExpectFrame(picture, -500, -20000, 30001, 901);
}

TEST(Picture, IsCroppedToWholePixelsWithAMargin) {
  Picture picture = NewPicture();
  const std::array<PixelPoint, 3> corners = {{{5, 50}, {9.25F, -8}, {70, 3}}};
  picture.FillPolygon(corners, LightGrey);
  picture.Crop(4);
  ExpectFrame(picture, 1, -12, 75, 55);
}

TEST(Picture, WhatIsDrawnAfterCroppingLeavesTheFrame) {
  Picture picture = NewPicture();
  picture.SetPixel(10, 10);
  picture.Crop(2);
  picture.SetPixel(100, 100);
  ExpectFrame(picture, 8, 8, 13, 13);
  picture.Crop(0);
  ExpectFrame(picture, 10, 10, 101, 101);
}

TEST(Picture, WithoutAnythingDrawnStaysEmptyWhenCropped) {
  Picture picture = NewPicture();
  picture.Crop(8);
  EXPECT_EQ(picture.Frame(), PixelRect{});
}

TEST(Picture, DrawsTheSameStepsAgain) {
  Picture picture = NewPicture();
  DrawAll(picture);
  StepSurface drawnAtOnce;
  DrawAll(drawnAtOnce);
  EXPECT_EQ(StepsOf(picture), drawnAtOnce.Steps);
  EXPECT_EQ(StepsOf(picture), drawnAtOnce.Steps) << "the second time";
}

TEST(Picture, CroppingMovesNothing) {
  Picture picture = NewPicture();
  DrawAll(picture);
  const std::vector<std::string> before = StepsOf(picture);
  picture.Crop(3);
  EXPECT_EQ(StepsOf(picture), before);
}

TEST(Picture, IsDrawnWithItsOwnPenAndFontWhateverTheSurfaceHas) {
  Picture picture = NewPicture();
  picture.PrintText(0, 0, "A");
  StepSurface surface;
  surface.SetLineWidth(7);
  surface.SetForeground(White);
  surface.SetPen(Pen::ExclusiveOr);
  surface.SetFont({20, true});
  picture.DrawOn(surface);
  EXPECT_EQ(surface.Steps, StepsOf(picture));
}

TEST(Picture, TheExclusiveOrPenIsDrawnAgain) {
  Picture picture = NewPicture();
  picture.SetPen(Pen::ExclusiveOr);
  picture.Line(0, 0, 10, 0);
  picture.SetPen(Pen::Copy);
  picture.Line(0, 0, 10, 0);
  const std::vector<std::string> steps = StepsOf(picture);
  ASSERT_EQ(steps.size(), 2U);
  EXPECT_TRUE(steps[0].ends_with("exclusive-or")) << steps[0];
  EXPECT_FALSE(steps[1].ends_with("exclusive-or")) << steps[1];
}

TEST(Picture, ClearForgetsWhatWasDrawnButNotPenAndFont) {
  Picture picture = NewPicture();
  DrawAll(picture);
  picture.SetLineWidth(4);
  picture.SetForeground(DarkGrey);
  picture.SetPen(Pen::ExclusiveOr);
  picture.SetFont({10, true});
  picture.Crop(1);
  picture.Clear();
  EXPECT_EQ(picture.Frame(), PixelRect{});
  EXPECT_TRUE(StepsOf(picture).empty());

  picture.Line(1, 1, 9, 1);
  ExpectFrame(picture, -0.5F, -0.5F, 11.5F, 3.5F);
  StepSurface surface;
  picture.DrawOn(surface);
  EXPECT_EQ(surface.Width, 4);
  EXPECT_EQ(surface.Colour, DarkGrey);
  EXPECT_EQ(surface.CurrentPen, Pen::ExclusiveOr);
  EXPECT_EQ(surface.Font, (TextFont{10, true}));
}

TEST(Picture, CanBeCopied) {
  Picture picture = NewPicture();
  DrawAll(picture);
  const std::vector<std::string> steps = StepsOf(picture);
  const Picture copy = picture;
  picture.Clear();
  EXPECT_EQ(StepsOf(copy), steps);
}

TEST(PictureShelf, HoldsThePictureThatWasPutLast) {
  PictureShelf shelf;
  EXPECT_EQ(shelf.Held(), nullptr);
  Picture picture = NewPicture();
  picture.SetPixel(1, 1);
  EXPECT_TRUE(shelf.PutPicture(picture));
  ASSERT_NE(shelf.Held(), nullptr);
  EXPECT_EQ(shelf.Held()->Frame(), picture.Frame());
  EXPECT_TRUE(shelf.Clear());
  EXPECT_EQ(shelf.Held(), nullptr);
}
