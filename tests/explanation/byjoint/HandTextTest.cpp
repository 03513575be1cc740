// What the steps say, read as a student reads it.
#include "explanation/byjoint/HandText.h"

#include "HandSolutionFixture.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

TEST(HandText, TellsTheTriangleFromTheReactionsToTheCheck) {
  const std::vector<HandStepText> texts = ToldByHand(HandTriangle()).Texts();
  ASSERT_EQ(texts.size(), 4U);
  EXPECT_EQ(texts[0].Heading, "Reactions");
  EXPECT_THAT(
      texts[0].Lines,
      ElementsAre("The balance of the whole truss.",
                  "Moments about joint A, anticlockwise = clockwise:  8 \xB7 B = 4 \xB7 1000 (load at C)",
                  "So  B = 4000 / 8 = 500.", "Forces right = forces left:  Ax = 0",
                  "Forces up = forces down:  Ay + B = 1000", "With numbers:  Ay + 500 = 1000",
                  "So  Ay = 500."));
  EXPECT_EQ(texts[1].Heading, "Joint A");
  EXPECT_THAT(
      texts[1].Lines,
      ElementsAre("Sought:  AC and AB, assumed to push into the joint.", "Left out:  Ax, which is 0.",
                  "A - y, forces up = forces down:  Ay = AC sin(45.0\xB0)",
                  "With numbers:  500 = 0.7071 \xB7 AC", "So  AC = 500 / 0.7071 = 707.1, that is 707.1 C.",
                  "A - x, forces right = forces left:  0 = AB + AC cos(45.0\xB0)",
                  "With numbers:  0 = AB + 0.7071 \xB7 707.1", "So  AB = -500, that is 500 T."));
  EXPECT_EQ(texts[3].Heading, "Joint C");
  EXPECT_EQ(texts[3].Lines.front(), "No force is sought here any more: a check.");
  EXPECT_EQ(texts[3].Lines.back(), "So  1000 = 1000, which holds.");
  EXPECT_THAT(ToldByHand(HandTriangle()).Closing(),
              ElementsAre("Every force is found.",
                          "The values agree with the solutions that the reduced matrix gives."));
}

TEST(HandText, NamesTheRuleByWhichAMemberCarriesNothing) {
  const ToldByHand told{Truss(KingPost())};
  const HandStepText text = told.Texts()[1];
  EXPECT_EQ(text.Heading, "Nothing in CD");
  EXPECT_THAT(text.Lines,
              ElementsAre("AD and BD lie in one line at joint D, and no load acts there: CD, the only "
                          "other member, carries nothing."));
}

TEST(HandText, TellsForcesWithoutNamesApartByTheirPlaces) {
  const ToldByHand told(TrussBuilder()
                            .Member(0, 0, 8, 0)
                            .Member(0, 0, 4, 4, "x")
                            .Member(8, 0, 4, 4, "x")
                            .Clamp(0, 0)
                            .Roller(8, 0)
                            .Force(4, 4, 0, -1000));
  EXPECT_EQ(told.Texts()[0].Lines[1],
            "Moments about the joint at (0, 0), anticlockwise = clockwise:  8 \xB7 [y-reaction at (8, 0)] = "
            "4 \xB7 1000 (load at (4, 4))");
  EXPECT_EQ(told.Texts()[1].Heading, "The joint at (0, 0)");
  EXPECT_THAT(
      told.Texts()[1].Lines,
      testing::Contains("x at (0, 0), forces right = forces left:  0 = [member (0, 0) to (8, 0)] + [x "
                        "((0, 0) to (4, 4))] cos(45.0\xB0)"));
}

TEST(HandText, SaysWhereTheEquationsContradict) {
  const ToldByHand told(
      TrussBuilder().Member(0, 0, 4, 0, "AB").Clamp(0, 0, "Ax", "Ay").Joint(4, 0, "B").Force(4, 0, 0, -9));
  const std::vector<HandStepText> texts = told.Texts();
  EXPECT_THAT(texts.back().Lines.back(), HasSubstr("which is false: no forces balance the loads here."));
  EXPECT_THAT(told.Closing().front(), HasSubstr("The equations contradict each other"));
}

