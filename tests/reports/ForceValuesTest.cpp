// What is printed at the arrows of applied forces, and where.
#include "reports/ForceValues.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "canvas/Arrow.h"
#include "canvas/CanvasFixture.h"
#include "canvas/PaintDrawing.h"
#include "canvas/PixelBoxes.h"
#include "platform/Palette.h"
#include "platform/Picture.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string TextOf(float fx, float fy, const ReportFormat& format = {}) {
  ForceRec force;
  force.Fx = fx;
  force.Fy = fy;
  return ForceValueText(force, format);
}

TEST(ForceValueText, OfForcesAlongAnAxisIsTheirMagnitude) {
  EXPECT_EQ(TextOf(0, -500), "500");
  EXPECT_EQ(TextOf(0, 500), "500");
  EXPECT_EQ(TextOf(-500, 0), "500");
  EXPECT_EQ(TextOf(500, 0), "500");
}

TEST(ForceValueText, OfSlopingForcesHasTheAngleInDegrees) {
  EXPECT_EQ(TextOf(300, 400), "500 at 53.13\xB0");
  EXPECT_EQ(TextOf(-300, 400), "500 at 126.9\xB0");
  EXPECT_EQ(TextOf(1, 1), "1.414 at 45\xB0");
}

TEST(ForceValueText, HasAnEnDashBeforeANegativeAngle) {
  EXPECT_EQ(TextOf(300, -400),
            "500 at \x96"
            "53.13\xB0");
  EXPECT_EQ(TextOf(-300, -400),
            "500 at \x96"
            "126.9\xB0");
}

TEST(ForceValueText, HasTheDocumentsFiguresAndTheLocalesSeparator) {
  EXPECT_EQ(TextOf(0, -1234.5F, {.SigFigs = 3, .Numbers = {}}), "1230");
  EXPECT_EQ(TextOf(300, 400, {.SigFigs = 6, .Numbers = {","}}), "500 at 53,1301\xB0");
  EXPECT_EQ(TextOf(0, 0.1F, {.SigFigs = 17, .Numbers = {}}), "0.1")
      << "a single has no more digits than it was given";
}

TEST(ForceValueText, OfHugeForcesIsStillANumber) {
  EXPECT_EQ(TextOf(3e38F, 3e38F), "4.243E+38 at 45\xB0");
  EXPECT_EQ(TextOf(0, 3e38F), "3.000E+38");
}

TEST(ForceValueText, OfAZeroForceIsEmpty) { EXPECT_EQ(TextOf(0, 0), ""); }

struct ColouredPaper : RecordingSurface {
  void PrintText(float left, float top, std::string_view text) override {
    RecordingSurface::PrintText(left, top, text);
    TextColours.push_back(Colour);
  }
  std::vector<int> TextColours;
};

struct PrintedForceValues : testing::Test {
  // The values themselves, without the white letters that make their rims.
  std::vector<DrawnText> Print(Truss truss, bool named = false) {
    truss = Bare(truss);
    if (named) canvas.Picture.LabelsShown = true;
    EXPECT_TRUE(canvas.Redraw(truss));
    drawn = truss;
    PrintForceValues(paper, canvas.Picture, truss, {});
    std::vector<DrawnText> values;
    for (std::size_t i = 0; i < paper.Texts.size(); ++i) {
      if (paper.TextColours[i] != White) values.push_back(paper.Texts[i]);
    }
    return values;
  }

  static PixelRect BoxOf(const DrawnText& text) {
    const TextExtent extent = RecordingSurface::Measure(text.Font, text.Text);
    return {text.Left, text.Top, text.Left + extent.Width, text.Top + extent.Height};
  }

  Canvas canvas;
  ColouredPaper paper;
  Truss drawn;
};

// Twenty pixels to the unit, a unit to 1000, the origin at (48, 270); a text of four characters is 24 by 10.
TEST_F(PrintedForceValues, StandBeyondTheTipOfADownwardArrow) {
  EXPECT_THAT(Print(TrussBuilder().Force(4, 3, 0, -1000)), ElementsAre(DrawnText{116, 234, "1000", {}}));
}

TEST_F(PrintedForceValues, StandBeyondTheTipOfAnUpwardArrow) {
  EXPECT_THAT(Print(TrussBuilder().Force(4, 3, 0, 1000)), ElementsAre(DrawnText{116, 176, "1000", {}}));
}

TEST_F(PrintedForceValues, StandBeyondTheTipOfArrowsToTheSides) {
  EXPECT_THAT(Print(TrussBuilder().Force(4, 3, 1000, 0)), ElementsAre(DrawnText{152, 205, "1000", {}}));
  EXPECT_THAT(Print(TrussBuilder().Force(8, 3, -1000, 0)).back(), (DrawnText{160, 205, "1000", {}}));
}

TEST_F(PrintedForceValues, StandOnTheLineOfASlopingArrowClearOfItsTip) {
  const auto values = Print(TrussBuilder().Force(4, 3, 600, -800));
  ASSERT_EQ(values.size(), 1U);
  EXPECT_EQ(values[0].Text,
            "1000 at \x96"
            "53.13\xB0");
  // The tip is at (140, 226); the box of 96 by 10 begins four pixels below it.
  EXPECT_FLOAT_EQ(values[0].Top, 230);
  const PixelRect box = BoxOf(values[0]);
  EXPECT_NEAR((box.Left + box.Right) / 2 - 140, 0.75 * ((box.Top + box.Bottom) / 2 - 226), 0.001);
}

