// What can be chosen to be drawn, and the text of the explanation line by line.
#include "explanation/MotionChoices.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "ExplanationFixture.h"
#include "explanation/MotionText.h"
#include "explanation/WhyText.h"

namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::Field;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

struct Explained {
  explicit Explained(Truss given) : Document(std::move(given)), Analysis(SolveTruss(Document)) {}
  Truss Document;
  TrussAnalysis Analysis;
  Explanation Reasons = ExplainTruss(Document, Analysis);
};

// Two clamps hold the lower bar from both ends; the other three are a parallelogram upon it.
Explained ParallelogramOnABar() {
  return Explained(TrussBuilder()
                       .Member(0, 0, 4, 0, "bar")
                       .Member(0, 0, 1, 2, "a")
                       .Member(4, 0, 5, 2, "b")
                       .Member(1, 2, 5, 2, "c")
                       .Clamp(0, 0, "x1", "y1")
                       .Clamp(4, 0, "x2", "y2")
                       .Joint(1, 2, "P")
                       .Joint(5, 2, "Q"));
}

TEST(MotionChoices, AreTheMotionsAndThenTheStatesOfSelfStress) {
  const Explained truss = ParallelogramOnABar();
  const auto choices = MotionChoices(truss.Reasons.Graph, truss.Reasons.Exact, {});
  EXPECT_THAT(choices, ElementsAre(Field(&MotionChoice::Title, "Motion 1: P and Q move"),
                                   Field(&MotionChoice::Title, "Self-stress 1: x1, x2 and bar")));
  EXPECT_EQ(MotionOf(choices[0], truss.Reasons.Exact), &truss.Reasons.Exact.Motions[0]);
  EXPECT_EQ(SelfStressOf(choices[0], truss.Reasons.Exact), nullptr);
  EXPECT_EQ(MotionOf(choices[1], truss.Reasons.Exact), nullptr);
  EXPECT_EQ(SelfStressOf(choices[1], truss.Reasons.Exact), &truss.Reasons.Exact.SelfStresses[0]);
}

// A number from elsewhere is no motion of this truss.
TEST(MotionChoices, AMotionThatThereIsNotIsNone) {
  const Explained truss = ParallelogramOnABar();
  for (const int number : {0, 2, -1, 1000}) {
    EXPECT_EQ(MotionOf({MotionChoice::Kind::Motion, number, ""}, truss.Reasons.Exact), nullptr);
  }
}

TEST(MotionChoices, AreDescribedInWords) {
  const Explained truss = ParallelogramOnABar();
  const auto choices = MotionChoices(truss.Reasons.Graph, truss.Reasons.Exact, {});
  const auto describe = [&](const MotionChoice* choice) {
    return DescribeChoice(choice, truss.Reasons.Graph, truss.Reasons.Exact, {});
  };
  EXPECT_EQ(describe(&choices[0]),
            "Motion 1.  " + MotionText(truss.Reasons.Graph, truss.Reasons.Exact.Motions[0], {}));
  EXPECT_EQ(
      describe(&choices[1]),
      "Self-stress 1.  " + SelfStressText(truss.Reasons.Graph, truss.Reasons.Exact.SelfStresses[0], {}));
  EXPECT_THAT(describe(nullptr), HasSubstr("as it stands"));
  const auto note = [&](const MotionChoice& choice) {
    return NoteOnChoice(&choice, truss.Reasons.Graph, truss.Reasons.Exact);
  };
  EXPECT_THAT(note(choices[0]), AllOf(HasSubstr("size of the motion means nothing"),
                                      HasSubstr("lengths change at second order only")));
  EXPECT_THAT(note(choices[1]), AllOf(HasSubstr("C: compression"), HasSubstr("T: tension")));
}

TEST(MotionChoices, TheWholeTrussIsNotNamedJointByJoint) {
  const Explained truss(TrussBuilder().Member(0, 0, 4, 0, "m").Roller(0, 0, "r").Roller(4, 0, "s"));
  const auto choices = MotionChoices(truss.Reasons.Graph, truss.Reasons.Exact, {});
  ASSERT_THAT(choices, Not(IsEmpty()));
  EXPECT_EQ(choices[0].Title, "Motion 1: the whole truss moves");
}

