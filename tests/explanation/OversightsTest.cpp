// What is said first of a truss that moves: what its author most likely overlooked, and what holds it.
#include <gmock/gmock.h>

#include "ExplanationFixture.h"
#include "explanation/Explanation.h"
#include "explanation/ExplanationText.h"
#include "explanation/HoldingSet.h"
#include "explanation/WhyText.h"

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

Explanation ExplainDrawing(Truss truss) {
  truss.View.YMax = 15;
  const TrussAnalysis analysis = SolveTruss(truss);
  return ExplainTruss(truss, analysis);
}

std::string HelpFor(const Truss& truss) {
  std::string text;
  for (const ExplanationSection& section : ExplanationText(ExplainDrawing(truss), {})) {
    if (section.Heading != std::string("What would help:") &&
        section.Heading != std::string("What may be a slip of the drawing:"))
      continue;
    for (const std::string& paragraph : section.Paragraphs) text += paragraph + "\n";
  }
  return text;
}

std::string WholeText(const Truss& truss) {
  std::string text;
  for (const WhyLine& line : WhyText(ExplainDrawing(truss), {})) text += line.Text + '\n';
  return text;
}

// A girder whose lower chord is A, B, C, without its supports and the chord.
TrussBuilder ThreeJointGirder() {
  return TrussBuilder()
      .Member(0, 0, 2, 3, "AD")
      .Member(4, 0, 2, 3, "BD")
      .Member(4, 0, 6, 3, "BE")
      .Member(8, 0, 6, 3, "CE")
      .Member(2, 3, 6, 3, "DE")
      .Joint(0, 0, "A")
      .Joint(4, 0, "B")
      .Joint(8, 0, "C")
      .Joint(2, 3, "D")
      .Joint(6, 3, "E");
}

TrussBuilder WholeGirder() { return ThreeJointGirder().Member(0, 0, 4, 0, "AB").Member(4, 0, 8, 0, "BC"); }

TEST(Oversights, AMemberAcrossAJointIsDrawnInTwoParts) {
  const std::string text = HelpFor(ThreeJointGirder()
                                       .Member(8, 0, 0, 0, "AC")
                                       .Clamp(0, 0, "Ax", "Ay")
                                       .Roller(8, 0, "C")
                                       .Force(4, 0, 0, -1000));
  EXPECT_THAT(text,
              StartsWith("Member AC passes joint B at (4, 0) without ending there.  Draw it as two members "
                         "that end there, C to B and B to A: then nothing can move any more.\nIf the drawing "
                         "is to stay as it is: each"));
}

TEST(Oversights, AMemberAcrossTwoJointsIsDrawnInThree) {
  const std::string text = HelpFor(TrussBuilder()
                                       .Member(0, 0, 9, 0, "chord")
                                       .Member(3, 0, 4, 3)
                                       .Member(6, 0, 4, 3)
                                       .Member(0, 0, 4, 3)
                                       .Clamp(0, 0)
                                       .Roller(9, 0));
  EXPECT_THAT(
      text, HasSubstr("passes joints (3, 0) and (6, 0) without ending there.  Draw it as 3 members that end "
                      "there, (0, 0) to (3, 0), (3, 0) to (6, 0) and (6, 0) to (9, 0)"));
}

int TimesTold(const std::string& text, const std::string& words) {
  int times = 0;
  for (std::size_t at = text.find(words); at != std::string::npos; at = text.find(words, at + 1)) ++times;
  return times;
}

// Posts that stand on the middle of a member, and loads in the air, side by side.
TEST(Oversights, OfManySlipsAsManyAreToldAsAreAdvised) {
  constexpr int numSlips = MostAdvice + 2;
  TrussBuilder posts;
  TrussBuilder loads = TrussBuilder().Member(0, 0, 4, 0).Clamp(0, 0).Roller(4, 0);
  for (int i = 0; i < numSlips; ++i) {
    const auto x = static_cast<float>(10 * i);
    posts.Member(x, 0, x + 4, 0).Member(x + 2, 0, x + 2, 3);
    loads.Force(x, 5, 0, -1000);
  }
  EXPECT_EQ(TimesTold(HelpFor(posts), "without ending there.  Draw it as two members"), MostAdvice);
  EXPECT_EQ(TimesTold(HelpFor(loads), "acts on no member"), MostAdvice);
}

