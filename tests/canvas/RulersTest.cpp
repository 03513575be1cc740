// Every tick and every text of the four rulers, with texts of 6 by 10 pixels a character.
#include "canvas/Rulers.h"

#include "CanvasFixture.h"

namespace {

struct Rulers {
  RecordingSurface Paper;
  DocumentSettings Settings;
  NumberFormat Numbers;
  CanvasBounds Bounds = EasyBounds;

  void Show() {
    const DerivedView view = DeriveView(Settings, Bounds);
    Graph graph;
    graph.SetMapping(Bounds.PixL, Bounds.PixR, Bounds.PixB, Bounds.PixT, Settings.XMin, Settings.XMax,
                     Settings.YMin, view.YMax);
    ShowRulers(Paper, graph, Settings, view, Numbers);
  }

  // The texts of the bottom ruler with `count` ticks.
  std::vector<std::string> BottomNumbers(std::size_t count) const {
    std::vector<std::string> numbers;
    for (std::size_t i = 0; i < count; ++i) numbers.push_back(Paper.Texts.at(i).Text);
    return numbers;
  }
};

RulerStyle OneTick(std::string caption, bool centred) {
  return {.Caption = std::move(caption), .CentreCaption = centred, .NumIntervals = 1};
}

}  // namespace

TEST(Rulers, FourRulersWithTheirTicksInward) {
  Rulers rulers;
  rulers.Show();
  std::vector<DrawnLine> expected;
  expected.push_back({48, 270, 448, 270});
  for (int k = 0; k <= 10; ++k) {
    const float x = 48 + 40 * static_cast<float>(k);
    expected.push_back({x, 270, x, 265});
  }
  expected.push_back({48, 70, 448, 70});
  for (int k = 0; k <= 10; ++k) {
    const float x = 48 + 40 * static_cast<float>(k);
    expected.push_back({x, 70, x, 75});
  }
  expected.push_back({448, 270, 448, 70});
  for (int k = 0; k <= 5; ++k) {
    const float y = 270 - 40 * static_cast<float>(k);
    expected.push_back({448, y, 443, y});
  }
  expected.push_back({48, 270, 48, 70});
  for (int k = 0; k <= 5; ++k) {
    const float y = 270 - 40 * static_cast<float>(k);
    expected.push_back({48, y, 53, y});
  }
  EXPECT_EQ(rulers.Paper.Lines, expected);
}

TEST(Rulers, NumbersStandAQuarterOfATextHeightOutside) {
  Rulers rulers;
  rulers.Show();
  std::vector<DrawnText> expected;
  const auto width = [](const std::string& text) { return 6 * static_cast<float>(text.size()); };
  for (int k = 0; k <= 10; ++k) {
    const std::string text = std::to_string(2 * k);
    expected.push_back({48 + 40 * static_cast<float>(k) - width(text) / 2, 272.5F, text, {}});
  }
  expected.push_back({248, 287.5F, "", {}});
  for (int k = 0; k <= 10; ++k) {
    const std::string text = std::to_string(2 * k);
    expected.push_back({48 + 40 * static_cast<float>(k) - width(text) / 2, 57.5F, text, {}});
  }
  expected.push_back({248, 43, "", {}});
  for (int k = 0; k <= 5; ++k) {
    expected.push_back({450.5F, 265 - 40 * static_cast<float>(k), std::to_string(2 * k), {}});
  }
  expected.push_back({472, 163, "", {}});
  for (int k = 0; k <= 5; ++k) {
    const std::string text = std::to_string(2 * k);
    expected.push_back({45.5F - width(text), 265 - 40 * static_cast<float>(k), text, {}});
  }
  expected.push_back({24, 163, "", {}});
  EXPECT_EQ(rulers.Paper.Texts, expected);
}

TEST(Rulers, TheTickAtZeroIsLabelledZero) {
  Rulers rulers;
  rulers.Settings.XMin = -2;
  rulers.Settings.XMax = 2;
  rulers.Show();
  EXPECT_THAT(rulers.BottomNumbers(3), testing::ElementsAre("-2", "0", "2"));
}

