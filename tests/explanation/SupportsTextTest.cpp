// What is told of supports that do not hold a truss, and of a truss without any.
#include "explanation/SupportsText.h"

#include <gmock/gmock.h>

#include "ExplanationFixture.h"
#include "explanation/ExplanationText.h"
#include "reports/CountingReport.h"

namespace {

using testing::AllOf;
using testing::Contains;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

Explanation ExplainSupports(Truss truss) {
  const TrussAnalysis analysis = SolveTruss(truss);
  return ExplainTruss(truss, analysis);
}

std::vector<std::string> OpeningParagraphs(const Truss& truss) {
  return ExplanationText(ExplainSupports(truss), {}).front().Paragraphs;
}

TrussBuilder FreeTriangle(float height = 3) {
  return TrussBuilder()
      .Member(0, 0, 8, 0, "AB")
      .Member(0, 0, 2, height, "AC")
      .Member(8, 0, 2, height, "BC")
      .Joint(0, 0, "A")
      .Joint(8, 0, "B")
      .Joint(2, height, "C");
}

TrussBuilder FreeSquare() {
  return TrussBuilder()
      .Member(0, 0, 4, 0, "a")
      .Member(4, 0, 4, 4, "b")
      .Member(4, 4, 0, 4, "c")
      .Member(0, 4, 0, 0, "d");
}

TEST(NoSupportsText, OpensTheReasonsOfATrussThatStandsOnNothing) {
  for (const float load : {0.0F, -1000.0F}) {
    EXPECT_EQ(
        OpeningParagraphs(FreeTriangle().Force(2, 3, 0, load)).at(1),
        "This truss has no supports at all: nothing holds it in its place.  It keeps its shape by itself, "
        "so a clamp and a roller would hold it: the roller at another joint, and so that its line does "
        "not pass through the clamp.");
  }
  EXPECT_EQ(
      OpeningParagraphs(FreeSquare()).at(1),
      "This truss has no supports at all: nothing holds it in its place.  A clamp and a roller alone would "
      "not hold it: it does not keep its shape either.");
  EXPECT_THAT(OpeningParagraphs(FreeTriangle().Roller(0, 0, "r")), Not(Contains(HasSubstr("no supports"))));
}

// Five joints, each joined to each: ten members for ten equations.
TEST(TrianglesText, OfATrussWithoutReactionsItSaysThatNoneHoldsIt) {
  const std::vector<std::pair<float, float>> at = {{0, 0}, {5, 0}, {7, 4}, {2, 6}, {-1, 3}};
  TrussBuilder builder;
  for (std::size_t a = 0; a < at.size(); ++a) {
    for (std::size_t b = a + 1; b < at.size(); ++b)
      builder.Member(at[a].first, at[a].second, at[b].first, at[b].second);
  }
  EXPECT_THAT(OpeningParagraphs(builder),
              Contains(EndsWith("Here they do not: no reaction holds it at all.")));
}

TEST(PartsWithoutSupportText, NamesThePartsThatStandOnNothing) {
  const TrussBuilder held = FreeTriangle().Clamp(0, 0, "Ax", "Ay").Roller(8, 0, "RB");
  const std::string apart = "The truss is in parts that no member joins.  ";
  EXPECT_THAT(OpeningParagraphs(held), Not(Contains(HasSubstr(apart))));
  const TrussBuilder two = TrussBuilder(held)
                               .Member(10, 0, 14, 0)
                               .Member(14, 0, 12, 3)
                               .Member(10, 0, 12, 3)
                               .Joint(10, 0, "D")
                               .Joint(14, 0, "E")
                               .Joint(12, 3, "F");
  EXPECT_EQ(OpeningParagraphs(two).at(1),
            apart + "The part with joints D, E and F has no support: nothing holds it in its place.");
  EXPECT_EQ(
      OpeningParagraphs(TrussBuilder(two).Member(20, 0, 22, 0).Joint(20, 0, "G").Joint(22, 0, "H")).at(1),
      apart +
          "The part with joints D, E and F and the part with joints G and H have no support: nothing "
          "holds them in their places.");
  EXPECT_THAT(OpeningParagraphs(TrussBuilder(two).Roller(10, 0, "r")), Not(Contains(HasSubstr(apart))))
      << "with a support too few it is said elsewhere";
  EXPECT_THAT(OpeningParagraphs(TrussBuilder(held).Force(20, 20, 5, 5)), Not(Contains(HasSubstr(apart))))
      << "a load on nothing is no part";
  EXPECT_THAT(OpeningParagraphs(FreeTriangle()), Not(Contains(HasSubstr(apart))));
}

// What is said of a clamp and a roller is tried out, on trusses of all kinds.
TEST(NoSupportsText, AClampAndARollerHoldWhatTheyAreSaidToHold) {
  std::mt19937 random(11);
  int numHeld = 0;
  int numNot = 0;
  for (int i = 0; i < 400; ++i) {
    Places at;
    const int numJoints = 3 + Below(random, 4);
    TrussBuilder free;
    for (int j = 0; j < numJoints; ++j)
      at.emplace_back(static_cast<float>(2 * j + Below(random, 2)), static_cast<float>(Below(random, 4)));
    for (std::size_t a = 0; a < at.size(); ++a) {
      for (std::size_t b = a + 1; b < at.size(); ++b) {
        if (b == a + 1 || Below(random, 3) > 0)
          free.Member(at[a].first, at[a].second, at[b].first, at[b].second);
      }
    }
    const std::string text = NoSupportsText(ExplainSupports(free));
    const bool saysSo = text.find("so a clamp and a roller would hold it") != std::string::npos;
    EXPECT_NE(saysSo, text.find("would not hold it") != std::string::npos) << text;
    bool isEverHeld = false;
    for (std::size_t b = 1; b < at.size(); ++b) {
      // An upright roller's line passes by the clamp, for all joints stand at other places sideways.
      TrussBuilder supported = free;
      supported.Clamp(at[0].first, at[0].second, "x", "y").Roller(at[b].first, at[b].second, "r", 5);
      const bool isHeld = ExplainSupports(supported).Exact.Verdict.Mechanisms() == 0;
      EXPECT_EQ(isHeld, saysSo) << "truss " << i << ", roller at joint " << b;
      isEverHeld = isEverHeld || isHeld;
    }
    ++(isEverHeld ? numHeld : numNot);
  }
  EXPECT_GT(numHeld, 50);
  EXPECT_GT(numNot, 50);
}

TEST(TrianglesText, SaysWhyTrianglesAreNotEnough) {
  const char* sentence =
      "Counting's sentence \"If the truss consists only of triangles then this is guaranteed\" speaks of the "
      "shape, which triangles keep, and takes for granted that the supports hold it.  Here they do not: ";
  const auto counting = [](const Truss& truss) {
    std::string text;
    for (const std::string& paragraph : OpeningParagraphs(truss)) {
      if (paragraph.starts_with("Counting tells")) text = paragraph;
    }
    return text;
  };
  EXPECT_THAT(
      counting(FreeTriangle().Clamp(0, 0, "Ax", "Ay").Roller(8, 0, "B", 7).Force(2, 3, 0, -9)),
      AllOf(HasSubstr(sentence), EndsWith("not: the lines of all reactions pass through joint A, so that "
                                          "none of them has a moment about it.")));
  EXPECT_THAT(counting(FreeTriangle().Roller(0, 0, "A", 5).Roller(8, 0, "B", 5).Roller(2, 3, "C", 5)),
              AllOf(HasSubstr(sentence), EndsWith("not: no reaction acts sideways.")));
  EXPECT_THAT(counting(FreeTriangle().Roller(0, 0, "A", 7).Roller(8, 0, "B", 7).Roller(2, 3, "C", 7)),
              EndsWith("not: no reaction acts up or down."));
  for (const Truss& held : {Truss(FreeTriangle().Clamp(0, 0, "Ax", "Ay").Roller(8, 0, "B", 5)),
                            Truss(FreeSquare().Clamp(0, 0, "Ax", "Ay").Clamp(4, 0, "Bx", "By"))})
    EXPECT_THAT(counting(held), Not(HasSubstr("Counting's sentence")));
}

TEST(TrianglesText, QuotesTheCountingReportAsItStands) {
  Truss truss = FreeTriangle().Clamp(0, 0, "Ax", "Ay").Roller(8, 0, "B", 7).Force(2, 3, 0, -9);
  const TrussAnalysis analysis = SolveTruss(truss);
  const std::string text = OpeningParagraphs(truss).back();
  const std::size_t opened = text.find('"') + 1;
  const std::string quoted = text.substr(opened, text.find('"', opened) - opened);
  EXPECT_FALSE(quoted.empty());
  EXPECT_THAT(ReportCounting(analysis.Counted).Text(), HasSubstr(quoted));
}

}  // namespace
