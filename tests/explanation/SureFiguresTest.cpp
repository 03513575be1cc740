// Which of the figures that are shown are sure.
#include "explanation/SureFigures.h"

#include <gmock/gmock.h>

#include <limits>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

ReportFormat Figures(int figures) { return {figures, {}}; }

SureFigures Judge(std::vector<ComparedForce> forces, int figures = 4) {
  for (std::size_t i = 0; i < forces.size(); ++i) forces[i].Unknown = static_cast<int>(i) + 1;
  return JudgeFigures(forces, Figures(figures));
}

TEST(SureFigures, AreAllWhereTheRoundingOfDirectionsShowsNowhere) {
  const SureFigures sure = Judge({{1, 707.10672, 707.10678}, {2, -500.00001, -500}, {3, 0, 0}, {4, 1e-9, 0}});
  EXPECT_EQ(sure.Count, 4);
  EXPECT_FALSE(sure.Example);
  EXPECT_TRUE(sure.AreAll(Figures(4)));
}

TEST(SureFigures, AreFewerWhereAShownFigureDiffers) {
  const SureFigures sure = Judge({{1, 1000, 1000}, {2, -869274, -869363}, {3, 116602, 116609}});
  EXPECT_EQ(sure.Count, 3);
  ASSERT_TRUE(sure.Example);
  EXPECT_EQ(sure.Example->Unknown, 2);
  EXPECT_FALSE(sure.AreAll(Figures(4)));
  EXPECT_TRUE(Judge({{1, -869274, -869363}}, 3).AreAll(Figures(3))) << "869 is sure";
}

TEST(SureFigures, AFigureThatIsRightByChanceIsNotSure) {
  // 468.8 both, but three tenths of the last figure apart.
  EXPECT_EQ(Judge({{1, 468.764, 468.794}}).Count, 3);
  EXPECT_EQ(Judge({{1, 468.784, 468.794}}).Count, 4);
}

TEST(SureFigures, AnEdgeBetweenTwoRoundingsTakesNoneAway) {
  EXPECT_EQ(Judge({{1, 212.14999, 212.15}}).Count, 4);
  EXPECT_EQ(Judge({{1, 999.94999, 999.95}}).Count, 4);
  // 0.02 of the last figure beyond the edge it is told, because it shows.
  EXPECT_LT(Judge({{1, 212.148, 212.15}}).Count, 4);
}

TEST(SureFigures, OfSevenFiguresASingleLeavesSix) {
  EXPECT_EQ(Judge({{1, 707.10672, 707.10678}}, 7).Count, 6);
  EXPECT_EQ(Judge({{1, 500, 500}}, 7).Count, 7);
}

TEST(SureFigures, NoneIsSureOfAForceThatIsQuiteAnother) {
  EXPECT_EQ(Judge({{1, 1000, -3000}}).Count, 0);
  EXPECT_EQ(Judge({{1, 0, 1000}}).Count, 0);
}

TEST(SureFigures, ASmallForceDoesNotSpeakForTheOthers) {
  const SureFigures sure = Judge({{1, 1000, 1000}, {2, 0.25, 0.2503}, {3, 0.4, 0.4}, {4, 0.7, 0.71}});
  EXPECT_EQ(sure.Count, 4);
  EXPECT_FALSE(sure.Example);
  EXPECT_THAT(sure.SmallUnknowns, ElementsAre(2, 4));
  EXPECT_EQ(sure.CountOfSmall, 1);
  EXPECT_THAT(sure.Remnants, IsEmpty());
  EXPECT_FALSE(sure.AreAll(Figures(4)));
}

TEST(SureFigures, ARemnantOfZeroHasNone) {
  const SureFigures sure = Judge({{1, 1000, 1000}, {2, 3.1E-5, 0}, {3, -1E-9, 0}});
  EXPECT_EQ(sure.Count, 4);
  EXPECT_THAT(sure.Remnants, ElementsAre(2)) << "what is shown as 0 is right";
  EXPECT_FALSE(sure.AreAll(Figures(4)));
}

TEST(SureFigures, OfTheLargestForceAreNeverFewerThanOfAll) {
  // Off by more than a ten thousandth, though 1.000 and 1.000 look alike.
  EXPECT_THAT(FiguresOfLargest({{1, 1000.15, 1000}}), Optional(3));
  EXPECT_EQ(Judge({{1, 1000.15, 1000}}).Count, 3);
  EXPECT_EQ(Judge({{1, 1000.15, 1000}}).Example->Unknown, 1);
  EXPECT_EQ(FiguresOfLargest({}), std::nullopt);
  EXPECT_THAT(FiguresOfLargest({{1, 0, 0}}), Optional(MostSureFigures));
}

TEST(SureFigures, OfAllForcesAreThoseOfTheWorstThatIsNot0) {
  const auto least = [](const std::vector<ComparedForce>& forces) {
    return LeastSureFigures(forces, Figures(4));
  };
  EXPECT_THAT(least({{1, 1000, 1000}, {2, -3.699777, -3.7}}), Optional(3)) << "small beside the other";
  EXPECT_THAT(least({{1, 2.05971e9, 2.05993e9}, {2, -2118.46, -2005.01}, {3, 50, 0}}), Optional(1));
  EXPECT_THAT(least({{1, 1000, 1000}, {2, 1e-5, 0}}), Optional(MostSureFigures)) << "0 has no figure";
  EXPECT_THAT(least({{1, 0, -1e-12}}), Optional(0));
  EXPECT_THAT(least({{1, 10000, 10000}, {2, 1.23449, 1.23451}}), Optional(3))
      << "the fourth figure that is shown is another one, be the difference ever so small";
  EXPECT_THAT(least({{1, 707.10672, 707.10678}}), Optional(6));
  EXPECT_THAT(least({{1, 0, 0}}), Optional(MostSureFigures));
  EXPECT_EQ(least({}), std::nullopt);
}

TEST(SureFigures, OfTheLargestForceNoneIsSureWhereItShouldBe0OrIsNoNumber) {
  EXPECT_EQ(FiguresOfLargest({{1, 5, 0}}), 0);
  EXPECT_EQ(FiguresOfLargest({{1, std::numeric_limits<double>::infinity(), 5}, {2, 3, 3}}), 0);
  EXPECT_EQ(FiguresOfLargest({{1, 0, 0}}), MostSureFigures);
}

TEST(SureFigures, OfAllForcesAreNeverMoreThanAreTold) {
  const std::vector<ComparedForce> edge{{1, 212.148, 212.15}};
  EXPECT_THAT(LeastSureFigures(edge, Figures(4)), Optional(Judge(edge).Count));
}

TEST(SureFigures, WhatIsShownAs0ThoughItIsNotIsTold) {
  const SureFigures sure = Judge({{1, 0, -1e-12}, {2, 0, 0}, {3, 1000, 1000}});
  EXPECT_THAT(sure.ShownAsZero, ElementsAre(1));
  EXPECT_FALSE(sure.Example);
  EXPECT_FALSE(sure.AreAll(Figures(4)));
}

TEST(SureFigures, WithoutForcesNothingIsUnsure) { EXPECT_TRUE(Judge({}).AreAll(Figures(4))); }

}  // namespace
