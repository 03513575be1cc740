// How forces are painted, and the picture with its legend.
#include "explanation/forces/PaintForces.h"

#include <gmock/gmock.h>

#include "ForcesFixture.h"
#include "canvas/Arrow.h"
#include "explanation/forces/ForcesPicture.h"
#include "platform/Palette.h"

namespace {

using testing::Contains;
using testing::Each;
using testing::Field;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

// One member of the drawing, painted alone.
std::vector<DrawnLine> Painted(DrawnMember member, const ForcesLook& look = {}) {
  ForcesDrawing drawing;
  member.Line = {10, 50, 110, 50};
  drawing.Members.push_back(member);
  RecordingSurface surface;
  PaintForces(surface, drawing, look);
  EXPECT_EQ(surface.Colour, Black);
  EXPECT_EQ(surface.Width, 1);
  EXPECT_EQ(surface.Font, TextFont{});
  return surface.Lines;
}

TEST(PaintForces, CompressionIsOneLine) {
  EXPECT_THAT(Painted({.Sense = ForceSense::Pushing, .Line = {}, .Width = 6}),
              testing::ElementsAre(DrawnLine{10, 50, 110, 50, 6, DeepBlue}));
}

TEST(PaintForces, TensionIsTwoLinesWithPaperBetween) {
  for (int width = 2; width <= 8; ++width) {
    const auto lines = Painted({.Sense = ForceSense::Pulling, .Line = {}, .Width = width});
    ASSERT_THAT(lines, SizeIs(2)) << width;
    EXPECT_EQ(lines[0].Colour, Rose);
    EXPECT_EQ(lines[0].Width, lines[1].Width);
    EXPECT_NEAR(lines[0].Y1 + lines[1].Y1, 100, 0.01) << "on either side of the member";
    EXPECT_GE(std::abs(lines[0].Y1 - lines[1].Y1) - static_cast<float>(lines[0].Width), 2) << "white between";
    EXPECT_EQ(lines[0].Y1, lines[0].Y2);
  }
}

TEST(PaintForces, ZeroIsThinDashedAndGrey) {
  const auto lines = Painted({.Sense = ForceSense::Zero, .Line = {}, .Width = 2});
  EXPECT_THAT(lines, SizeIs(testing::Gt(8U)));
  EXPECT_THAT(lines, Each(Field(&DrawnLine::Colour, DarkGrey)));
  EXPECT_THAT(lines, Each(Field(&DrawnLine::Width, 1)));
}

TEST(PaintForces, WhatIsUndeterminedIsDotted) {
  const auto lines = Painted({.Sense = ForceSense::Undetermined, .Line = {}, .Width = 2});
  EXPECT_THAT(lines, SizeIs(testing::Gt(15U)));
  for (const DrawnLine& line : lines) EXPECT_EQ(line.X1, line.X2) << "a dot";
  EXPECT_THAT(lines, Each(Field(&DrawnLine::Colour, Black)));
}

TEST(PaintForces, TheHuesCanBeSwapped) {
  const ForcesLook swapped{.HuesAreSwapped = true};
  EXPECT_EQ(Painted({.Sense = ForceSense::Pushing, .Line = {}, .Width = 4}, swapped)[0].Colour, Rose);
  EXPECT_EQ(Painted({.Sense = ForceSense::Pulling, .Line = {}, .Width = 4}, swapped)[0].Colour, DeepBlue);
}

TEST(PaintForces, OfALongLineOnlyTheDashesThatAreSeenArePainted) {
  ForcesDrawing drawing;
  drawing.Members.push_back(
      {.Unknown = 1, .Sense = ForceSense::Zero, .Line = {-200'000, 50, 200'000, 50}, .Width = 1});
  RecordingSurface surface;
  PaintForces(surface, drawing, {.Visible = PixelRect{0, 0, 300, 100}});
  ASSERT_THAT(surface.Lines, Not(IsEmpty()));
  EXPECT_LT(surface.Lines.size(), 300U);
  float left = 1e6F;
  float right = -1e6F;
  for (const DrawnLine& line : surface.Lines) {
    left = std::min(left, line.X1);
    right = std::max(right, line.X2);
  }
  EXPECT_LE(left, 0);
  EXPECT_GE(right, 300);
}

TEST(PaintForces, WhatIsNotVisibleIsNotPainted) {
  const ForcesDrawing drawing = LoadedTriangleForces().Drawn();
  RecordingSurface all;
  PaintForces(all, drawing, {});
  RecordingSurface nothing;
  PaintForces(nothing, drawing, {.Visible = PixelRect{-900, -900, -800, -800}});
  EXPECT_THAT(nothing.Lines, IsEmpty());
  EXPECT_THAT(nothing.Texts, IsEmpty());
  RecordingSurface everything;
  PaintForces(everything, drawing, {.Visible = drawing.Area});
  EXPECT_EQ(everything.Lines, all.Lines);
  EXPECT_EQ(everything.Texts, all.Texts);
}

TEST(PaintForces, AMarkedMemberLiesOnABand) {
  const SolvedForces truss = LoadedTriangleForces();
  const ForcesDrawing drawing = truss.Drawn();
  RecordingSurface surface;
  PaintForces(surface, drawing, {.Marked = truss.Unknown("AC")});
  const PixelLine& line = drawing.Members[1].Line;
  EXPECT_EQ(surface.Lines.front(), (DrawnLine{line.X1, line.Y1, line.X2, line.Y2, 16, 14}));
}

TEST(PaintForces, TextsStandInTheirBoxesLineByLine) {
  const SolvedForces truss = LoadedTriangleForces();
  const ForcesDrawing drawing = truss.Drawn();
  RecordingSurface surface;
  PaintForces(surface, drawing, {});
  EXPECT_THAT(surface.Texts, Contains(Field(&DrawnText::Text, "1000"))) << "the load";
  EXPECT_THAT(surface.Texts, Contains(Field(&DrawnText::Text, "C"))) << "the joint";
  const auto first = std::ranges::find(surface.Texts, "AC 707.1 C", &DrawnText::Text);
  const auto second = std::ranges::find(surface.Texts, "(707.1)", &DrawnText::Text);
  ASSERT_NE(first, surface.Texts.end());
  ASSERT_NE(second, surface.Texts.end());
  EXPECT_TRUE(first->Font.Bold);
  EXPECT_FALSE(second->Font.Bold);
  EXPECT_EQ(second->Top, first->Top + 12) << "below it";
  EXPECT_EQ(second->Left, first->Left);
}

TEST(ForcesLegend, ShowsEverySampleAndHowToReadTheNumbers) {
  for (const float width : {120.0F, 300.0F, 900.0F}) {
    const ForcesLegend legend =
        LayOutLegend("no solution", {"A remark of several words."}, width, 8, RecordingSurface::Measure);
    EXPECT_THAT(legend.Items, SizeIs(6));
    EXPECT_THAT(legend.Items, Contains(Field(&LegendItem::Words, "no solution (?)")));
    EXPECT_LE(legend.Width, std::max(width, 160.0F)) << "what one sample needs";
    std::string words;
    for (const LegendLine& line : legend.Lines) words += line.Words + ' ';
    EXPECT_EQ(words,
              "The wider, the larger. In brackets the number of the solutions: compression is positive. "
              "A remark of several words. ");
    for (const LegendLine& line : legend.Lines) EXPECT_LT(line.TopLeft.Y + 10, legend.Height);
  }
}

TEST(ForcesLegend, ItsSamplesArePaintedAsTheForcesAre) {
  const ForcesLegend legend = LayOutLegend("undetermined", {}, 900, 8, RecordingSurface::Measure);
  RecordingSurface surface;
  PaintLegend(surface, legend, {100, 200}, {});
  for (const int colour : {DeepBlue, Rose, DarkGrey, Black, int{ForceColour}, 2})
    EXPECT_THAT(surface.Lines, Contains(Field(&DrawnLine::Colour, colour))) << colour;
  EXPECT_THAT(surface.Texts, Contains(Field(&DrawnText::Text, "compression (C)")));
  EXPECT_EQ(surface.FillColours.front(), White) << "on paper of its own";
  for (const DrawnLine& line : surface.Lines) EXPECT_GE(line.Y1, 200);
}

TEST(ForcesPicture, HasTheDrawingWithItsLegendBelow) {
  const SolvedForces truss = LoadedTriangleForces();
  const Picture picture = ForcesPicture(truss.Scene(), RecordingSurface::Measure);
  RecordingSurface surface;
  picture.DrawOn(surface);
  const auto load = std::ranges::find(surface.Texts, "1000", &DrawnText::Text);
  const auto legend = std::ranges::find(surface.Texts, "tension (T)", &DrawnText::Text);
  ASSERT_NE(load, surface.Texts.end());
  ASSERT_NE(legend, surface.Texts.end());
  EXPECT_GT(legend->Top, load->Top);
  EXPECT_LE(picture.Frame().Width(), 640);
}

TEST(ForcesPicture, OfATrussWithoutSolutionCallsNothingUndetermined) {
  for (const bool hasSolution : {false, true}) {
    const SolvedForces truss = hasSolution ? CrossedSquareForces() : SwayingSquareForces();
    RecordingSurface surface;
    ForcesPicture(truss.Scene(), RecordingSurface::Measure).DrawOn(surface);
    const auto tells = [&](const char* words) {
      return std::ranges::find(surface.Texts, words, &DrawnText::Text) != surface.Texts.end();
    };
    EXPECT_EQ(tells("undetermined (?)"), hasSolution);
    EXPECT_EQ(tells("no solution (?)"), !hasSolution);
  }
}

TEST(ForcesPicture, GrowsUntilEveryTextHasItsPlace) {
  const SolvedForces truss(TrussOf(WarrenStrip(60)));
  RecordingSurface small;
  ForcesPicture(truss.Scene(), RecordingSurface::Measure, NarrowForcesPicture).DrawOn(small);
  EXPECT_THAT(small.Texts, Contains(Field(&DrawnText::Text, testing::HasSubstr("have no room here"))));
  const Picture picture = ForcesPicture(truss.Scene(), RecordingSurface::Measure);
  EXPECT_GT(picture.Frame().Width(), 640);
  RecordingSurface large;
  picture.DrawOn(large);
  EXPECT_THAT(large.Texts, Not(Contains(Field(&DrawnText::Text, testing::HasSubstr("no room")))));
}

}  // namespace