TEST_F(PrintedForceValues, AreDarkRedOnARimOfWhite) {
  Print(TrussBuilder().Force(4, 3, 0, -1000));
  ASSERT_EQ(paper.TextColours.size(), 13U);
  EXPECT_EQ(paper.TextColours.front(), White);
  EXPECT_EQ(paper.TextColours.back(), 4);
  EXPECT_THAT(paper.Fills, IsEmpty()) << "what stands around the letters is not covered";
}

TEST_F(PrintedForceValues, LeaveABlackForegroundAndThePlainFont) {
  paper.SetFont({.Points = 10, .Bold = true});
  Print(TrussBuilder().Force(4, 3, 0, -1000));
  EXPECT_EQ(paper.Colour, Black);
  EXPECT_EQ(paper.Font, TextFont{});
}

TEST_F(PrintedForceValues, StandBesideTheHeadWhereAMemberRunsOn) {
  const auto values = Print(TrussBuilder().Member(4, 3, 4, 0).Force(4, 3, 0, -1000));
  // Right of the head, whose middle is six pixels above the tip at (128, 230).
  ASSERT_EQ(values.size(), 1U);
  EXPECT_FLOAT_EQ(values[0].Left, 128 + 4 + 0.2F * ForceHeadLength);
  EXPECT_FLOAT_EQ(values[0].Top, 219);
}

TEST_F(PrintedForceValues, DoNotCoverASupport) {
  const auto values = Print(TrussBuilder().Member(4, 3, 8, 3).Clamp(4, 1).Force(4, 3, 0, -1000));
  ASSERT_EQ(values.size(), 1U);
  const PixelPoint support = canvas.Picture.Support[1];
  EXPECT_FALSE(Overlap(BoxOf(values[0]), {support.X, support.Y, support.X + 32, support.Y + 32}));
}

TEST_F(PrintedForceValues, DoNotCoverNamesThatAreShown) {
  const Truss truss = TrussBuilder().Member(2, 1.7F, 6, 1.7F, "member").Force(4, 3, 0, -1000);
  const auto values = Print(truss, true);
  ASSERT_EQ(values.size(), 1U);
  for (const LabelPlace& label : canvas.Picture.lblRodJoint.First(canvas.Picture.lblRodJoint.Size())) {
    if (!label.Visible) continue;
    EXPECT_FALSE(Overlap(BoxOf(values[0]),
                         {label.Left, label.Top, label.Left + label.Width, label.Top + label.Height}));
  }
}

TEST_F(PrintedForceValues, DoNotCoverEachOther) {
  const auto values = Print(TrussBuilder().Force(4, 3, 0, -1000).Force(4, 3, 0, -1000).Force(4, 3, 0, -1000));
  ASSERT_EQ(values.size(), 3U);
  EXPECT_FALSE(Overlap(BoxOf(values[0]), BoxOf(values[1])));
  EXPECT_FALSE(Overlap(BoxOf(values[0]), BoxOf(values[2])));
  EXPECT_FALSE(Overlap(BoxOf(values[1]), BoxOf(values[2])));
}

TEST_F(PrintedForceValues, AreInTheOrderOfTheForces) {
  const auto values = Print(TrussBuilder().Force(4, 3, 0, -1000).Force(12, 3, 0, -2000));
  ASSERT_EQ(values.size(), 2U);
  EXPECT_EQ(values[0].Text, "1000");
  EXPECT_EQ(values[1].Text, "2000");
}

TEST_F(PrintedForceValues, AreNotPrintedForErasedAndZeroForces) {
  EXPECT_THAT(Print(TrussBuilder().Force(4, 3, 0, -1000).ThenErased().Force(8, 3, 0, 0)), IsEmpty());
}

TEST_F(PrintedForceValues, AreNotPrintedWithoutAnArrow) {
  Truss truss = TrussBuilder().Force(4, 3, 0, -1000);
  truss.Settings.ForceScale = 0;
  EXPECT_THAT(Print(truss), IsEmpty());
  truss.Settings.ForceScale = 1e-6F;
  EXPECT_THAT(Print(truss), IsEmpty()) << "the head lies beyond the paper";
  truss.Settings.ForceScale = 1000;
  truss.Settings.XMax = truss.Settings.XMin;
  EXPECT_THAT(Print(truss), IsEmpty()) << "nothing can be drawn to scale";
}

TEST_F(PrintedForceValues, OfVeryManyForcesHaveNoRims) {
  TrussBuilder few;
  for (int i = 0; i < MostRims; ++i) few.Force(static_cast<float>(i), 3, 0, -1000);
  Print(few);
  EXPECT_EQ(paper.Texts.size(), 13U * MostRims);
  paper.Texts.clear();
  Print(few.Force(-1, 3, 0, -1000));
  EXPECT_EQ(paper.Texts.size(), MostRims + 1U);
}

TEST_F(PrintedForceValues, OfVeryManyForcesStandBeyondTheirTipsWhateverIsThere) {
  TrussBuilder builder;
  for (int i = 0; i < 600; ++i) builder.Force(4, 3, 0, -1000);
  const auto values = Print(builder);
  ASSERT_EQ(values.size(), 600U);
  for (const DrawnText& value : values) EXPECT_EQ(value, (DrawnText{116, 234, "1000", {}}));
}

}  // namespace