TEST(Rulers, HatchSpacingOfAQuarterPrintsTwoDecimals) {
  Rulers rulers;
  rulers.Settings.HatchSpacing = 0.25F;
  rulers.Settings.XMax = 1;
  rulers.Show();
  EXPECT_THAT(rulers.BottomNumbers(5), testing::ElementsAre("0.00", "0.25", "0.50", "0.75", "1.00"));
}

TEST(Rulers, AMinimumWithADecimalPrintsOneDecimalEverywhere) {
  Rulers rulers;
  rulers.Settings.HatchSpacing = std::int16_t{1};
  rulers.Settings.XMin = -2.5F;
  rulers.Settings.XMax = 1.5F;
  rulers.Show();
  EXPECT_THAT(rulers.BottomNumbers(5), testing::ElementsAre("-2.5", "-1.5", "-0.5", "0.5", "1.5"));
}

TEST(Rulers, DecimalsAreCountedForEachAxisByItsOwnMinimum) {
  Rulers rulers;
  rulers.Settings.YMin = 0.5F;
  rulers.Show();
  EXPECT_EQ(rulers.Paper.Texts[1].Text, "2");          // bottom
  EXPECT_EQ(rulers.Paper.Texts[12 + 12].Text, "0.5");  // right
}

TEST(Rulers, ACommaIsUsedWhereTheLocaleUsesIt) {
  Rulers rulers;
  rulers.Numbers.DecimalSeparator = ",";
  rulers.Settings.HatchSpacing = 2.5;
  rulers.Show();
  EXPECT_THAT(rulers.BottomNumbers(3), testing::ElementsAre("0,0", "2,5", "5,0"));
}

TEST(Rulers, UnderAnyOtherSeparatorNumbersAreWhole) {
  Rulers rulers;
  rulers.Numbers.DecimalSeparator = "'";
  rulers.Settings.HatchSpacing = 2.5F;
  rulers.Show();
  EXPECT_THAT(rulers.BottomNumbers(3), testing::ElementsAre("0", "3", "5"));
}

TEST(Rulers, TheLastTickStandsAtTheLastWholeInterval) {
  Rulers rulers;
  rulers.Bounds.PixT = 50;  // 220 pixels: the y ruler ends at 11, its last tick is at 10
  rulers.Show();
  const auto& lines = rulers.Paper.Lines;
  EXPECT_EQ(lines[24], (DrawnLine{448, 270, 448, 50}));
  EXPECT_EQ(lines[30].Y1, 70);
  EXPECT_EQ(lines[31], (DrawnLine{48, 270, 48, 50}));  // the left axis follows: there was no tick at 12
  EXPECT_EQ(rulers.Paper.Texts[29].Text, "10");
}

TEST(Rulers, ARangeShorterThanTheSpacingHasOneTick) {
  Rulers rulers;
  rulers.Settings.XMax = 1;
  rulers.Show();
  EXPECT_EQ(rulers.Paper.Lines[1], (DrawnLine{48, 270, 48, 265}));
  EXPECT_EQ(rulers.Paper.Lines[2], (DrawnLine{48, 70, 448, 70}));
}

TEST(Rulers, WithoutTickSpacingThereAreOnlyTheAxes) {
  for (const float spacing : {0.0F, -2.0F, 1e-30F, 1e-38F}) {
    Rulers rulers;
    rulers.Settings.HatchSpacing = spacing;
    rulers.Show();
    EXPECT_EQ(rulers.Paper.Lines.size(), 4U) << spacing;
  }
}

TEST(Rulers, TicksCloserThanAPixelAreLeftOut) {
  Rulers rulers;
  rulers.Settings.HatchSpacing = 0.05F;  // 400 intervals on 400 pixels
  rulers.Show();
  EXPECT_EQ(rulers.Paper.Lines[401], (DrawnLine{448, 270, 448, 265}));
  Rulers denser;
  denser.Settings.HatchSpacing = 0.0499F;
  denser.Show();
  EXPECT_EQ(denser.Paper.Lines.size(), 4U);
}

