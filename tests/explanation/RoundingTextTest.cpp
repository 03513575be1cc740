// What is told of rounding, in short and at length.
#include "explanation/RoundingText.h"

#include <gmock/gmock.h>

#include <cmath>
#include <map>

#include "ExplanationFixture.h"
#include "explanation/Explanation.h"
#include "explanation/ExplanationText.h"
#include "support/HandTrusses.h"

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

Explanation ExplainRounding(Truss truss) {
  const TrussAnalysis analysis = SolveTruss(truss);
  return ExplainTruss(truss, analysis);
}

std::string NoticeOf(const Truss& truss, int figures = 4) {
  const Explanation explanation = ExplainRounding(truss);
  return RoundingNotice(explanation.Graph, explanation.Rounded, {figures, {}});
}

// What follows on the verdict itself.
std::string Opening(const Truss& truss) {
  return ExplanationText(ExplainRounding(truss), {}).front().Paragraphs.at(1);
}

// Six joints on a circle, each of three joined to each of the other three; `x` is 3 in the critical form.
TrussBuilder HexagonOf(float x, float load = -1000) {
  return TrussBuilder()
      .Member(5, 0, x, 4, "AD")
      .Member(5, 0, -5, 0, "AE")
      .Member(5, 0, 0, -5, "AF")
      .Member(-3, 4, x, 4, "BD")
      .Member(-3, 4, -5, 0, "BE")
      .Member(-3, 4, 0, -5, "BF")
      .Member(-4, -3, x, 4, "CD")
      .Member(-4, -3, -5, 0, "CE")
      .Member(-4, -3, 0, -5, "CF")
      .Clamp(-4, -3, "Cx", "Cy")
      .Roller(0, -5, "F", 5)
      .Force(-3, 4, 0, load)
      .Joint(5, 0, "A")
      .Joint(-3, 4, "B")
      .Joint(-4, -3, "C")
      .Joint(x, 4, "D")
      .Joint(-5, 0, "E")
      .Joint(0, -5, "F");
}

TrussBuilder PlainTriangle() {
  return TrussBuilder()
      .Member(0, 0, 4, 0, "AB")
      .Member(0, 0, 2, 2, "AC")
      .Member(4, 0, 2, 2, "BC")
      .Clamp(0, 0, "Ax", "Ay")
      .Roller(4, 0, "B", 5)
      .Force(2, 2, 0, -1000);
}

TEST(RoundingNotice, TellsHowManyFiguresAreSureThoughTheForcesAreFarBelowAThousandLoads) {
  const Explanation explanation = ExplainRounding(HexagonOf(3.01F));
  EXPECT_LT(explanation.Rounded.Figures.Magnification, NearlyAMechanism);
  EXPECT_GT(explanation.Rounded.Figures.Magnification, LargeForces);
  const std::string notice = RoundingNotice(explanation.Graph, explanation.Rounded, {});
  EXPECT_THAT(notice,
              HasSubstr("Only the first 3 figures of the forces are sure: with directions that are not "
                        "rounded BE is -4.68792E+5 in place of -4.68764E+5."));
  EXPECT_THAT(notice, HasSubstr("nearly free is a motion in which joints A, B, D and E move ("));
  EXPECT_EQ(NoticeOf(HexagonOf(3.3F)), "") << "farther from its critical form all are sure";
}

// Two members that lean on each other, 4 apart, and how they stand in the reports with this many figures.
TEST(RoundingNotice, IsThereWheneverAShownFigureOfAnArchIsWrong) {
  int numTold = 0;
  for (int i = 1; i <= 80; ++i) {
    const double height = i * 0.0071;
    Truss truss = LowArch(height);
    const std::map<std::string, double> forces = ForcesOfLowArch(height);
    const TrussAnalysis analysis = SolveTruss(truss);
    for (const int figures : {3, 4, 5, 6, 7}) {
      SCOPED_TRACE(testing::Message() << height << ", " << figures << " figures");
      bool isWrong = false;
      for (int k = 1; k <= analysis.System.NumUnknowns(); ++k) {
        const double force = forces.at(analysis.System.UnknownList[k].Name);
        const double shown = analysis.Reading.Values[k].value();
        isWrong = isWrong || FormatSigFigs(force, {figures, {}}) != FormatSigFigs(shown, {figures, {}});
      }
      const std::string notice = NoticeOf(truss, figures);
      if (isWrong) {
        ++numTold;
        EXPECT_THAT(notice, HasSubstr("Only the first "));
      }
      if (height > 0.1 && figures <= 4) {
        EXPECT_EQ(notice, "");
      }
    }
  }
  EXPECT_GT(numTold, 5);
}