TEST(Oversights, AMemberIsNotSplitWhereNothingMoves) {
  EXPECT_EQ(HelpFor(WholeGirder().Member(0, 0, 8, 0, "AC").Clamp(0, 0).Roller(8, 0)), "");
}

TEST(Oversights, OfTwoRollersOneBecomesAClamp) {
  for (const float sideways : {0.0F, 300.0F}) {
    EXPECT_THAT(HelpFor(WholeGirder().Roller(0, 0, "A").Roller(8, 0, "C").Force(6, 3, sideways, -1000)),
                StartsWith("Put a clamp in place of the roller at joint A, or of the one at joint C: then "
                           "nothing can move any more.\nOtherwise each of these"));
  }
  EXPECT_THAT(HelpFor(WholeGirder().Clamp(4, 0)), Not(HasSubstr("clamp in place of"))) << "no roller";
}

TEST(Oversights, ATrussWithoutSupportsGetsAClampAndARoller) {
  EXPECT_THAT(
      HelpFor(WholeGirder().Force(6, 3, 0, -1000)),
      AllOf(
          StartsWith("For example a clamp at joint A and a roller at joint C that holds it up and down: then "
                     "nothing can move any more.\nOtherwise each of these, added alone, stops one motion"),
          HasSubstr("With 3 motions it takes 3 of them or more to hold it.")));
  EXPECT_THAT(HelpFor(TrussBuilder().Member(1, 0, 1, 5).Joint(1, 0, "foot").Joint(1, 5, "head")),
              HasSubstr("a roller at joint head that holds it sideways"));
  // Without the chord it takes more.
  EXPECT_THAT(HelpFor(ThreeJointGirder()),
              AllOf(StartsWith("Each of these, added alone, stops one motion"),
                    HasSubstr("Together these are enough: a clamp at joint A; a roller at joint C that holds "
                              "it up and down; ")));
}

// Its verdict says it; the advice takes that up and does not say it again.
TEST(Oversights, ThatATrussHasNoSupportsIsToldOnce) {
  for (const TrussBuilder& builder :
       {WholeGirder().Force(6, 3, 0, -1000), ThreeJointGirder(), WholeGirder()}) {
    const std::string text = WholeText(builder);
    const std::size_t first = text.find("no supports");
    ASSERT_NE(first, std::string::npos);
    EXPECT_EQ(text.find("no supports", first + 1), std::string::npos) << text;
    const std::size_t holds = text.find("would hold it");
    if (holds != std::string::npos) {
      EXPECT_EQ(text.find("would hold it", holds + 1), std::string::npos) << text;
    }
  }
}

TEST(Oversights, OneAdditionIsNotSpokenOfAsSeveral) {
  EXPECT_EQ(
      HelpFor(TrussBuilder().Member(0, 0, 2, 0).Member(2, 0, 4, 0).Clamp(0, 0).Clamp(4, 0).Joint(2, 0, "C")),
      "This, added alone, stops the motion: a roller at joint C that holds it up and down.\n");
}

TEST(Oversights, AMemberWithoutLengthIsToErase) {
  const std::string text = WholeText(WholeGirder().Member(6, 3, 6, 3, "nothing").Clamp(0, 0).Roller(8, 0));
  EXPECT_THAT(text,
              HasSubstr("Member nothing begins and ends at joint E: it has no length, holds nothing and "
                        "stands in no equation.  Erase it: that takes away one state of self-stress and "
                        "changes nothing else."));
  EXPECT_THAT(text, AllOf(Not(HasSubstr("What may be left out")), Not(HasSubstr("under stress"))));
}