TEST(Rulers, NumbersThatWouldRunIntoEachOtherAreThinnedAndTicksStay) {
  Rulers rulers;
  rulers.Settings.HatchSpacing = 0.5F;  // 10 pixels from tick to tick; "20.0" takes 24 and a gap of 2.5
  rulers.Show();
  EXPECT_THAT(rulers.BottomNumbers(5), testing::ElementsAre("0.0", "2.0", "4.0", "6.0", "8.0"));
  EXPECT_EQ(rulers.Paper.Texts[11].Text, "");  // the caption follows 0.0 .. 20.0
  EXPECT_EQ(rulers.Paper.Lines[41], (DrawnLine{448, 270, 448, 265}));
  // Upright, the numbers of 10 pixels just have room.
  EXPECT_EQ(rulers.Paper.Texts[25].Text, "0.5");
}

TEST(Rulers, TheNumbersThatStayAreRound) {
  const struct {
    float Spacing;
    std::vector<std::string> Numbers;
  } rulers[] = {
      {0.25F, {"0.00", "2.00", "4.00"}},  // not 0.00, 1.25, 2.50
      {0.125F, {"0.000", "2.000", "4.000"}}, {0.1F, {"0.0", "2.0", "4.0"}}, {0.4F, {"0.0", "2.0", "4.0"}},
      {0.3F, {"0.0", "1.5", "3.0"}},  // no multiple of it is 1, 2 or 5 times a power of ten
      {0.05F, {"0.00", "2.00", "4.00"}},
  };
  for (const auto& expected : rulers) {
    Rulers drawn;
    drawn.Settings.HatchSpacing = expected.Spacing;
    drawn.Show();
    EXPECT_EQ(drawn.BottomNumbers(3), expected.Numbers) << expected.Spacing;
  }
}

TEST(Rulers, RoundNumbersStayRoundFromAnyMinimum) {
  Rulers rulers;
  rulers.Settings.XMin = -1.25F;
  rulers.Settings.XMax = 18.75F;
  rulers.Settings.HatchSpacing = 0.25F;
  rulers.Show();
  EXPECT_THAT(rulers.BottomNumbers(3), testing::ElementsAre("0.00", "2.00", "4.00"));
}

TEST(Rulers, SayWhetherTicksAreLeftOut) {
  for (const auto& [spacing, leftOut] :
       {std::pair(2.0F, false), {0.05F, false}, {0.049F, true}, {0.01F, true}}) {
    DocumentSettings settings;
    settings.HatchSpacing = spacing;
    const DerivedView view = DeriveView(settings, EasyBounds);
    Graph graph;
    graph.SetMapping(EasyBounds.PixL, EasyBounds.PixR, EasyBounds.PixB, EasyBounds.PixT, settings.XMin,
                     settings.XMax, settings.YMin, view.YMax);
    EXPECT_EQ(TicksAreLeftOut(graph, view), leftOut) << spacing;
  }
}

TEST(Rulers, NumbersOnTheSidesAreThinnedByTheirHeight) {
  Rulers rulers;
  rulers.Settings.HatchSpacing = 0.2F;  // 4 pixels
  rulers.Show();
  std::vector<std::string> right;
  const std::size_t first = 2 * (10 + 1 + 1);  // every 10th of 101 ticks on the bottom and the top
  for (std::size_t i = first; i < first + 3; ++i) right.push_back(rulers.Paper.Texts.at(i).Text);
  EXPECT_THAT(right, testing::ElementsAre("0.0", "1.0", "2.0"));
}

TEST(Rulers, NumbersThatStayAreCountedFromZero) {
  Rulers rulers;
  rulers.Settings.XMin = -3;
  rulers.Settings.XMax = 37;
  rulers.Settings.HatchSpacing = 1.0F;
  rulers.Show();
  EXPECT_THAT(rulers.BottomNumbers(4), testing::ElementsAre("-2", "0", "2", "4"));
  EXPECT_EQ(rulers.Paper.Texts[0].Left, 48 + 10 - 6);
}

TEST(Rulers, WithoutATickAtZeroTheFirstNumberStays) {
  Rulers rulers;
  rulers.Settings.XMin = 0.5F;
  rulers.Settings.XMax = 40.5F;
  rulers.Settings.HatchSpacing = 1.0F;
  rulers.Show();
  EXPECT_THAT(rulers.BottomNumbers(3), testing::ElementsAre("0.5", "5.5", "10.5"));
}