TEST(RoundingNotice, OfANearMechanismItTellsTheFiguresThoughAllThatAreShownAreSure) {
  const std::string notice = NoticeOf(HexagonOf(3.003F), 2);
  EXPECT_THAT(notice,
              HasSubstr("The truss is nearly a mechanism: its largest force is 1600 times the largest"));
  EXPECT_THAT(notice, HasSubstr("Of the forces the first 3 figures are sure."));
}

TEST(RoundingNotice, ARemnantInPlaceOfZeroIsNamed) {
  // The bar across carries nothing; the load comes down the slanting members.
  Rounding rounding;
  Truss truss = PlainTriangle();
  const TrussAnalysis analysis = SolveTruss(truss);
  const TrussGraph graph = GraphOf(truss, analysis);
  rounding.Figures.Forces = {{1, 500, 500}, {2, 3.2E-5, 0}};
  EXPECT_EQ(RoundingNotice(graph, rounding, {}),
            "What is shown for " + graph.Unknowns[2].Name +
                " is a remnant of rounding, and no figure of it is sure.");
}

TEST(RoundingNotice, SaysThatNoNumberHoldsWhereThereIsNoSolution) {
  for (const int figures : {3, 4, 7}) {
    const std::string notice = NoticeOf(HexagonOf(3), figures);
    EXPECT_THAT(notice, StartsWith("Exactly, the system has no solution."));
    EXPECT_THAT(notice, HasSubstr("None of the numbers shown for the forces holds, be they large or small"));
  }
}

TEST(RoundingNotice, NumbersOfForcesThatAreLeftOpenAreNotDetermined) {
  // The critical form under a load that its clamp takes alone.
  Truss truss = HexagonOf(3, 0).Force(-4, -3, 0, -1000);
  const Explanation explanation = ExplainRounding(truss);
  ASSERT_EQ(explanation.Exact.Verdict.Code(), Outcome::Redundant);
  ASSERT_EQ(explanation.Rounded.Shown, Outcome::Neither);
  EXPECT_EQ(explanation.Rounded.ShownThoughOpen.size(), 9U);
  const std::string notice = RoundingNotice(explanation.Graph, explanation.Rounded, {});
  EXPECT_THAT(notice,
              HasSubstr("The equations leave AD, AE, AF, BD, BE, BF and 3 more open; the numbers shown "
                        "for them are not determined"));
  EXPECT_THAT(notice, Not(HasSubstr("None of the numbers")));
}

// Fifty and fifty of the load, as any other share, balance it.
TEST(RoundingNotice, NumbersOfABalancedArchAreNotCalledWrong) {
  EXPECT_EQ(
      NoticeOf(SlopingArch(100, 300)),
      "Exactly, the system is redundant: these loads are in balance.  The reduced matrix says otherwise "
      "because directions are rounded to single precision.  The equations leave Ax, Ay, Bx, By, AC and BC "
      "open; the numbers shown for them are not determined: directions are rounded to single precision, "
      "and a remnant of that stands as a pivot where exactly there is none.");
  EXPECT_THAT(NoticeOf(SlopingArch(300, -100)), HasSubstr("None of the numbers shown for the forces holds"));
}