TEST(HandText, SaysWhatIsNotDetermined) {
  const ToldByHand told(TrussBuilder().Member(0, 0, 4, 0, "a").Clamp(0, 0, "p", "q").Clamp(4, 0, "r", "s"));
  EXPECT_EQ(told.Closing().front(), "The equations do not determine p, r and a.");
}

TEST(HandText, SaysInHowManyFiguresTheValuesAgree) {
  const ToldByHand told(HandHexagon(5.005F));
  EXPECT_THAT(
      told.Closing(),
      ElementsAre("Every force is found.",
                  "The values agree with the solutions that the reduced matrix gives only in the first "
                  "3 figures: BF is -6.32350E+5 here and -6.32393E+5 there, because its directions are "
                  "rounded to single precision."));
  EXPECT_EQ(ToldByHand(HandHexagon(5.005F), 3).Closing().back(),
            "The values agree with the solutions that the reduced matrix gives.");
  EXPECT_EQ(ToldByHand(HandHexagon(7)).Closing().back(),
            "The values agree with the solutions that the reduced matrix gives.");
}

// Whether the shown figures are the same is what the closing says.
TEST(HandText, SaysThatTheValuesAgreeOnlyWhereTheFiguresDo) {
  int numDifferent = 0;
  for (int i = 1; i <= 60; ++i) {
    for (const int figures : {3, 4, 6}) {
      const ToldByHand told(HandHexagon(5 + 0.003F * static_cast<float>(i)), figures);
      bool areAlike = true;
      for (int k = 1; k <= told.Graph.NumUnknowns(); ++k) {
        areAlike = areAlike && FormatSigFigs(told.Solution.Values[k].value(), told.Format) ==
                                   FormatSigFigs(told.Reading.Values[k].value(), told.Format);
      }
      const bool saysSo =
          told.Closing().back() == "The values agree with the solutions that the reduced matrix gives.";
      EXPECT_EQ(saysSo, areAlike) << i << ", " << figures << ": " << told.Closing().back();
      numDifferent += areAlike ? 0 : 1;
    }
  }
  EXPECT_GT(numDifferent, 10);
  EXPECT_LT(numDifferent, 170);
}

TEST(HandText, SaysWhichSmallValuesAreRemnantsInTheSolutions) {
  const ToldByHand told(HandTriangle());
  Classification reading = told.Reading;
  reading.Values[1] = 3e-5;  // Ax, which is 0
  const HandText writer(told.Graph, told.Solution, told.Format);
  EXPECT_EQ(
      writer.Closing(reading).back(),
      "The values agree with the solutions that the reduced matrix gives, but the small ones less: Ax in "
      "none, because its directions are rounded to single precision.");
  reading.Values[3] = 501;  // B, which is 500
  EXPECT_EQ(
      writer.Closing(reading).back(),
      "The values agree with the solutions that the reduced matrix gives only in the first 2 figures: B is "
      "500 here and 501 there; the small ones less: Ax in none, because its directions are rounded to "
      "single precision.");
}

TEST(HandText, SaysWhichForcesTheReducedMatrixLeavesOpen) {
  const ToldByHand panel{Truss(LeaningPanel(1, 6, 3))};
  EXPECT_THAT(panel.Closing(),
              ElementsAre("The equations do not determine Ax, Bx, AB, AC, AD, BC, BD and CD.",
                          "The reduced matrix leaves Ay and By open, because its directions are rounded to "
                          "single precision.  See \"Why this conclusion\"."));
}

TEST(HandText, SaysWhichNumbersOfTheReducedMatrixAreNotDetermined) {
  const ToldByHand told(HandTriangle());
  HandSolution solution = told.Solution;
  const int last = told.Graph.NumUnknowns();
  solution.Values[last].reset();
  EXPECT_THAT(HandText(told.Graph, solution, told.Format).Closing(told.Reading),
              ElementsAre("The equations do not determine BC.",
                          "For BC the reduced matrix shows a number that is not determined, because its "
                          "directions are rounded to single precision.  See \"Why this conclusion\".",
                          "The values agree with the solutions that the reduced matrix gives."));
}