TEST(Oversights, AMemberDrawnTwiceIsToldOnce) {
  const std::string text = WholeText(WholeGirder().Member(0, 0, 4, 0, "again").Clamp(0, 0).Roller(8, 0));
  EXPECT_THAT(text, AllOf(HasSubstr("lie on one another"), Not(HasSubstr("What may be left out"))));
}

// Beside a truss that stands, a triangle hangs on a clamp of its own.
TEST(Oversights, APartThatStandsApartIsOfferedASupport) {
  EXPECT_THAT(HelpFor(WholeGirder()
                          .Clamp(0, 0)
                          .Roller(8, 0)
                          .Member(20, 0, 24, 0)
                          .Member(20, 0, 22, 3)
                          .Member(24, 0, 22, 3)
                          .Clamp(20, 0)
                          .Joint(24, 0, "end")
                          .Joint(22, 3, "top")),
              AllOf(StartsWith("Each of these, added alone, stops the motion"),
                    HasSubstr(": a roller at joint end that holds it up and down; a member between ")));
}

TEST(Oversights, AnEndBesideAMembersOwnEndIsJoinedAndTheMemberNotSplit) {
  // The strut ends 0.3 beside the foot, where the mouse would join them, and so on one of the chord's
  // members.
  const std::string text = HelpFor(ThreeJointGirder()
                                       .Member(0, 0, 4, 0, "AB")
                                       .Member(4, 0, 8, 0, "BC")
                                       .Member(6, 3, 7.7F, 0, "strut")
                                       .Clamp(0, 0)
                                       .Roller(8, 0));
  EXPECT_THAT(text, AllOf(HasSubstr("nearly meet"), Not(HasSubstr("without ending there"))));
}

TEST(Oversights, AForceOffTheTrussIsMovedAndNoMemberIsHungInTheAir) {
  const TrussBuilder loaded =
      WholeGirder().Clamp(0, 0).Roller(8, 0).Force(5, 1, 0, -700).Force(2, 0, 0, -500).Force(6, 3, 0, -1000);
  const std::string text = HelpFor(loaded);
  EXPECT_THAT(
      text, StartsWith("The force at (5, 1) acts on no member.  Move the force to a joint where members end: "
                       "that stops 2 of the 4 motions.\nThe force at (2, 0)"));
  EXPECT_THAT(text, Not(HasSubstr("between joints (2, 0) and (5, 1)")));
  EXPECT_THAT(text, Not(HasSubstr("between joints (5, 1) and (2, 0)")));
}

TEST(Oversights, AreFollowedExactlyAsFarAsIsSaid) {
  std::mt19937 random(5);
  int numSets = 0;
  for (int i = 0; i < 200; ++i) {
    const TrussGraph graph = GraphOf(RandomSmallTruss(random, 7, 4));
    if (graph.NumUnknowns() == 0) continue;
    const ExactReasons reasons = ReasonExactly(graph);
    const std::vector<Advice> set = SetThatHolds(graph, reasons, {});
    if (set.empty()) continue;
    ++numSets;
    EXPECT_EQ(static_cast<int>(set.size()), reasons.Verdict.Mechanisms());
    TrussGraph with = graph;
    for (const Advice& advice : set) {
      with.Unknowns.Resize(with.NumUnknowns() + 1);
      with.Unknowns[with.NumUnknowns()] = {
          .JointA = advice.JointA, .JointB = advice.JointB, .Along = advice.Along};
    }
    EXPECT_EQ(JudgeExactly(with).Mechanisms(), 0) << "truss " << i;
  }
  EXPECT_GT(numSets, 50);
}

TEST(Oversights, OfOneMotionNoSetIsNeeded) {
  const Explanation explanation = ExplainDrawing(WholeGirder().Roller(0, 0).Roller(8, 0));
  EXPECT_THAT(explanation.Together, IsEmpty());
}

}  // namespace