TEST(RoundingNotice, NamesTheForcesThatAreDeterminedThoughTheTableLeavesThemOpen) {
  const Explanation explanation = ExplainRounding(LeaningPanel(1, 6, 3));
  ASSERT_TRUE(explanation.Rounded.Agrees()) << "only the determined forces are others";
  const std::string notice = RoundingNotice(explanation.Graph, explanation.Rounded, {});
  EXPECT_EQ(notice,
            "Exactly, the equations determine Ay = 250 and By = 750, but the reduced matrix leaves them open "
            "because directions are rounded to single precision: beside the 1 in their rows it has "
            "coefficients of up to 2.268E-8 that are remnants of rounding and exactly are 0.");
  EXPECT_THAT(RoundingParagraphs(explanation.Graph, explanation.Rounded, {}), testing::ElementsAre(notice));
  EXPECT_THAT(Opening(LeaningPanel(1, 6, 3)),
              StartsWith("The readings of this truss differ: exactly, Ay and By are determined, but the "
                         "reduced matrix leaves them open.  More stands below, under \"What rounding"));
  EXPECT_EQ(NoticeOf(LeaningPanel(0, 8, 8)), "") << "at 45 degrees the directions are alike";
}

// Whatever the slopes: what is determined and not shown is named, with what moments say, and nothing else is.
TEST(RoundingNotice, HiddenForcesAreThoseThatTheTableCallsUndetermined) {
  int numHidden = 0;
  for (int left = 0; left <= 3; ++left) {
    for (int right = 4; right <= 9; ++right) {
      for (int height = 1; height <= 7; height += 2) {
        Truss truss =
            LeaningPanel(static_cast<float>(left), static_cast<float>(right), static_cast<float>(height));
        const TrussAnalysis analysis = SolveTruss(truss);
        const DrawnFigures figures = ExplainTruss(truss, analysis).Rounded.Figures;
        const std::map<std::string, double> vertical = {{"Ay", 1000 - 125.0 * right}, {"By", 125.0 * right}};
        std::vector<std::string> hidden;
        for (const HiddenForce& force : figures.Hidden) {
          const std::string name = analysis.System.UnknownList[force.Unknown].Name;
          hidden.push_back(name);
          EXPECT_NEAR(force.Value.value(), vertical.at(name), 1e-9);
          EXPECT_GT(force.Remnant, 1e-10);
          EXPECT_LT(force.Remnant, 1e-6);
        }
        std::vector<std::string> expected;
        for (int k = 1; k <= analysis.System.NumUnknowns(); ++k) {
          const std::string name = analysis.System.UnknownList[k].Name;
          if (vertical.contains(name) && !analysis.Reading.Values[k]) expected.push_back(name);
        }
        EXPECT_EQ(hidden, expected) << left << ", " << right << ", " << height;
        numHidden += static_cast<int>(hidden.size());
      }
    }
  }
  EXPECT_GT(numHidden, 20);
}

TEST(RoundingNotice, AForceHiddenByALostPivotIsSaidToBe) {
  Truss truss = LeaningPanel(1, 6, 3);
  const TrussAnalysis analysis = SolveTruss(truss);
  const TrussGraph graph = GraphOf(truss, analysis);
  Rounding rounding;
  rounding.Verdict.Rank = 8;
  rounding.ShownRank = 7;
  rounding.Figures.Hidden = {{.Unknown = 2, .Value = {}, .Remnant = 0.5}};
  EXPECT_EQ(
      RoundingNotice(graph, rounding, {}),
      "Exactly, the equations determine Ay, but the reduced matrix leaves it open because directions are "
      "rounded to single precision: it has 7 pivots, where exactly there are 8.");
}

TEST(RoundingNotice, ANumberForAnOpenForceMayComeFromACoefficientThatIsLost) {
  Truss truss = LeaningPanel(1, 6, 3);
  const TrussAnalysis analysis = SolveTruss(truss);
  const TrussGraph graph = GraphOf(truss, analysis);
  Rounding rounding;
  rounding.Verdict.Rank = 8;
  rounding.ShownRank = 8;
  rounding.ShownThoughOpen = {5};
  EXPECT_EQ(
      RoundingNotice(graph, rounding, {}),
      "The equations leave AB open; the number shown for it is not determined: directions are rounded to "
      "single precision, and a coefficient that exactly is not 0 counts as nothing.");
  EXPECT_THAT(DifferentReadings(graph, rounding, {}),
              HasSubstr("exactly, AB is left open, but the reduced matrix shows a number for it."));
}

