// What is told of a truss beyond its verdict: the proof, the advice, what rounding has to do with it.
#include "explanation/Explanation.h"

#include <cmath>
#include <map>

#include "ExplanationFixture.h"
#include "explanation/ExplanationText.h"
#include "explanation/RigidityMatrix.h"
#include "explanation/RoundingText.h"
#include "support/HowMany.h"

namespace {

using testing::AnyOf;
using testing::Contains;
using testing::ElementsAre;
using testing::Field;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::Optional;

Explanation Explain(Truss truss) {
  const TrussAnalysis analysis = SolveTruss(truss);
  return ExplainTruss(truss, analysis);
}

std::string TextOf(const Explanation& explanation) {
  std::string text;
  for (const ExplanationSection& section : ExplanationText(explanation, {})) {
    text += section.Heading + '\n';
    for (const std::string& paragraph : section.Paragraphs) text += paragraph + '\n';
  }
  return text;
}

// A rope that hangs straight, whose reduced matrix contradicts itself by a remnant of rounding.
Truss ObliqueTie() {
  return TrussBuilder()
      .Member(0, 0, 1, 3, "AB")
      .Clamp(0, 0, "Ax", "Ay")
      .Force(1, 3, 100, 300)
      .Joint(0, 0, "A")
      .Joint(1, 3, "B");
}

// A parallelogram on two clamps under a load to the right.
TrussBuilder Parallelogram() {
  return TrussBuilder()
      .Member(0, 0, 1, 2, "a")
      .Member(4, 0, 5, 2, "b")
      .Member(1, 2, 5, 2, "c")
      .Clamp(0, 0, "x1", "y1")
      .Clamp(4, 0, "x2", "y2")
      .Joint(1, 2, "P")
      .Joint(5, 2, "Q");
}

TEST(ContradictionProof, CancelsOnTheLeftAndNotOnTheRight) {
  std::mt19937 random(4);
  int numProofs = 0;
  for (int i = 0; i < HowMany(2000, 1000); ++i) {
    const Explanation explanation = Explain(RandomSmallTruss(random, 7, 6));
    ASSERT_EQ(explanation.Proof.has_value(), explanation.Exact.Verdict.Code() == Outcome::Inconsistent);
    if (!explanation.Proof) continue;
    ++numProofs;
    const TrussGraph& graph = explanation.Graph;
    const SparseMatrix<double> rigidity = RigidityRows(graph);
    const std::vector<double> loads = LoadVector(graph);
    std::map<int, double> factors;
    double sum = 0;
    for (const WeightedEquation& equation : explanation.Proof->Equations) {
      const int column = ColumnOf(equation.Joint, equation.Along);
      factors[column] = equation.Factor;
      sum -= equation.Factor * loads[static_cast<std::size_t>(column)];
    }
    EXPECT_GT(explanation.Proof->Sum, 0);
    EXPECT_NEAR(sum, explanation.Proof->Sum, 1e-9 * std::abs(sum));
    for (int k = 1; k <= graph.NumUnknowns(); ++k) {
      double left = 0;
      double size = 0;
      for (const auto& [column, value] : rigidity.Row(k)) {
        left += factors[column - 1] * value;
        size += std::abs(factors[column - 1] * value);
      }
      EXPECT_LE(std::abs(left), 1e-9 * size) << "truss " << i << ", unknown " << k;
    }
  }
  EXPECT_GT(numProofs, 300);
}

TEST(ContradictionProof, HasSmallWholeFactorsWhereThereAreSuch) {
  const Explanation explanation = Explain(Parallelogram().Force(1, 2, 1000, 0));
  ASSERT_TRUE(explanation.Proof);
  EXPECT_TRUE(explanation.Proof->IsWhole);
  EXPECT_EQ(explanation.Proof->Sum, 2000);
  std::map<std::pair<std::string, Axis>, double> factors;
  for (const WeightedEquation& equation : explanation.Proof->Equations) {
    factors[{explanation.Graph.Joints[equation.Joint].Name, equation.Along}] = equation.Factor;
  }
  const std::map<std::pair<std::string, Axis>, double> expected = {
      {{"P", Axis::X}, -2}, {{"P", Axis::Y}, 1}, {{"Q", Axis::X}, -2}, {{"Q", Axis::Y}, 1}};
  EXPECT_EQ(factors, expected);
  EXPECT_THAT(TextOf(explanation), HasSubstr("add up to 0 on the left and to 2000 on the right"));
}

__extension__ using Wide128 = __int128;

// A number as its shortest decimal says it, in units of a ten thousandth.
std::int64_t TenThousandths(float value) { return std::llround(double{value} * 10000); }

// Coordinates with many figures: the factors are no small whole numbers, and cancel to the last digit.
TEST(ContradictionProof, CancelsExactlyAlsoWhereItsFactorsAreLarge) {
  std::mt19937 random(91);
  int numLarge = 0;
  for (int i = 0; i < 60; ++i) {
    const auto place = [&random](int from) {
      return static_cast<float>(10000 * from + 1 + 2 * Below(random, 4000)) / 10000.0F;
    };
    const float px = place(1);
    const float py = place(2);
    const float qx = place(5);
    const float qy = place(2);
    const Explanation explanation = Explain(TrussBuilder()
                                                .Member(0, 0, px, py)
                                                .Member(4, 0, qx, qy)
                                                .Member(px, py, qx, qy)
                                                .Clamp(0, 0)
                                                .Clamp(4, 0)
                                                .Force(px, py, 1000, 0));
    ASSERT_TRUE(explanation.Proof);
    EXPECT_TRUE(explanation.Proof->IsExact);
    numLarge += explanation.Proof->IsWhole ? 0 : 1;
    std::map<int, Wide128> factors;
    for (const WeightedEquation& equation : explanation.Proof->Equations) {
      EXPECT_LE(std::abs(equation.Factor), explanation.Proof->IsWhole ? 9999 : 2);
      const double scaled = std::ldexp(equation.Factor, 60);
      factors[ColumnOf(equation.Joint, equation.Along)] = static_cast<Wide128>(scaled);
    }
    const TrussGraph& graph = explanation.Graph;
    for (const PlacedUnknown& member : graph.Unknowns.First(graph.NumUnknowns())) {
      if (!member.IsMember()) continue;
      const PlacedJoint& a = graph.Joints[member.JointA];
      const PlacedJoint& b = graph.Joints[member.JointB];
      const std::int64_t dx = TenThousandths(a.X) - TenThousandths(b.X);
      const std::int64_t dy = TenThousandths(a.Y) - TenThousandths(b.Y);
      const Wide128 sum =
          dx * (factors[ColumnOf(member.JointA, Axis::X)] - factors[ColumnOf(member.JointB, Axis::X)]) +
          dy * (factors[ColumnOf(member.JointA, Axis::Y)] - factors[ColumnOf(member.JointB, Axis::Y)]);
      EXPECT_TRUE(sum == 0) << "truss " << i;
    }
  }
  EXPECT_GT(numLarge, 50);
}

// Follows what is told in words only.
void Follow(TrussGraph& graph, const Advice& advice) {
  const auto add = [&graph](const PlacedUnknown& unknown) {
    graph.Unknowns.Resize(graph.NumUnknowns() + 1);
    graph.Unknowns[graph.NumUnknowns()] = unknown;
  };
  switch (advice.Kind) {
    case AdviceKind::MoveForce:
      // Nothing acts on the joint then, and it is no longer there: as if it stood on a clamp.
      add({.JointA = advice.JointA, .Along = Axis::X});
      add({.JointA = advice.JointA, .Along = Axis::Y});
      break;
    case AdviceKind::SplitMember: {
      const PlacedUnknown member = graph.Unknowns[advice.Unknown];
      std::vector<int> ends = {member.JointA};
      ends.insert(ends.end(), advice.Through.begin(), advice.Through.end());
      ends.push_back(member.JointB);
      graph.Unknowns[advice.Unknown].JointB = ends[1];
      for (std::size_t i = 1; i + 1 < ends.size(); ++i) add({.JointA = ends[i], .JointB = ends[i + 1]});
      break;
    }
    case AdviceKind::ClampForRoller:
      EXPECT_NE(graph.Unknowns[advice.Unknown].Along, advice.Along);
      add({.JointA = graph.Unknowns[advice.Unknown].JointA, .Along = advice.Along});
      break;
    case AdviceKind::JoinEnds:
      for (PlacedUnknown& unknown : graph.Unknowns.First(graph.NumUnknowns())) {
        if (unknown.JointA == advice.JointB) unknown.JointA = advice.JointA;
        if (unknown.JointB == advice.JointB) unknown.JointB = advice.JointA;
      }
      add({.JointA = advice.JointB, .Along = Axis::X});
      add({.JointA = advice.JointB, .Along = Axis::Y});
      break;
    case AdviceKind::TurnRoller:
      graph.Unknowns[advice.Unknown].Along = advice.Along;
      break;
    case AdviceKind::AddMember:
    case AdviceKind::AddRoller:
    case AdviceKind::Remove:
      FAIL() << "told in the JSON too";
  }
}

TEST(ExplanationAdvice, IsFollowedBeforeItIsGiven) {
  std::mt19937 random(5);
  int numPieces = 0;
  std::map<AdviceKind, int> toldInWords;
  for (int i = 0; i < 500; ++i) {
    const Explanation explanation = Explain(RandomSmallTruss(random, 8, 6));
    const ExactVerdict& verdict = explanation.Exact.Verdict;
    int additions = 0;
    for (const Advice& advice : explanation.Suggestions) {
      ++numPieces;
      TrussGraph graph = explanation.Graph;
      if (advice.Kind == AdviceKind::Remove) {
        graph.Unknowns[advice.Unknown] = {.JointA = 1, .Sign = 0};
        EXPECT_EQ(JudgeExactly(graph).Mechanisms(), verdict.Mechanisms());
        EXPECT_FALSE(std::ranges::binary_search(verdict.Determined, advice.Unknown));
        continue;
      }
      if (!advice.IsAddition()) {
        ++toldInWords[advice.Kind];
        Follow(graph, advice);
        EXPECT_EQ(JudgeExactly(graph).Mechanisms(), verdict.Mechanisms() - advice.Stops) << "truss " << i;
        EXPECT_GT(advice.Stops, 0);
        continue;
      }
      ++additions;
      graph.Unknowns.Resize(graph.NumUnknowns() + 1);
      graph.Unknowns[graph.NumUnknowns()] = {
          .JointA = advice.JointA, .JointB = advice.JointB, .Along = advice.Along};
      EXPECT_EQ(JudgeExactly(graph).Mechanisms(), verdict.Mechanisms() - 1);
    }
    EXPECT_LE(additions, MostAdvice);
    EXPECT_EQ(additions > 0, verdict.Mechanisms() > 0) << "truss " << i;
  }
  EXPECT_GT(numPieces, 500);
  for (const AdviceKind kind :
       {AdviceKind::MoveForce, AdviceKind::SplitMember, AdviceKind::ClampForRoller, AdviceKind::TurnRoller})
    EXPECT_GT(toldInWords[kind], 5) << static_cast<int>(kind);
}

TEST(ExplanationAdvice, TellsEndsToBeJoinedRollersToBeTurnedAndWhatMayGoEachInItsPlace) {
  const std::string nearFoot = TextOf(Explain(TrussBuilder()
                                                  .Member(0, 0, 4, 0)
                                                  .Member(4, 0, 8, 0)
                                                  .Member(0, 0, 4, 3)
                                                  .Member(8, 0, 4, 3)
                                                  .Member(4, 3, 4.02F, 0)
                                                  .Clamp(0, 0)
                                                  .Roller(8, 0)
                                                  .Joint(4, 0, "D")
                                                  .Joint(4.02F, 0, "E")));
  EXPECT_THAT(
      nearFoot,
      AllOf(HasSubstr("What may be a slip of the drawing:\nJoints D at (4, 0) and E at (4.02, 0) nearly "
                      "meet.  Draw them to one place: then nothing can move any more.\nHow it can move:"),
            HasSubstr("What would help:\nIf the drawing is to stay as it is: each of these, added")));
  const std::string wrongRoller = TextOf(Explain(TrussBuilder()
                                                     .Member(0, 0, 4, 0, "c")
                                                     .Member(4, 0, 2, 3)
                                                     .Member(2, 3, 0, 0)
                                                     .Clamp(0, 0, "Ax", "Ay")
                                                     .Roller(4, 0, "R", 8)
                                                     .Joint(4, 0, "B")));
  EXPECT_THAT(
      wrongRoller,
      HasSubstr("What would help:\nIt is enough to turn a roller: the one at joint B, so that it holds "
                "it up and down.  Then nothing can move any more.\nOtherwise each of"));
  EXPECT_THAT(wrongRoller, HasSubstr("What may be left out:\nEach of these, left out alone"));
  const std::string twoMotions =
      TextOf(Explain(TrussBuilder().Member(0, 0, 4, 0).Member(4, 0, 8, 0).Clamp(0, 0).Roller(8, 0, "R", 8)));
  EXPECT_THAT(twoMotions, HasSubstr("Turn a roller: the one at the joint at (8, 0), so that it holds it up "
                                    "and down.  That stops one of the 2 motions."));
}

TEST(ExplanationText, SaysWhatAForceDensityIsWhereItFirstSpeaksOfOne) {
  // Written out, and where it is too long for that.
  for (const int numPanels : {1, 9}) {
    TrussBuilder builder;
    for (int i = 0; i <= numPanels; ++i) {
      const auto x = static_cast<float>(2 * i);
      builder.Clamp(x, 0).Member(x, 0, x, 2);
      if (i > 0) builder.Member(x - 2, 2, x, 2);
    }
    const std::string text = TextOf(Explain(builder.Force(0, 2, 5, 0)));
    EXPECT_EQ(text.find("Written with force densities") != std::string::npos, numPanels == 1);
    const std::size_t first = text.find("force densities");
    ASSERT_NE(first, std::string::npos);
    EXPECT_EQ(text.find("(force divided by length", first), first + 16);
    EXPECT_EQ(text.find("(force divided by length", first + 20), std::string::npos) << "once is enough";
  }
}

TEST(ExplanationText, AMemberDrawnTwiceIsASlip) {
  const auto tied = [] { return TrussBuilder().Member(0, 0, 4, 0, "tie").Clamp(0, 0).Roller(4, 0); };
  EXPECT_THAT(
      TextOf(Explain(tied().Member(4, 0, 0, 0, "twin").Joint(0, 0, "A").Joint(4, 0, "B"))),
      HasSubstr("What may be a slip of the drawing:\nMembers tie and twin lie on one another, from A to B.  "
                "If one was drawn twice, erase the other: that takes away one state of self-stress"));
  EXPECT_THAT(TextOf(Explain(tied().Member(0, 0, 4, 3).Member(4, 3, 4, 0).Clamp(4, 0))),
              Not(HasSubstr("twice")));
}

TEST(ExplanationAdvice, ForAParallelogramIsADiagonal) {
  const Explanation explanation = Explain(Parallelogram());
  EXPECT_THAT(TextOf(explanation), HasSubstr("a member between joints"));
}

TEST(DrawnFigures, AnObliqueTieHoldsThoughItsMatrixContradicts) {
  const Explanation explanation = Explain(ObliqueTie());
  EXPECT_EQ(explanation.Rounded.Shown, Outcome::Inconsistent);
  EXPECT_EQ(explanation.Exact.Verdict.Code(), Outcome::Redundant);
  EXPECT_EQ(explanation.Rounded.Figures.Within, Outcome::Redundant);
  EXPECT_FALSE(explanation.Rounded.Agrees());
  EXPECT_NEAR(explanation.Rounded.Remnant, 3.141e-6, 1e-9);
  EXPECT_THAT(RoundingNotice(explanation.Graph, explanation.Rounded, {}), HasSubstr("3.141E-6"));
}

TEST(DrawnFigures, ATieTypedInPolarFormContradictsOnlyBeyondItsFigures) {
  const auto x = static_cast<float>(5 * std::cos(37 * 3.141592654 / 180));
  const auto y = static_cast<float>(5 * std::sin(37 * 3.141592654 / 180));
  const Explanation explanation =
      Explain(TrussBuilder().Member(0, 0, x, y).Clamp(0, 0).Force(x, y, 200 * x, 200 * y));
  EXPECT_EQ(explanation.Exact.Verdict.Code(), Outcome::Inconsistent);
  EXPECT_EQ(explanation.Rounded.Figures.Within, Outcome::Redundant);
  EXPECT_THAT(RoundingNotice(explanation.Graph, explanation.Rounded, {}),
              HasSubstr("a millionth counts as nothing"));
}

TEST(ExplanationText, NoForceIsDeterminedWhereNoneBalanceTheLoads) {
  // A parallelogram with a member twice: it sways under its load, and the double member has a self-stress.
  const Explanation explanation = Explain(Parallelogram().Member(1, 2, 5, 2, "d").Force(1, 2, 1000, 0));
  EXPECT_EQ(explanation.Exact.Verdict.Code(), Outcome::Inconsistent);
  EXPECT_GT(explanation.Exact.Verdict.SelfStresses(), 0);
  EXPECT_THAT(TextOf(explanation), Not(HasSubstr("Determined whatever")));
  EXPECT_THAT(TextOf(Explain(Parallelogram().Member(1, 2, 5, 2, "d"))), HasSubstr("Determined whatever"));
}

TEST(DrawnFigures, AHiddenMechanismIsFoundBehindGiantForces) {
  // The joint (1, 3) lies on the line of the clamps; rounded directions let it seem to be off it.
  const Explanation explanation = Explain(
      TrussBuilder().Member(0, 0, 1, 3).Member(1, 3, 4, 12).Clamp(0, 0).Clamp(4, 12).Force(1, 3, 0, -1000));
  EXPECT_EQ(explanation.Rounded.Shown, Outcome::Neither);
  EXPECT_EQ(explanation.Exact.Verdict.Code(), Outcome::Inconsistent);
  EXPECT_EQ(explanation.Rounded.Figures.Within, Outcome::Inconsistent);
  EXPECT_THAT(RoundingNotice(explanation.Graph, explanation.Rounded, {}),
              HasSubstr("Exactly, the system has no solution"));
}

TEST(DrawnFigures, NearlyAMechanismIsSaidWithTheMotionThatIsNearlyFree) {
  const Explanation explanation = Explain(TrussBuilder()
                                              .Member(0, 0, 2, 0.0001F)
                                              .Member(2, 0.0001F, 4, 0)
                                              .Clamp(0, 0)
                                              .Clamp(4, 0)
                                              .Force(2, 0.0001F, 0, -1000)
                                              .Joint(2, 0.0001F, "top"));
  EXPECT_GT(explanation.Rounded.Figures.Magnification, NearlyAMechanism);
  ASSERT_TRUE(explanation.Rounded.Figures.NearlyFree);
  const std::vector<JointDisplacement>& joints = explanation.Rounded.Figures.NearlyFree->Joints;
  ASSERT_EQ(joints.size(), 1U);
  EXPECT_EQ(explanation.Graph.Joints[joints[0].Joint].Name, "top");
  EXPECT_NEAR(joints[0].Dy, -1, 1e-6);
  EXPECT_THAT(RoundingNotice(explanation.Graph, explanation.Rounded, {}), HasSubstr("nearly a mechanism"));
}

TEST(DrawnFigures, ForcesAreMeasuredAgainstTheMagnitudeOfTheLargestLoad) {
  // The load of 500 acts along the first member, which takes all of it.
  const Explanation explanation = Explain(
      TrussBuilder().Member(0, 0, 3, 4).Member(3, 4, 6, 4).Clamp(0, 0).Clamp(6, 4).Force(3, 4, -300, -400));
  EXPECT_NEAR(explanation.Rounded.Figures.Magnification, 1, 1e-6);
  EXPECT_EQ(LargestLoad(explanation.Graph), 500);
}

TEST(DrawnFigures, AnOrdinaryTrussIsSureInAllFiguresAndNothingIsSaid) {
  const Explanation explanation = Explain(TrussBuilder()
                                              .Member(0, 0, 4, 0)
                                              .Member(0, 0, 2, 2)
                                              .Member(4, 0, 2, 2)
                                              .Clamp(0, 0)
                                              .Roller(4, 0)
                                              .Force(2, 2, 0, -1000));
  EXPECT_THAT(explanation.Rounded.Figures.CertainFigures, Optional(testing::Ge(6)));
  EXPECT_EQ(RoundingNotice(explanation.Graph, explanation.Rounded, {}), "");
}

TEST(DrawnFigures, AsManyFiguresAreCertainAsRoundedDirectionsLeave) {
  for (const double height : {0.7, 0.3, 0.07, 0.03, 0.007, 0.003}) {
    Truss truss = LowArch(height);
    const std::map<std::string, double> forces = ForcesOfLowArch(height);
    const TrussAnalysis analysis = SolveTruss(truss);
    double difference = 0;
    for (int k = 1; k <= analysis.System.NumUnknowns(); ++k) {
      const double force = forces.at(analysis.System.UnknownList[k].Name);
      difference = std::max(difference, std::abs(analysis.Reading.Values[k].value() - force));
    }
    const int figures = ExplainTruss(truss, analysis).Rounded.Figures.CertainFigures.value();
    EXPECT_LE(difference / forces.at("left"), std::pow(10, -figures)) << height;
    if (figures < 7) {
      EXPECT_GT(difference / forces.at("left"), std::pow(10, -figures - 1)) << height;
    }
  }
}

TEST(DrawnFigures, WithoutADeterminedForceNoFigureIsCounted) {
  const Explanation explanation =
      Explain(TrussBuilder().Member(0, 0, 1, 0).Clamp(0, 0).Clamp(1, 0, "c", "d"));
  EXPECT_FALSE(Explain(TrussBuilder().Member(0, 0, 1, 0).Force(0, 0, 1, 0)).Rounded.Figures.CertainFigures);
  EXPECT_TRUE(explanation.Rounded.Figures.CertainFigures);  // the reactions across the member
}

TEST(ExplanationText, OpensWithTheKindAndHowCountingRelatesToIt) {
  // As many equations as unknowns, one motion and one state of self-stress.
  const Explanation explanation = Explain(TrussBuilder()
                                              .Member(0, 0, 2, 0, "a")
                                              .Member(2, 0, 4, 0, "b")
                                              .Clamp(0, 0)
                                              .Clamp(4, 0)
                                              .Joint(2, 0, "M"));
  const std::vector<ExplanationSection> sections = ExplanationText(explanation, {});
  ASSERT_FALSE(sections.empty());
  EXPECT_THAT(sections[0].Paragraphs[1],
              HasSubstr("This truss has 1 independent motion and 1 state of self-stress."));
  EXPECT_THAT(sections[0].Paragraphs[2],
              HasSubstr("6 - 6 = 0, are states of self-stress less motions, 1 - 1 = 0"));
  EXPECT_THAT(sections[0].Paragraphs[2], HasSubstr("what is missing at one place is too much at another"));
  const std::vector<std::string> table = KindTable(explanation.Exact.Verdict);
  EXPECT_EQ(table, (std::vector<std::string>{"               no self-stress     self-stress",
                                             "no motion  [ ] rigid, forces  [ ] rigid, forces",
                                             "               determined         left open",
                                             "motions    [ ] movable        [x] movable and",
                                             "                                  self-stressed"}));
  EXPECT_THAT(TextOf(explanation), HasSubstr("Joint M "));
  EXPECT_THAT(TextOf(explanation), HasSubstr("It tightens after a tiny displacement"));
}

TEST(ExplanationText, NamesWhichMembersTurnTogether) {
  // A triangle on one clamp, and a bar that hangs from it.
  const Explanation explanation = Explain(TrussBuilder()
                                              .Member(0, 0, 2, 0, "AB")
                                              .Member(2, 0, 1, 1, "BC")
                                              .Member(1, 1, 0, 0, "CA")
                                              .Clamp(0, 0, "Ax", "Ay")
                                              .Joint(0, 0, "A"));
  EXPECT_THAT(TextOf(explanation), HasSubstr("The whole truss turns anticlockwise about joint A."));
}

// Reactions are neither compressed nor pulled.
TEST(ExplanationText, SelfStressOfReactionsAloneSpeaksOfNoCompression) {
  const Explanation explanation = Explain(
      TrussBuilder().Member(0, 0, 4, 0, "AB").Clamp(0, 0, "Ax", "Ay").Roller(0, 0, "RA").Roller(4, 0, "RB"));
  const std::string text = TextOf(explanation);
  EXPECT_THAT(text, HasSubstr("Ay and RA hang together: forces in the proportions "));
  EXPECT_THAT(text, HasSubstr(" are in balance without any load."));
  EXPECT_THAT(text, Not(HasSubstr("compression")));
}

// Nothing is there that could be rounded.
TEST(ContradictionProof, OfALoadOnNothingIsOneEquation) {
  for (const float load : {-5.0F, 7.5F}) {
    const Explanation explanation = Explain(TrussBuilder()
                                                .Member(0, 0, 4, 0, "AB")
                                                .Member(4, 0, 2, 3, "BC")
                                                .Member(0, 0, 2, 3, "AC")
                                                .Clamp(0, 0, "Ax", "Ay")
                                                .Roller(4, 0, "RB")
                                                .Force(7, 7, 0, load)
                                                .Joint(7, 7, "E"));
    ASSERT_TRUE(explanation.Proof);
    ASSERT_EQ(explanation.Proof->Equations.size(), 1U);
    const std::string text = TextOf(explanation);
    EXPECT_THAT(
        text,
        HasSubstr("Why no forces balance the loads:\nNo unknown force acts on joint E in the direction of "
                  "the equation E - y, only a load: it says 0 = " +
                  std::string(load < 0 ? "5" : "-7.5") + ", and contradicts itself."));
    EXPECT_THAT(text, Not(HasSubstr("rounded")));
    EXPECT_THAT(text, Not(HasSubstr("times the equation")));
  }
}

TEST(ExplanationText, SelfStressNamesItsForcesInProportion) {
  const Explanation explanation =
      Explain(TrussBuilder().Member(0, 0, 4, 0, "a").Member(0, 0, 4, 0, "b").Clamp(0, 0).Roller(4, 0));
  EXPECT_THAT(
      TextOf(explanation),
      HasSubstr("a and b hang together: forces in the proportions a = 1 and b = -1 (compression positive)"));
}

TEST(ContradictionProof, IsWrittenWithItsSignsInBracketsAndItsFactorsTiedToTheMotion) {
  const Explanation explanation = Explain(Parallelogram().Force(1, 2, 1000, 0));
  const std::string text = TextOf(explanation);
  EXPECT_THAT(
      text,
      HasSubstr("(-2) times the equation P - x, 1 times the equation P - y, (-2) times the equation Q - x"));
  EXPECT_THAT(text, HasSubstr("Equation P - x:  (1) q(a) + (-4) q(c) = -1000,  times (-2)"));
  EXPECT_THAT(text,
              HasSubstr("The factors are the displacements of these joints in motion 1, times (-2.236)."));
  const std::vector<double> moved = DisplacementsByColumn(explanation.Graph, explanation.Exact.Motions[0]);
  for (const WeightedEquation& equation : explanation.Proof->Equations) {
    const double displacement = moved[static_cast<std::size_t>(ColumnOf(equation.Joint, equation.Along))];
    EXPECT_NEAR(equation.Factor, explanation.Proof->FactorOfMotion * displacement, 1e-12);
  }
}

TEST(ContradictionProof, ItsSumIsOfTheLoadsAsTheyAreWritten) {
  const Explanation explanation =
      Explain(TrussBuilder().Member(0, 0, 4, 0).Roller(0, 0).Roller(4, 0).Force(4, 0, 0.1F, 0));
  ASSERT_TRUE(explanation.Proof);
  EXPECT_EQ(explanation.Proof->Sum, 0.1);
}

TEST(ExplanationText, SaysWhatBecomesOfASupportWithoutAReaction) {
  const auto bar =
      TrussBuilder().Member(0, 0, 4, 0, "m").Clamp(0, 0, "Ax", "Ay").Joint(0, 0, "A").Joint(4, 0, "B");
  EXPECT_THAT(
      TextOf(Explain(TrussBuilder(bar).Clamp(4, 0, "Bx", "By"))),
      HasSubstr("the reaction Ax (a roller is enough at joint A), the reaction Bx (a roller is enough at "
                "joint B) and m."));
  EXPECT_THAT(TextOf(Explain(TrussBuilder(bar).Roller(4, 0, "R", 8))),
              HasSubstr("the reaction R (the roller at joint B)"));
  EXPECT_THAT(
      TextOf(Explain(TrussBuilder().Member(0, 0, 4, 0).Roller(0, 0, "a").Roller(4, 0, "b").Joint(0, 0, "A"))),
      HasSubstr("a roller at joint A that holds it sideways (a clamp in place of its roller)"));
}

TEST(RoundingText, OnPaperItSaysWhereToReadOnInTheProgram) {
  EXPECT_THAT(ReadOnText(ReadOn::OnScreen), testing::StartsWith("Read on under Learn"));
  EXPECT_THAT(ReadOnText(ReadOn::OnPaper), HasSubstr("In the program"));
  EXPECT_THAT(ReadOnText(ReadOn::FurtherBelow), HasSubstr("further below under \"Why this conclusion\""));
}

}  // namespace
