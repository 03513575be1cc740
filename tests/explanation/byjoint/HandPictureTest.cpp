// The pictures of the steps.
#include "explanation/byjoint/HandPicture.h"

#include "HandSolutionFixture.h"
#include "support/RecordingSurface.h"

namespace {

using testing::HasSubstr;

struct PicturedTruss {
  explicit PicturedTruss(Truss truss) : Graph(GraphOf(std::move(truss))), Solution(SolveByHand(Graph)) {}

  HandPicture Of(std::size_t step, const PixelRect& room = {0, 0, 420, 300}) const {
    return DrawHandStep(Graph, Solution, step, room, {}, RecordingSurface::Measure);
  }

  // The first step about the joint of this name.
  std::size_t StepAt(const std::string& joint) const {
    for (std::size_t i = 0; i < Solution.Steps.size(); ++i) {
      const HandStep& step = Solution.Steps[i];
      if (step.Kind == HandStepKind::Joint && Graph.Joints[step.Joint].Name == joint) return i;
    }
    ADD_FAILURE() << "no step at " << joint;
    return 0;
  }

  TrussGraph Graph;
  HandSolution Solution;
};

const HandArrow& ArrowWith(const HandPicture& picture, const std::string& text) {
  const auto found = std::ranges::find(picture.Arrows, text, &HandArrow::Text);
  EXPECT_NE(found, picture.Arrows.end()) << text;
  return *found;
}

double ArrowLength(const PixelLine& line) {
  return std::hypot(double{line.X2} - double{line.X1}, double{line.Y2} - double{line.Y1});
}

// How far the arrow's head is from the joint, more than its tail.
double HeadsAway(const HandArrow& arrow, PixelPoint joint) {
  return std::hypot(double{arrow.Line.X2} - double{joint.X}, double{arrow.Line.Y2} - double{joint.Y}) -
         std::hypot(double{arrow.Line.X1} - double{joint.X}, double{arrow.Line.Y1} - double{joint.Y});
}

TEST(HandPicture, ShowsAJointAloneWithArrowsOfOneLength) {
  const PicturedTruss truss(HandTriangle());
  const HandPicture picture = truss.Of(truss.StepAt("A"));
  ASSERT_EQ(picture.Pins.size(), 1U);
  EXPECT_TRUE(picture.Part.empty());
  EXPECT_TRUE(picture.Others.empty());
  ASSERT_EQ(picture.Arrows.size(), 4U);
  for (const HandArrow& arrow : picture.Arrows)
    EXPECT_NEAR(ArrowLength(arrow.Line), ArrowLength(picture.Arrows.front().Line), 0.01);
}

TEST(HandPicture, ArrowsAwayFromTheJointArePulling) {
  const PicturedTruss truss(HandTriangle());
  const HandPicture picture = truss.Of(truss.StepAt("A"));
  const PixelPoint joint = picture.Pins.front();
  EXPECT_GT(HeadsAway(ArrowWith(picture, "AB 500 T"), joint), 0);
  EXPECT_LT(HeadsAway(ArrowWith(picture, "AC 707.1 C"), joint), 0);
  EXPECT_LT(HeadsAway(ArrowWith(picture, "Ay 500"), joint), 0) << "a reaction pushes into the joint";
  // Each on the side of its member: AB to the right, AC up and to the right.
  EXPECT_GT(ArrowWith(picture, "AB 500 T").Line.X1, joint.X);
  EXPECT_LT(ArrowWith(picture, "AC 707.1 C").Line.Y1, joint.Y);
}

TEST(HandPicture, TellsWhatTheStepFindsFromWhatIsKnownOrNothing) {
  const PicturedTruss truss(HandTriangle());
  const HandPicture picture = truss.Of(truss.StepAt("A"));
  EXPECT_EQ(ArrowWith(picture, "AB 500 T").Role, ForceRole::Found);
  EXPECT_EQ(ArrowWith(picture, "Ay 500").Role, ForceRole::Known);
  EXPECT_EQ(ArrowWith(picture, "Ax 0").Role, ForceRole::Zero);
  const HandPicture top = truss.Of(truss.StepAt("C"));
  EXPECT_EQ(ArrowWith(top, "1000").Role, ForceRole::Load);
}

TEST(HandPicture, DoesNotKnowWhatLaterStepsFind) {
  const PicturedTruss truss(HandTriangle());
  const HandPicture reactions = truss.Of(0);
  EXPECT_EQ(reactions.Part.size(), 3U);
  for (const HandArrow& arrow : reactions.Arrows) EXPECT_EQ(arrow.Text.find(" T"), std::string::npos);
}

TEST(HandPicture, TextsStandClearOfEachOther) {
  std::mt19937 random(8);
  int numPairs = 0;
  int numMeeting = 0;
  for (int i = 0; i < 60; ++i) {
    const PicturedTruss truss(RandomSimpleTrussOn(random, 5 + i % 6));
    for (std::size_t step = 0; step < truss.Solution.Steps.size(); ++step) {
      if (truss.Solution.Steps[step].Joint == 0) continue;
      const HandPicture picture = truss.Of(step);
      for (std::size_t a = 0; a < picture.Arrows.size(); ++a) {
        for (std::size_t b = 0; b < a; ++b) {
          const PixelRect& one = picture.Arrows[a].TextBox;
          const PixelRect& other = picture.Arrows[b].TextBox;
          ++numPairs;
          if (one.Left < other.Right && other.Left < one.Right && one.Top < other.Bottom &&
              other.Top < one.Bottom)
            ++numMeeting;
        }
      }
    }
  }
  EXPECT_GT(numPairs, 1000);
  EXPECT_LE(numMeeting, numPairs / 100);
}

TEST(HandPicture, PaintsLettersForEveryForce) {
  const PicturedTruss truss(HandTriangle());
  const std::size_t step = truss.StepAt("B");
  RecordingSurface surface;
  PaintHandPicture(surface, truss.Of(step));
  const std::string told = DescribeHandStep(truss.Graph, truss.Solution, step, {});
  EXPECT_EQ(told, "Joint B alone, and what acts on it: B 500, AB 500 T, BC 707.1 C.");
  std::vector<std::string> texts;
  for (const DrawnText& text : surface.Texts) texts.push_back(text.Text);
  for (const char* text : {"B 500", "AB 500 T", "BC 707.1 C", "B"})
    EXPECT_THAT(texts, testing::Contains(text));
  EXPECT_THAT(DescribeHandStep(truss.Graph, truss.Solution, 0, {}), HasSubstr("a load of 1000"));
}

TEST(HandPicture, IsDrawnForEveryStepOfEveryExample) {
  WithEachExample([](const Truss& truss) {
    const PicturedTruss pictured(truss);
    for (std::size_t step = 0; step < pictured.Solution.Steps.size(); ++step) {
      for (const PixelRect& room : {PixelRect{0, 0, 420, 300}, PixelRect{0, 0, 20, 10}}) {
        RecordingSurface surface;
        PaintHandPicture(surface, pictured.Of(step, room));
      }
      EXPECT_GT(PictureOfHandStep(pictured.Graph, pictured.Solution, step, {}, RecordingSurface::Measure)
                    .Frame()
                    .Width(),
                0);
    }
  });
}

}  // namespace
