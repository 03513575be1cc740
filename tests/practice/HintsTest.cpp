// Hints tell what to do next and never what comes out.
#include "practice/Hints.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "PracticeFixture.h"
#include "explanation/byjoint/HandSolution.h"

namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class Stuck {
 public:
  explicit Stuck(Truss truss) : asked_(Asked(std::move(truss))), solution_(SolveByHand(asked_.Graph)) {}

  std::optional<Hint> After(const std::map<std::string, double>& answers) const {
    return After(ValuesOf(asked_.Graph, answers));
  }
  std::optional<Hint> After(const ForceValues& given) const {
    const ReportFormat format;
    return NextHint(asked_.Graph, solution_, Judge(given, asked_.Solutions),
                    DistinctNames(asked_.Graph, format), format);
  }
  const AskedTruss& Asked_() const { return asked_; }
  const HandSolution& Solution() const { return solution_; }

 private:
  AskedTruss asked_;
  HandSolution solution_;
};

TEST(Hints, BeginWithTheReactions) {
  const Stuck stuck(RoundTriangle());
  const Hint hint = stuck.After(std::map<std::string, double>()).value();
  EXPECT_EQ(hint.Joint, 0);
  EXPECT_EQ(hint.Texts[0], "Begin with the balance of the whole truss, which gives reactions.");
  EXPECT_THAT(hint.Texts[1], StartsWith("Moments about joint A, anticlockwise = clockwise:  "));
  EXPECT_THAT(hint.Texts[2], HasSubstr("B"));
  EXPECT_THAT(hint.Texts[2], Not(HasSubstr("500"))) << "the value is left to the student";
}

TEST(Hints, GoOnWhereTheStudentIs) {
  const Stuck stuck(RoundTriangle());
  const Hint second = stuck.After({{"B", 500}}).value();
  EXPECT_THAT(second.Texts[1], StartsWith("Forces ")) << "the moments are done";
  const Hint hint = stuck.After({{"Ax", 0}, {"Ay", 500}, {"B", 500}}).value();
  const TrussGraph& graph = stuck.Asked_().Graph;
  EXPECT_EQ(graph.Joints[hint.Joint].Name, "A");
  EXPECT_EQ(hint.Texts[0], "Take joint A: there only AC and AB are to be found.");
  EXPECT_THAT(hint.Texts[1], StartsWith("At joint A act "));
  EXPECT_THAT(hint.Texts[2], HasSubstr("500")) << "the reaction that was found";
  EXPECT_THAT(hint.Texts[2], Not(HasSubstr("625")));
}

TEST(Hints, TakeACloseValueForFound) {
  const Stuck stuck(RoundTriangle());
  const Hint hint = stuck.After({{"Ax", 0}, {"Ay", 490}, {"B", 510}}).value();
  EXPECT_THAT(hint.Texts[0], StartsWith("Take joint A"));
}

TEST(Hints, ComeBackToAWrongValue) {
  const Stuck stuck(RoundTriangle());
  const Hint hint = stuck.After(AnswersWith({{"B", 300}})).value();
  EXPECT_THAT(hint.Texts[1], StartsWith("Moments about"));
}

TEST(Hints, DoNotFillInWhatWouldBeTheValue) {
  const Stuck stuck(RoundTriangle());
  const Hint alone = stuck.After({{"B", 500}}).value();
  EXPECT_THAT(alone.Texts[1], HasSubstr("only Ax stands in this."));
  EXPECT_EQ(alone.Texts[2], "Nothing else stands in this equation: what must Ax be?");
  // Two members in line, one of them known.
  const Stuck tie(TrussBuilder()
                      .Member(0, 0, 3, 0, "AB")
                      .Member(3, 0, 6, 0, "BC")
                      .Member(3, 0, 3, 4, "BD")
                      .Member(0, 0, 3, 4, "AD")
                      .Member(6, 0, 3, 4, "CD")
                      .Clamp(0, 0, "Ax", "Ay")
                      .Roller(6, 0, "C")
                      .Force(3, 0, 0, -1000)
                      .Joint(0, 0, "A")
                      .Joint(3, 0, "B")
                      .Joint(6, 0, "C")
                      .Joint(3, 4, "D"));
  const Hint inLine =
      tie.After({{"Ax", 0}, {"Ay", 500}, {"C", 500}, {"AB", -375}, {"AD", 625}, {"BD", -1000}}).value();
  for (const std::string& text : inLine.Texts) EXPECT_THAT(text, Not(HasSubstr("375")));
}

TEST(Hints, AreOverWhenAllIsFound) { EXPECT_FALSE(Stuck(RoundTriangle()).After(RightAnswers())); }

TEST(Hints, LookForMembersThatCarryNothing) {
  // A triangle with a strut from the middle of its foot: nothing acts where it stands.
  const Stuck stuck(TrussBuilder()
                        .Member(0, 0, 3, 0, "AD")
                        .Member(3, 0, 6, 0, "DB")
                        .Member(3, 0, 3, 4, "DC")
                        .Member(0, 0, 3, 4, "AC")
                        .Member(6, 0, 3, 4, "BC")
                        .Clamp(0, 0, "Ax", "Ay")
                        .Roller(6, 0, "B")
                        .Force(3, 4, 0, -1000)
                        .Joint(0, 0, "A")
                        .Joint(6, 0, "B")
                        .Joint(3, 0, "D")
                        .Joint(3, 4, "C"));
  const Hint hint = stuck.After({{"Ax", 0}, {"Ay", 500}, {"B", 500}}).value();
  EXPECT_EQ(hint.Texts[0], "Look at joint D, without reckoning.");
  EXPECT_EQ(hint.Texts[1], "AD and DB lie in one line there, and no load acts.");
  EXPECT_EQ(hint.Texts[2], "Write the sum at right angles to this line: what stands in it?");
}

// Someone who needs a hint for each equation, and then finds what it is about.
TEST(Hints, LeadThroughTheWholeTrussWithoutSayingAValue) {
  for (const char* shape : {"triangle", "pratt"}) {
    const Truss truss = shape == std::string("triangle") ? RoundTriangle()
                                                         : Truss(TrussBuilder()
                                                                     .Member(0, 0, 3, 0, "a")
                                                                     .Member(3, 0, 7, 0, "b")
                                                                     .Member(0, 0, 3, 4, "c")
                                                                     .Member(3, 0, 3, 4, "d")
                                                                     .Member(3, 4, 7, 0, "e")
                                                                     .Clamp(0, 0, "Px", "Py")
                                                                     .Roller(7, 0, "Q")
                                                                     .Force(3, 0, 130, -910));
    const Stuck stuck(truss);
    const TrussGraph& graph = stuck.Asked_().Graph;
    ForceValues given(graph.NumUnknowns());
    int numHints = 0;
    while (const std::optional<Hint> hint = stuck.After(given)) {
      ASSERT_LE(++numHints, 20);
      // The next unknown by hand that has no value yet.
      for (const HandStep& step : stuck.Solution().Steps) {
        const auto next =
            std::ranges::find_if(step.Solved, [&](const auto& force) { return !given[force.Unknown]; });
        if (next == step.Solved.end()) continue;
        const std::string value = FormatSigFigs(std::abs(next->Value), {});
        if (value.size() > 2) {
          for (const std::string& text : hint->Texts) EXPECT_THAT(text, Not(HasSubstr("= " + value)));
        }
        given[next->Unknown] = next->Value;
        break;
      }
    }
    EXPECT_GE(numHints, 4) << shape;
  }
}

}  // namespace