TEST(HandText, NumbersOfABalancedArchAreNotDetermined) {
  EXPECT_THAT(ToldByHand(SlopingArch(100, 300)).Closing(),
              ElementsAre("The equations do not determine Ax, Ay, Bx, By, AC and BC.",
                          "For Ax, Ay, Bx, By, AC and BC the reduced matrix shows numbers that are not "
                          "determined, because its directions are rounded to single precision.  See \"Why "
                          "this conclusion\"."));
}

// "0.8 \xB7 3125 + (-1000) + CH", with what is sought put in.
double ValueOf(const std::string& side, const std::map<std::string, double>& values) {
  const auto split = [](const std::string& text, const std::string& by) {
    std::vector<std::string> parts;
    std::size_t from = 0;
    for (std::size_t at = text.find(by); at != std::string::npos; at = text.find(by, from)) {
      parts.push_back(text.substr(from, at - from));
      from = at + by.size();
    }
    parts.push_back(text.substr(from));
    return parts;
  };
  double sum = 0;
  for (std::string& term : split(side, " + ")) {
    const std::size_t minus = term.find(" - ");
    if (minus != std::string::npos) {
      sum -= ValueOf(term.substr(minus + 3), values);
      term.resize(minus);
    }
    double product = 1;
    for (std::string factor : split(term, " \xB7 ")) {
      if (factor.starts_with('(')) factor = factor.substr(1, factor.size() - 2);
      product *= values.contains(factor) ? values.at(factor) : std::stod(factor);
    }
    sum += product;
  }
  return sum;
}

TEST(HandText, ItsNumbersHoldWhenTheyArePutIn) {
  int numRead = 0;
  WithEachExample([&](Truss& truss) {
    const ToldByHand told(truss, 7);
    const DistinctNames names(told.Graph, told.Format);
    std::map<std::string, double> values;
    for (int k = 1; k <= told.Graph.NumUnknowns(); ++k) {
      if (!told.Solution.Values[k]) continue;
      values[names.Force(k)] = *told.Solution.Values[k];
      values["[" + names.Force(k) + "]"] = *told.Solution.Values[k];
    }
    for (const HandStepText& text : told.Texts()) {
      for (std::size_t i = 0; i < text.Lines.size(); ++i) {
        const std::string start = "With numbers:  ";
        const std::string& line = text.Lines[i];
        const bool isFalse =
            i + 1 < text.Lines.size() && text.Lines[i + 1].find("false") != std::string::npos;
        if (!line.starts_with(start) || isFalse) continue;
        const std::size_t equals = line.find(" = ");
        const double left = ValueOf(line.substr(start.size(), equals - start.size()), values);
        const double right = ValueOf(line.substr(equals + 3), values);
        EXPECT_NEAR(left, right, 1e-5 * std::max(1000.0, std::abs(left))) << line;
        ++numRead;
      }
    }
  });
  EXPECT_GT(numRead, 250);
}

// The girder A(0, 0), B(4, 0), C(8, 0) with D(2, 3) and E(6, 3) above.
TrussBuilder Girder() {
  return TrussBuilder()
      .Member(0, 0, 4, 0, "AB")
      .Member(4, 0, 8, 0, "BC")
      .Member(0, 0, 2, 3, "AD")
      .Member(4, 0, 2, 3, "BD")
      .Member(4, 0, 6, 3, "BE")
      .Member(8, 0, 6, 3, "CE")
      .Member(2, 3, 6, 3, "DE")
      .Clamp(0, 0, "Ax", "Ay")
      .Joint(0, 0, "A")
      .Joint(4, 0, "B")
      .Joint(8, 0, "C")
      .Joint(2, 3, "D")
      .Joint(6, 3, "E");
}