// What slides without turning keeps every length, however far it goes.
TEST(MotionChoices, OnlyWhereMembersTurnDoLengthsChangeAtAll) {
  const auto noteOn = [](const TrussBuilder& builder) {
    const Explained truss(builder);
    const auto choices = MotionChoices(truss.Reasons.Graph, truss.Reasons.Exact, {});
    return std::string(NoteOnChoice(&choices.at(0), truss.Reasons.Graph, truss.Reasons.Exact));
  };
  const std::string slides = "no member turns or changes its length.";
  const std::string turns = "lengths change at second order only.";
  const TrussBuilder bar = TrussBuilder().Member(0, 0, 4, 0, "m");
  EXPECT_THAT(noteOn(TrussBuilder(bar).Roller(0, 0, "r").Roller(4, 0, "s")), HasSubstr(slides));
  EXPECT_THAT(noteOn(TrussBuilder(bar).Clamp(0, 0, "r", "t")), HasSubstr(turns));
  EXPECT_THAT(noteOn(TrussBuilder()
                         .Member(0, 0, 0, 3, "a")
                         .Member(4, 0, 4, 3, "b")
                         .Member(0, 3, 4, 3, "c")
                         .Clamp(0, 0, "r", "t")
                         .Clamp(4, 0, "u", "v")),
              HasSubstr(turns))
      << "one member slides, but two turn";
}

TEST(WhyText, HasAGapBetweenSectionsAndTheTableBelowTheFirstHeading) {
  const Explained truss = ParallelogramOnABar();
  const std::vector<WhyLine> lines = WhyText(truss.Reasons, {});
  const auto sections = ExplanationText(truss.Reasons, {});
  EXPECT_EQ(lines[0].Kind, WhyLineKind::Heading);
  EXPECT_EQ(lines[1].Kind, WhyLineKind::Table);
  EXPECT_EQ(std::ranges::count(lines, WhyLineKind::Table, &WhyLine::Kind),
            static_cast<int>(KindTable(truss.Reasons.Exact.Verdict).size()));
  EXPECT_EQ(std::ranges::count(lines, WhyLineKind::Heading, &WhyLine::Kind),
            static_cast<int>(sections.size()));
  EXPECT_EQ(std::ranges::count(lines, WhyLineKind::Gap, &WhyLine::Kind),
            static_cast<int>(sections.size()) - 1);
  EXPECT_EQ(lines.back().Text, sections.back().Paragraphs.back());
}

TEST(WhyText, ShowsControlCharactersOfNamesAndIsUtf8) {
  const Explained truss(
      TrussBuilder().Member(0, 0, 4, 0, "m").Clamp(0, 0, "x", "y").Joint(4, 0, "E\x1B\xE9"));
  const std::vector<WhyLine> lines = WhyText(truss.Reasons, {});
  EXPECT_THAT(lines, Contains(Field(&WhyLine::Text, HasSubstr("E\xE2\x90\x9B\xC3\xA9"))));
}

TEST(MotionChoices, BeginTheirTextWithTheirNumber) {
  EXPECT_EQ(BeginningOfText({MotionChoice::Kind::Motion, 1, ""}), "Motion 1.");
  EXPECT_EQ(BeginningOfText({MotionChoice::Kind::Motion, 12, "Motion 12: A moves"}), "Motion 12.");
  EXPECT_EQ(BeginningOfText({MotionChoice::Kind::SelfStress, 3, ""}), "Self-stress 3.");
}

TEST(MotionChoices, OfOneJointIsInTheSingular) {
  const Explained truss(TrussBuilder()
                            .Member(0, 0, 4, 0, "bar")
                            .Member(4, 0, 4, 3, "free")
                            .Clamp(0, 0, "x", "y")
                            .Roller(4, 0, "r")
                            .Joint(4, 3, "P"));
  EXPECT_THAT(MotionChoices(truss.Reasons.Graph, truss.Reasons.Exact, {}),
              ElementsAre(Field(&MotionChoice::Title, "Motion 1: P moves")));
}

TEST(MotionChoices, OfWhatThereIsNotAreDescribedByTheirNameAlone) {
  const Explained truss = ParallelogramOnABar();
  const auto& graph = truss.Reasons.Graph;
  for (const auto& [kind, title] : {std::pair(MotionChoice::Kind::Motion, "Motion 7: P moves"),
                                    std::pair(MotionChoice::Kind::SelfStress, "Self-stress 7: bar")}) {
    const MotionChoice choice{kind, 7, title};
    EXPECT_EQ(DescribeChoice(&choice, graph, truss.Reasons.Exact, {}),
              choice.Title.substr(0, choice.Title.find(':')) + ".");
  }
  const MotionChoice motion{MotionChoice::Kind::Motion, 7, "Motion 7: P moves"};
  EXPECT_THAT(NoteOnChoice(&motion, graph, truss.Reasons.Exact), HasSubstr("at second order only"));
  EXPECT_THAT(NoteOnChoice(nullptr, graph, truss.Reasons.Exact), HasSubstr("neither motions nor"));
}

}  // namespace