TEST(DifferentReadings, TellTheForcesAlsoWhereTheOutcomesDiffer) {
  const Truss truss = HexagonOf(3, 0).Force(-4, -3, 0, -1000);
  EXPECT_THAT(Opening(truss),
              AllOf(HasSubstr("exactly, the system is redundant"),
                    HasSubstr(".  Exactly, AD, AE, AF, BD, BE, BF and 3 more are left open, but the reduced "
                              "matrix shows numbers for them.  More stands")));
  EXPECT_THAT(NoticeOf(truss),
              HasSubstr("are not determined: directions are rounded to single precision, and a "
                        "remnant of that stands as a pivot where exactly there is none."));
}

TEST(RoundingNotice, WithinTheFiguresNumbersHoldThoughExactlyThereAreNone) {
  const Explanation explanation = ExplainRounding(PolarTie());
  ASSERT_EQ(explanation.Exact.Verdict.Code(), Outcome::Inconsistent);
  EXPECT_FALSE(explanation.Rounded.HoldsNoNumber());
  EXPECT_THAT(NoticeOf(PolarTie()),
              AllOf(HasSubstr("Within the figures of the drawing"), Not(HasSubstr("None of the numbers"))));
}

TEST(RoundingNotice, IsAFewSentencesAndTheWholeMotionStandsInTheReasons) {
  for (const float x : {3.0003F, 3.003F, 3.01F}) {
    SCOPED_TRACE(x);
    const Explanation explanation = ExplainRounding(HexagonOf(x));
    const std::string notice = RoundingNotice(explanation.Graph, explanation.Rounded, {});
    EXPECT_LT(notice.size(), 420U) << notice;
    EXPECT_THAT(notice, Not(HasSubstr("by (")));
    std::string reasons;
    for (const std::string& paragraph : RoundingParagraphs(explanation.Graph, explanation.Rounded, {}))
      reasons += paragraph + '\n';
    EXPECT_THAT(reasons, HasSubstr("Joints move: A to the left and up by (-0.7"));
    const ExplanationSection last = ExplanationText(explanation, {}).back();
    EXPECT_EQ(last.Heading, RoundingHeading);
    EXPECT_EQ(last.Paragraphs, RoundingParagraphs(explanation.Graph, explanation.Rounded, {}));
  }
}

TEST(DifferentReadings, OpenTheReasonsWhereTheReadingsDiffer) {
  EXPECT_THAT(Opening(PolarTie()), StartsWith("The readings of this truss differ: exactly, the system has no "
                                              "solution; but within the figures of the drawing the system is "
                                              "redundant: these loads are in balance"));
  EXPECT_THAT(Opening(PolarTie()), HasSubstr("\"What rounding has to do with it\""));
  EXPECT_THAT(
      Opening(HexagonOf(3)),
      HasSubstr("exactly, the system has no solution, and so it is within the figures of the drawing; and "
                "the reduced matrix says that the equations neither contradict nor repeat each other"));
}

TEST(RoundingNotice, AForceThatIsDeterminedButNotShownIsMissed) {
  const auto isOneMissing = [](float loadX) {
    return ExplainRounding(
               TrussBuilder().Member(0, 0, 1, 3, "AB").Clamp(0, 0, "Ax", "Ay").Force(1, 3, loadX, 300))
        .Rounded.Figures.IsOneMissing;
  };
  EXPECT_TRUE(isOneMissing(100));
  EXPECT_FALSE(isOneMissing(99)) << "no forces balance it";
  EXPECT_FALSE(ExplainRounding(PlainTriangle()).Rounded.Figures.IsOneMissing);
}

TEST(RoundingNotice, ForcesSoSmallThatTheyAreShownAs0AreSaidToBeSo) {
  const auto under = [](float load) {
    return NoticeOf(TrussBuilder()
                        .Member(0, 0, 4, 0, "AB")
                        .Member(0, 0, 2, 2, "AC")
                        .Member(4, 0, 2, 2, "BC")
                        .Clamp(0, 0, "Ax", "Ay")
                        .Roller(4, 0, "B", 5)
                        .Force(2, 2, 0, load));
  };
  EXPECT_EQ(under(-1e-12F), "Ay, B, AB, AC and BC are not 0, but so small that they are shown as 0.");
  EXPECT_THAT(under(-1e-9F),
              AllOf(HasSubstr("so small that they are shown as 0"), Not(HasSubstr("in place of 0"))));
  EXPECT_EQ(under(0), "");
}