TEST(HandText, NamesTheMembersThatAreNothingAlready) {
  // At H, in the middle of the line from E to G, end CH and DH; DH goes first.
  const ToldByHand told(TrussBuilder()
                            .Member(0, 0, 4, 0, "CD")
                            .Member(4, 0, 8, 0, "DE")
                            .Member(8, 0, 4, 3, "EH")
                            .Member(4, 3, 0, 6, "GH")
                            .Member(0, 0, 0, 6, "CG")
                            .Member(0, 0, 4, 3, "CH")
                            .Member(4, 0, 4, 3, "DH")
                            .Clamp(0, 0, "Cx", "Cy")
                            .Roller(8, 0, "E")
                            .Joint(4, 0, "D")
                            .Joint(4, 3, "H")
                            .Force(0, 6, 100, -1000));
  EXPECT_THAT(AllLines(told),
              HasSubstr("CH, the only other member left (DH is 0 already), carries nothing."));
  EXPECT_THAT(AllLines(told), HasSubstr("DH, the only other member, carries nothing."));
}

TEST(HandText, NamesWhatActsInLineWithAMember) {
  const Truss hung = TrussBuilder()
                         .Member(0, 0, 3, 0, "AB")
                         .Member(3, 0, 3, 2, "BC")
                         .Member(0, 0, 3, 2, "AC")
                         .Clamp(0, 0, "Ax", "Ay")
                         .Roller(3, 0, "B")
                         .Joint(3, 0, "B")
                         .Joint(3, 2, "C")
                         .Force(3, 2, 0, -50);
  EXPECT_THAT(AllLines(ToldByHand(hung)), HasSubstr("BC lies in one line with the load at joint C: AC"));
  EXPECT_THAT(AllLines(ToldByHand(hung)),
              HasSubstr("BC lies in one line with the reaction B at joint B: AB"));
}

TEST(HandText, ItsAnglesGiveTheFactorsOfItsNumbers) {
  int numAngles = 0;
  for (const int figures : {2, 4, 7}) {
    for (const float height : {3.0F, 0.001F, 1.7F, 4000.0F}) {
      const ToldByHand told(TrussBuilder()
                                .Member(0, 0, 4, height, "AB")
                                .Member(8, 0, 4, height, "BC")
                                .Clamp(0, 0, "Ax", "Ay")
                                .Clamp(8, 0, "Cx", "Cy")
                                .Force(4, height, 20, -900),
                            figures);
      const std::string all = AllLines(told);
      for (const char* function : {" sin(", " cos("}) {
        const bool isSine = function[1] == 's';
        const double rise = WrittenDifference(height, 0);
        const double factor = (isSine ? rise : 4) / std::hypot(4, rise);
        for (std::size_t at = all.find(function); at != std::string::npos; at = all.find(function, at + 1)) {
          const std::string angle = all.substr(at + 5, all.find(')', at) - at - 5);
          ASSERT_TRUE(angle.ends_with('\xB0')) << angle;
          const double radians = std::stod(angle) * std::acos(-1.0) / 180;
          EXPECT_EQ(FormatSigFigs(isSine ? std::sin(radians) : std::cos(radians), told.Format),
                    FormatSigFigs(factor, told.Format))
              << angle;
          ++numAngles;
        }
      }
    }
  }
  EXPECT_GT(numAngles, 50);
}

TEST(HandText, WritesOutHowTwoEquationsGiveTwoForces) {
  const ToldByHand told(TrussBuilder()
                            .Member(0, 0, 4, 3, "AB")
                            .Member(12, -3, 4, 3, "AC")
                            .Member(0, 0, 12, -3, "BC")
                            .Clamp(0, 0, "Bx", "By")
                            .Roller(12, -3, "C")
                            .Joint(4, 3, "A")
                            .Joint(0, 0, "B")
                            .Joint(12, -3, "C")
                            .Force(4, 3, 80, -900));
  const std::string all = AllLines(told);
  EXPECT_THAT(all, HasSubstr("What is sought to the left:  0.8 \xB7 AB - 0.8 \xB7 AC = -80  and  "
                             "0.6 \xB7 AB + 0.6 \xB7 AC = 900\n"
                             "The second times 0.8 less the first times 0.6:  0.96 \xB7 AC = 768\n"
                             "So  AC = 768 / 0.96 = 800, that is 800 C.\n"
                             "Put into the first:  0.8 \xB7 AB - 0.8 \xB7 800 = -80\n"
                             "So  AB = 560 / 0.8 = 700, that is 700 C.\n"));
}