TEST(Rulers, NumbersWithRoomAllStay) {
  for (const float spacing : {2.0F, 4.0F, 5.0F, 10.0F}) {
    Rulers rulers;
    rulers.Settings.HatchSpacing = spacing;
    rulers.Show();
    EXPECT_EQ(rulers.Paper.Texts[static_cast<std::size_t>(20 / spacing)].Text, "20") << spacing;
  }
}

TEST(Rulers, AnEmptyRangeHasNoTicks) {
  Rulers rulers;
  rulers.Settings.XMax = 0;
  rulers.Show();
  EXPECT_EQ(rulers.Paper.Lines.size(), 4U);
}

TEST(Rulers, OtherSidesDrawNothing) {
  RecordingSurface paper;
  RulerOnSide(paper, EasyGraph(), 0, OneTick("x", true));
  RulerOnSide(paper, EasyGraph(), 5, OneTick("x", true));
  EXPECT_TRUE(paper.Order.empty());
}

TEST(Rulers, ZeroCanBeLeftUnlabelled) {
  RecordingSurface paper;
  RulerStyle style = OneTick("", true);
  style.LabelZero = false;
  style.NumIntervals = 4;
  style.Decimals = 1;
  // Three steps of 0.1 from -0.3: exactly 0 in single precision.
  DrawRuler(paper, {.Length = 400, .FirstValue = -0.3F, .Spacing = 0.1F}, BottomSide, style);
  ASSERT_EQ(paper.Texts.size(), 5U);
  EXPECT_EQ(paper.Texts[2].Text, "-0.1");
  EXPECT_EQ(paper.Texts[3].Text, "0.1");
  EXPECT_EQ(paper.Lines.size(), 6U);  // its tick is there
}

TEST(Rulers, BelowZeroDecimalsThereAreTicksWithoutNumbers) {
  RecordingSurface paper;
  RulerStyle style = OneTick("", true);
  style.Decimals = -1;
  DrawRuler(paper, {.Length = 400, .Spacing = 1}, BottomSide, style);
  EXPECT_EQ(paper.Lines.size(), 3U);
  ASSERT_EQ(paper.Texts.size(), 1U);
  EXPECT_EQ(paper.Texts[0].Text, "");
}

TEST(Rulers, CaptionsInTheMiddle) {
  const auto caption = [](std::int16_t side) {
    RecordingSurface paper;
    DrawRuler(paper, {.X = 100, .Y = 300, .Length = 200, .Spacing = 1}, side, OneTick("ab", true));
    return paper.Texts.back();
  };
  EXPECT_EQ(caption(BottomSide), (DrawnText{194, 317.5F, "ab", {}}));
  EXPECT_EQ(caption(TopSide), (DrawnText{194, 273, "ab", {}}));
  EXPECT_EQ(caption(RightSide), (DrawnText{124, 193, "ab", {}}));
  EXPECT_EQ(caption(LeftSide), (DrawnText{64, 193, "ab", {}}));
}

TEST(Rulers, CaptionsAtTheEnd) {
  const auto caption = [](std::int16_t side) {
    RecordingSurface paper;
    DrawRuler(paper, {.X = 100, .Y = 300, .Length = 200, .Spacing = 1}, side, OneTick("ab", false));
    return paper.Texts.back();
  };
  EXPECT_EQ(caption(BottomSide), (DrawnText{305, 294, "ab", {}}));
  EXPECT_EQ(caption(TopSide), (DrawnText{305, 294, "ab", {}}));
  EXPECT_EQ(caption(RightSide), (DrawnText{94, 82.5F, "ab", {}}));
  EXPECT_EQ(caption(LeftSide), (DrawnText{94, 82.5F, "ab", {}}));
}

TEST(Rulers, WideningTheWindowMovesMaximumYOnly) {
  DocumentSettings settings;
  settings.YMin = 1;
  CanvasBounds bounds = EasyBounds;
  EXPECT_EQ(DeriveView(settings, bounds).YMax, 11);
  bounds.PixR = 848;
  EXPECT_EQ(DeriveView(settings, bounds).YMax, 6);
  EXPECT_EQ(DeriveView(settings, bounds).HatchCountY, 2.5F);
  EXPECT_EQ(DeriveView(settings, bounds).HatchCountX, 10);
}