TEST(RoundingNotice, WhatIsAsLargeAsTheLoadIsNoRemnant) {
  const auto under = [](float height) {
    return NoticeOf(TrussBuilder()
                        .Member(0, 0, 1, height, "m")
                        .Member(2, 0, 1, height, "n")
                        .Clamp(0, 0, "a", "b")
                        .Clamp(2, 0, "c", "d")
                        .Force(1, height, 0, -1000));
  };
  const auto across = [](float width) {
    return NoticeOf(TrussBuilder()
                        .Member(0, 0, width, 1, "m")
                        .Member(0, 2, width, 1, "n")
                        .Clamp(0, 0, "a", "b")
                        .Clamp(0, 2, "c", "d")
                        .Force(width, 1, -1000, 0));
  };
  EXPECT_THAT(across(1e-20F), HasSubstr("so vanish the horizontal components of m and n"));
  EXPECT_THAT(under(1e-20F),
              AllOf(HasSubstr("because what is smaller than 1E-10 counts as nothing in it: so vanish "
                              "the vertical components of m and n, which leaves 1000 on the right"),
                    Not(HasSubstr("remnant"))));
}

TEST(DifferentReadings, AreNotMentionedWhereAllSayTheSame) {
  EXPECT_THAT(Opening(PlainTriangle()), StartsWith("This truss has no independent motions"));
  EXPECT_THAT(Opening(HexagonOf(3.01F)), StartsWith("This truss has no independent motions"));
  EXPECT_THAT(DifferentReadings({}, {}, {}), IsEmpty());
}

TEST(DifferentReadings, SayWhatEachOfTheThreeSays) {
  const auto text = [](Outcome exact, Outcome within, Outcome shown) {
    Rounding rounding;
    rounding.Verdict = {.NumEquations = 2, .NumUnknowns = 2, .Rank = 2, .AugmentedRank = 2, .Determined = {}};
    if (exact != Outcome::Neither) rounding.Verdict.Rank = rounding.Verdict.AugmentedRank = 1;
    if (exact == Outcome::Inconsistent) rounding.Verdict.AugmentedRank = 2;
    rounding.Figures.Within = within;
    rounding.Shown = shown;
    return DifferentReadings({}, rounding, {});
  };
  for (const Outcome exact : {Outcome::Neither, Outcome::Redundant, Outcome::Inconsistent}) {
    for (const Outcome within : {Outcome::Neither, Outcome::Redundant, Outcome::Inconsistent}) {
      for (const Outcome shown : {Outcome::Neither, Outcome::Redundant, Outcome::Inconsistent}) {
        const std::string told = text(exact, within, shown);
        EXPECT_EQ(told.empty(), exact == within && within == shown);
        if (told.empty()) continue;
        EXPECT_EQ(told.find("but within") != std::string::npos, exact != within) << told;
        EXPECT_EQ(told.find("the reduced matrix says that") != std::string::npos,
                  shown != exact && shown != within)
            << told;
        EXPECT_EQ(told.find("so says the reduced matrix") != std::string::npos,
                  shown == within && shown != exact)
            << told;
      }
    }
  }
}

// Loads so small that what is left over is below the tolerance of the matrix.
TEST(Rounding, NumbersThatHoldWithinTheFiguresAreNotCalledWrong) {
  Truss truss =
      TrussBuilder().Member(0, 0, 1, 3).Clamp(0, 0).Force(1, 3, 0.0001F, std::nextafter(0.0003F, 1.0F));
  const TrussAnalysis analysis = SolveTruss(truss);
  const Rounding rounding = ExplainTruss(truss, analysis).Rounded;
  ASSERT_EQ(analysis.Reading.Code, Outcome::Redundant);
  ASSERT_EQ(rounding.Verdict.Code(), Outcome::Inconsistent);
  ASSERT_EQ(rounding.Figures.Within, Outcome::Redundant);
  EXPECT_FALSE(rounding.HoldsNoNumber());
}

}  // namespace