TEST(HandText, SaysOfAReactionWhereItIsAssumedToAct) {
  const std::string all = AllLines(ToldByHand(TrussBuilder()
                                                  .Member(0, 0, 4, 3, "12")
                                                  .Member(8, 0, 4, 3, "b")
                                                  .Clamp(0, 0, "Ax", "Ay")
                                                  .Clamp(8, 0, "Cx", "Cy")
                                                  .Force(4, 3, 80, -900)));
  EXPECT_THAT(all,
              HasSubstr("Sought:  [12], assumed to push into the joint; Ax, assumed to act to the right.\n"));
}

// A nearly level member's component is its whole force within the figures shown.
TEST(HandText, LeavesOutAFactorThatWouldBeWrittenAsOne) {
  int numNearlyOne = 0;
  for (const float rise : {0.0001F, 0.001F, 0.01F, 0.02F, 0.05F, 0.1F}) {
    for (const int figures : {2, 4, 7}) {
      const ToldByHand told(TrussBuilder()
                                .Member(0, 0, 4, rise, "AB")
                                .Member(8, 0, 4, rise, "BC")
                                .Clamp(0, 0, "Ax", "Ay")
                                .Clamp(8, 0, "Cx", "Cy")
                                .Force(4, rise, 0, -900),
                            figures);
      const double cosine = 4 / std::hypot(4, WrittenDifference(rise, 0));
      numNearlyOne += FormatSigFigs(cosine, told.Format) == "1" ? 1 : 0;
      const std::string all = AllLines(told);
      for (const char* one : {" 1 \xB7 ", "(1 \xB7 ", " / 1 ", "times 1 "})
        EXPECT_THAT(all, testing::Not(HasSubstr(one))) << rise << ", " << figures;
    }
  }
  EXPECT_GT(numNearlyOne, 5);
}

TEST(HandText, SaysWhyTheWholeTrussIsLookedAtAgain) {
  const ToldByHand told(TrussBuilder()
                            .Member(0, 0, 4, 3, "AC")
                            .Member(8, 0, 4, 3, "BC")
                            .Clamp(0, 0, "Ax", "Ay")
                            .Clamp(8, 0, "Bx", "By")
                            .Force(4, 3, 80, -900));
  const std::vector<HandStepText> texts = told.Texts();
  ASSERT_GE(texts.size(), 3U);
  EXPECT_EQ(texts[0].Lines.front(), "The balance of the whole truss.");
  EXPECT_EQ(texts[2].Heading, "Reactions");
  EXPECT_EQ(texts[2].Lines.front(), "The balance of the whole truss once more, now that Ax is known.");
}

TEST(HandText, SaysHowALoadSplitsAndWhichHaveNoArm) {
  const std::string all =
      AllLines(ToldByHand(Girder().Roller(8, 0, "C").Force(6, 3, 300, -400).Force(0, 0, 7, 0)));
  EXPECT_THAT(all, HasSubstr("The load of 500 at joint E is 300 to the right and 400 down.\n"));
  EXPECT_THAT(all, HasSubstr("8 \xB7 C = 3 \xB7 300 (load at E) + 6 \xB7 400 (load at E)\n"
                             "The load at joint A acts through that point and has no arm.\n"));
  EXPECT_THAT(all, testing::Not(HasSubstr("The load of 7 ")));
}

TEST(HandText, SaysWhichComponentAForceLacks) {
  const std::string all = AllLines(ToldByHand(TrussBuilder()
                                                  .Member(0, 0, 4, 0, "AB")
                                                  .Clamp(0, 0, "Ax", "Ay")
                                                  .Clamp(4, 0, "Bx", "By")
                                                  .Member(4, 0, 8, 0, "BC")
                                                  .Force(8, 0, 3, -900)));
  EXPECT_THAT(all, HasSubstr("no vertical component"));
  EXPECT_THAT(all, testing::Not(HasSubstr("across its line")));
}

// Four reactions: of three equations the sums across give one.
TEST(HandText, SaysWhichReactionsTheWholeTrussDoesNotGive) {
  const TrussBuilder beam = TrussBuilder()
                                .Member(0, 0, 4, 0)
                                .Member(4, 0, 8, 0)
                                .Member(0, 0, 2, 3)
                                .Member(2, 3, 4, 0)
                                .Member(4, 0, 6, 3)
                                .Member(6, 3, 8, 0)
                                .Clamp(0, 0, "Ax", "Ay")
                                .Roller(4, 0, "RB")
                                .Roller(8, 0, "RC")
                                .Force(2, 3, 0, -500)
                                .Force(6, 3, 0, -300);
  const std::vector<HandStepText> texts = ToldByHand(beam).Texts();
  ASSERT_EQ(texts.front().Heading, "Reactions");
  EXPECT_EQ(texts.front().Lines.back(),
            "This balance does not give Ay, RB and RC: none of its equations holds only one of them.  The "
            "joints and sections that follow may give them.");
  for (const HandStepText& text : ToldByHand(HandTriangle()).Texts())
    EXPECT_THAT(text.Lines, testing::Not(testing::Contains(HasSubstr("does not give"))));
}

TEST(HandText, PutsNamesThatReadLikeNumbersInBrackets) {
  const std::string all = AllLines(ToldByHand(TrussBuilder()
                                                  .Member(0, 0, 4, 3, "12")
                                                  .Member(8, 0, 4, 3, "b")
                                                  .Clamp(0, 0, "Ax", "Ay")
                                                  .Clamp(8, 0, "Cx", "Cy")
                                                  .Force(4, 3, 80, -900)));
  EXPECT_THAT(all, HasSubstr("0.6 \xB7 [12]\n"));
  EXPECT_THAT(all, HasSubstr("Sought:  [12], assumed")) << "in sentences as in equations";
  EXPECT_THAT(all, HasSubstr("0.8 \xB7 b\n"));
}

// A name stands everywhere as it stands in an equation.
TEST(HandText, WritesANameTheSameWayInEverySentence) {
  const ToldByHand told(HandTriangle(
      {.AB = "lower, long", .AC = "<i>l</i>", .BC = "a-b", .Ax = "R x", .Ay = "&amp;", .A = "left end"}));
  std::string all = AllLines(told);
  for (const HandStepText& step : told.Texts()) all += step.Heading + '\n';
  for (const std::string name : {"lower, long", "<i>l</i>", "a-b", "R x", "&amp;", "left end"}) {
    int count = 0;
    for (std::size_t at = all.find(name); at != std::string::npos; at = all.find(name, at + 1)) {
      ++count;
      EXPECT_EQ(all.substr(at - 1, name.size() + 2), '[' + name + ']');
    }
    EXPECT_GT(count, 1) << name;
  }
}

TEST(HandText, SaysWhereTheReducedMatrixDoesNotSeeAContradiction) {
  const std::vector<std::string> hexagon = ToldByHand(HandHexagon(5)).Closing();
  EXPECT_EQ(hexagon.back(),
            "The reduced matrix does not say so, because its directions are rounded to single precision: "
            "exactly, the solutions that it gives balance nothing.  See \"Why this conclusion\".");
  const std::vector<std::string> loose =
      ToldByHand(TrussBuilder().Member(0, 0, 4, 0, "m").Clamp(0, 0, "x", "y").Force(4, 0, 0, -5)).Closing();
  EXPECT_THAT(loose, testing::Each(testing::Not(HasSubstr("reduced matrix")))) << "it says the same";
}

// Steps as they could be found, of the triangle: Ax, Ay and B are its forces 1 to 3, AB, AC and BC 4 to 6.
class HandTextOfAStep : public testing::Test {
 protected:
  std::vector<std::string> Lines(const HandStep& step) const { return Text(step).Lines; }
  HandStepText Text(const HandStep& step) const {
    return HandText(told_.Graph, told_.Solution, told_.Format).Step(step);
  }

  ToldByHand told_{Truss(HandTriangle())};
};

TEST_F(HandTextOfAStep, EquationsSolvedTogetherTellHowManyForcesTheyGive) {
  HandStep step{.Kind = HandStepKind::Together, .Joints = {1, 2}, .Unknowns = {4, 5}};
  EXPECT_THAT(Text(step).Heading, testing::EndsWith(" unknown forces together"));
  EXPECT_THAT(Lines(step).front(), HasSubstr("must be solved together for AB and AC, as the matrix does."));
  step.Solved = {{5, -12.5}};
  EXPECT_EQ(Lines(step).size(), 3U);
  EXPECT_THAT(Lines(step)[1],
              testing::AllOf(testing::StartsWith("They determine "), testing::EndsWith(" force.")));
  EXPECT_THAT(Lines(step)[2], testing::StartsWith("AC"));
  step.Solved = {{4, 3}, {5, -12.5}};
  EXPECT_EQ(Lines(step).size(), 3U);
  EXPECT_THAT(Lines(step)[1], testing::StartsWith("AB"));
  step.Contradicts = true;
  EXPECT_EQ(Lines(step).back(), "These equations contradict each other: no forces balance the loads.");
  EXPECT_EQ(Lines(step).size(), 2U);
}

TEST_F(HandTextOfAStep, WhatIsPutAsideIsToldWithItsReason) {
  HandStep step{
      .Kind = HandStepKind::Section, .Equations = {{.Kind = BalanceKind::X}}, .Joints = {1}, .Cut = {4, 5}};
  const auto aside = [&](BalanceKind kind, const std::vector<int>& forces) {
    step.Equations.front().Kind = kind;
    step.PutAside = forces;
    return Lines(step)[1];
  };
  EXPECT_EQ(aside(BalanceKind::X, {5}), "AC has no horizontal component.");
  EXPECT_EQ(aside(BalanceKind::Y, {5}), "AC has no vertical component.");
  EXPECT_EQ(aside(BalanceKind::Y, {4, 5}), "AB and AC lie in one direction and have no vertical component.");
  EXPECT_THAT(aside(BalanceKind::Moment, {5}), testing::StartsWith("AC passes through "));
  EXPECT_THAT(aside(BalanceKind::Moment, {4, 5}), testing::StartsWith("AB and AC meet in "));
}

TEST_F(HandTextOfAStep, APartWithoutACutIsLookedAtAsItIs) {
  const HandStep step{.Kind = HandStepKind::Section, .Joints = {1, 2}};
  EXPECT_EQ(Text(step).Heading, "Part of the truss");
  EXPECT_EQ(Lines(step).front(), "The part with joints A and B is looked at.");
}

TEST_F(HandTextOfAStep, TheBalanceOfAPartIsSaidToBeOne) {
  HandStep step{.Kind = HandStepKind::Reactions, .Joints = {1, 2, 3}};
  EXPECT_EQ(Lines(step).front(), "The balance of the whole truss.");
  step.Joints = {1, 2};
  step.StillSought = {3};
  EXPECT_EQ(Lines(step).front(), "The balance of the part with joints A and B.");
  EXPECT_EQ(Lines(step).back(),
            "This balance does not give B yet.  The joints and sections that follow may give it.");
  step.StillSought = {2, 3};
  EXPECT_THAT(Lines(step).back(), testing::StartsWith("This balance does not give Ay and B: none of"));
}

TEST_F(HandTextOfAStep, AMemberBesideSeveralInLineWithALoadCarriesNothing) {
  const HandStep step{.Kind = HandStepKind::ZeroForce,
                      .Joint = 3,
                      .Solved = {{6, 0}},
                      .Rule = ZeroRule::LoadAlongOne,
                      .InLine = {4, 5}};
  EXPECT_EQ(Text(step).Heading, "Nothing in BC");
  EXPECT_EQ(
      Lines(step).front(),
      "AB and AC lie in one line with the load at joint C: BC, the only other member, carries nothing.");
}

TEST(HandText, TellsTheFirstOfManyLoadsInTheirComponents) {
  TrussBuilder fan = HandTriangle();
  for (int i = 1; i <= 13; ++i) fan.Force(4, 4, static_cast<float>(3 * i), static_cast<float>(-4 * i));
  const std::string all = AllLines(ToldByHand(fan));
  EXPECT_THAT(all, HasSubstr("; so do the others have two components."));
  EXPECT_THAT(all, HasSubstr("of 60 at joint C is 36 to the right and 48 down"));
  EXPECT_THAT(all, testing::Not(HasSubstr("of 65 at joint C"))) << "the thirteenth";
}

}  // namespace
