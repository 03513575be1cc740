// The pictures of the steps.
#include "explanation/byjoint/HandPicture.h"

#include "HandSolutionFixture.h"
#include "canvas/PixelBoxes.h"
#include "explanation/byjoint/ArrowRoom.h"
#include "explanation/byjoint/HandLabels.h"
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

// How near each load or reaction comes to what else is drawn at its joint, at the least; pixels.
double LeastBetweenArrows(const PicturedTruss& truss, const HandPicture& picture) {
  const auto isMember = [&](const HandArrow& arrow) {
    return arrow.Unknown != 0 && truss.Graph.Unknowns[arrow.Unknown].IsMember();
  };
  double least = 1000;
  for (std::size_t i = 0; i < picture.Arrows.size(); ++i) {
    for (std::size_t j = 0; j < i; ++j) {
      const HandArrow& a = picture.Arrows[i];
      const HandArrow& b = picture.Arrows[j];
      if (!isMember(a) || !isMember(b)) least = std::min(least, DistanceBetween(a.Line, b.Line));
    }
  }
  return least;
}

TEST(HandPicture, NoReactionOrLoadLiesOnAMembersArrow) {
  int numPictures = 0;
  const auto look = [&numPictures](const PicturedTruss& truss) {
    for (std::size_t step = 0; step < truss.Solution.Steps.size(); ++step) {
      if (truss.Solution.Steps[step].Joint == 0) continue;
      EXPECT_GE(LeastBetweenArrows(truss, truss.Of(step)), 4) << "step " << step + 1;
      ++numPictures;
    }
  };
  WithEachExample([&](const Truss& truss) { look(PicturedTruss(truss)); });
  // A reaction that pulls, with the chord to one side and nothing to the other.
  const PicturedTruss pulled(HandTriangle().Force(4, 4, 700, 0));
  look(pulled);
  const HandPicture support = pulled.Of(pulled.StepAt("A"));
  const HandArrow& reaction = ArrowWith(support, "Ax 700 (-700)");
  EXPECT_LT(reaction.Line.X2, reaction.Line.X1) << "it acts to the left";
  EXPECT_LT(reaction.Line.X1, support.Pins.front().X) << "and stands there, since AB is to the right";
  EXPECT_GT(numPictures, 150);
}

// With members to both sides of it and loads on each other, an arrow stands beside them.
TEST(HandPicture, ALoadWithoutAFreeSideStandsBesideTheOthers) {
  const TrussBuilder chord = TrussBuilder()
                                 .Member(0, 0, 4, 0, "AB")
                                 .Member(4, 0, 8, 0, "BC")
                                 .Member(0, 0, 4, 3, "AD")
                                 .Member(8, 0, 4, 3, "CD")
                                 .Member(4, 0, 4, 3, "BD")
                                 .Clamp(0, 0, "Ax", "Ay")
                                 .Roller(8, 0, "C")
                                 .Joint(4, 0, "B");
  for (const int numLoads : {1, 2, 3}) {
    SCOPED_TRACE(numLoads);
    TrussBuilder loaded = chord;
    for (int i = 0; i < numLoads; ++i) loaded.Force(4, 0, 50, 0).Force(4, 0, 0, -200);
    const PicturedTruss truss{Truss(loaded)};
    const HandPicture picture = truss.Of(truss.StepAt("B"));
    EXPECT_GE(LeastBetweenArrows(truss, picture), 4);
    for (const HandArrow& arrow : picture.Arrows)
      EXPECT_NEAR(ArrowLength(arrow.Line), ArrowLength(picture.Arrows.front().Line), 0.01);
  }
}

TEST(ArrowRoom, TellsHowFarLinesAreApart) {
  EXPECT_EQ(DistanceBetween({0, 0, 10, 0}, {0, 3, 10, 3}), 3);
  EXPECT_EQ(DistanceBetween({0, 0, 10, 0}, {13, 4, 20, 4}), 5) << "between ends";
  EXPECT_EQ(DistanceBetween({0, 0, 10, 0}, {5, -5, 5, 5}), 0) << "across each other";
  EXPECT_EQ(DistanceBetween({0, 0, 10, 0}, {5, 2, 5, 9}), 2) << "from an end to the middle";
  EXPECT_EQ(DistanceBetween({0, 0, 0, 0}, {3, 4, 3, 4}), 5) << "points";
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

// How often a text covers another one, a line, a joint, a point of moments, an arrow or a leader.
int NumCovered(const HandPicture& picture) {
  std::vector<PixelRect> boxes;
  std::vector<PixelLine> lines = picture.Part;
  for (const HandArrow& arrow : picture.Arrows) {
    lines.push_back(arrow.Line);
    if (!arrow.Text.empty()) boxes.push_back(arrow.TextBox);
    if (arrow.Leader) lines.push_back(*arrow.Leader);
  }
  for (const HandPicture::Name& name : picture.Names) boxes.push_back(name.Box);
  for (const std::vector<PixelLine>* more : {&picture.Others, &picture.Cut})
    lines.insert(lines.end(), more->begin(), more->end());
  int numCovered = 0;
  for (std::size_t i = 0; i < boxes.size(); ++i) {
    for (std::size_t j = 0; j < i; ++j) numCovered += Overlap(boxes[i], boxes[j]) ? 1 : 0;
    const PixelRect inner = Widened(boxes[i], -0.01F);  // a leader ends at its edge
    for (const PixelLine& line : lines) numCovered += Crosses(line, inner) ? 1 : 0;
    for (const std::vector<PixelPoint>* points : {&picture.Pins, &picture.Points}) {
      for (const PixelPoint& at : *points)
        numCovered += Overlap(boxes[i], Widened({at.X, at.Y, at.X, at.Y}, 4)) ? 1 : 0;
    }
  }
  return numCovered;
}

int NumTexts(const HandPicture& picture) {
  return static_cast<int>(
      std::ranges::count_if(picture.Arrows, [](const HandArrow& arrow) { return !arrow.Text.empty(); }));
}

TEST(HandPicture, NoTextCoversAnything) {
  std::mt19937 random(8);
  int numTexts = 0;
  const auto look = [&numTexts](const PicturedTruss& truss) {
    for (std::size_t step = 0; step < truss.Solution.Steps.size(); ++step) {
      for (const PixelRect& room : {PixelRect{0, 0, 420, 300}, PixelRect{0, 0, 240, 170}}) {
        const HandPicture picture = truss.Of(step, room);
        EXPECT_EQ(NumCovered(picture), 0) << "step " << step + 1;
        numTexts += NumTexts(picture);
      }
    }
  };
  WithEachExample([&](const Truss& truss) { look(PicturedTruss(truss)); });
  for (int i = 0; i < 60; ++i) {
    SCOPED_TRACE(i);
    look(PicturedTruss(RandomSimpleTrussOn(random, 5 + i % 6)));
  }
  EXPECT_GT(numTexts, 5000);
}

TEST(HandPicture, EveryForceHasItsTextWhereThereIsRoom) {
  int numForces = 0;
  int numWithout = 0;
  WithEachExample([&](const Truss& truss) {
    const PicturedTruss pictured(truss);
    for (std::size_t step = 0; step < pictured.Solution.Steps.size(); ++step) {
      const HandPicture picture = pictured.Of(step);
      numForces += static_cast<int>(picture.Arrows.size());
      numWithout += static_cast<int>(picture.Arrows.size()) - NumTexts(picture);
      EXPECT_FALSE(picture.Names.empty()) << "step " << step + 1;
    }
  });
  EXPECT_GT(numForces, 500);
  EXPECT_LE(numWithout, numForces / 200);
}

// Two triangles that lean against each other at C; only a section opens it.
TrussBuilder ThreeHingedArch() {
  return TrussBuilder()
      .Member(0, 0, 2, 4, "AD")
      .Member(0, 0, 4, 3, "AE")
      .Member(2, 4, 4, 3, "DE")
      .Member(2, 4, 6, 6, "CD")
      .Member(4, 3, 6, 6, "CE")
      .Member(12, 0, 10, 4, "BF")
      .Member(12, 0, 8, 3, "BG")
      .Member(10, 4, 8, 3, "FG")
      .Member(10, 4, 6, 6, "CF")
      .Member(8, 3, 6, 6, "CG")
      .Clamp(0, 0, "Ax", "Ay")
      .Clamp(12, 0, "Bx", "By")
      .Joint(0, 0, "A")
      .Joint(12, 0, "B")
      .Joint(6, 6, "C")
      .Force(2, 4, 9, -30);
}

std::size_t FirstSection(const PicturedTruss& truss) {
  const auto found = std::ranges::find(truss.Solution.Steps, HandStepKind::Section, &HandStep::Kind);
  EXPECT_NE(found, truss.Solution.Steps.end());
  return static_cast<std::size_t>(found - truss.Solution.Steps.begin());
}

const HandArrow& NamedArrow(const PicturedTruss& truss, const HandPicture& picture, const std::string& name) {
  const auto found = std::ranges::find_if(picture.Arrows, [&](const HandArrow& arrow) {
    return arrow.Unknown != 0 && truss.Graph.Unknowns[arrow.Unknown].Name == name;
  });
  EXPECT_NE(found, picture.Arrows.end()) << name;
  return *found;
}

TEST(HandPicture, ASectionShowsThePartThatIsKeptAndItsCut) {
  const PicturedTruss truss(ThreeHingedArch());
  const std::size_t index = FirstSection(truss);
  const HandStep& step = truss.Solution.Steps[index];
  const HandPicture picture = truss.Of(index);
  ASSERT_EQ(step.Cut.size(), 2U);
  EXPECT_EQ(picture.Pins.size(), 3U);
  EXPECT_EQ(picture.Part.size(), 5U) << "three members, and two up to the cut";
  EXPECT_EQ(picture.Others.size(), 2U) << "what is cut off of them";
  ASSERT_EQ(picture.Cut.size(), 1U) << "a straight line";
  ASSERT_EQ(picture.Points.size(), 1U) << "the crown, about which the moments are taken";
  EXPECT_THAT(picture.Names, testing::Contains(testing::Field(&HandPicture::Name::Text, "C")));
  // Each cut member ends on the line.
  for (std::size_t i = 3; i < 5; ++i) {
    const PixelPoint end = picture.Part[i].End2();
    EXPECT_TRUE(Crosses(picture.Cut.front(), Widened({end.X, end.Y, end.X, end.Y}, 0.5F)));
  }
}

// Where members that are cut are nearly parallel they meet far away.
TEST(HandPicture, APointOfMomentsThatIsFarAwayIsNotDrawnAndLeavesThePartItsSize) {
  PicturedTruss truss(ThreeHingedArch());
  const std::size_t index = FirstSection(truss);
  BalanceEquation& equation = truss.Solution.Steps[index].Equations.front();
  ASSERT_EQ(equation.Kind, BalanceKind::Moment);
  for (const auto& [x, y] : {std::pair(-1e5, 3.0), {1e5, 3.0}, {3.0, -1e5}, {3.0, 1e5}}) {
    equation.AtX = x;
    equation.AtY = y;
    const HandPicture picture = truss.Of(index);
    EXPECT_TRUE(picture.Points.empty()) << x << ", " << y;
    EXPECT_EQ(picture.Names.size(), 3U) << "only those of the joints of the part";
    EXPECT_GT(ArrowLength(picture.Part.front()), 50) << "pixels";
  }
}

TEST(HandPicture, APointOfMomentsIsDrawnOnceThoughTwoEquationsAreTakenAboutIt) {
  PicturedTruss truss(ThreeHingedArch());
  const std::size_t index = FirstSection(truss);
  std::vector<BalanceEquation>& equations = truss.Solution.Steps[index].Equations;
  equations.push_back(BalanceEquation(equations.front()));
  const HandPicture picture = truss.Of(index);
  EXPECT_EQ(picture.Points.size(), 1U);
}

// They could not be read.
TEST(HandPicture, VeryManyForcesAndJointsHaveNoTexts) {
  TrussBuilder loaded = HandTriangle();
  for (std::size_t i = 0; i <= MostHandTexts; ++i) loaded.Force(4, 4, 0, -1);
  const PicturedTruss triangle{Truss(loaded)};
  const HandPicture joint = triangle.Of(triangle.StepAt("C"));
  EXPECT_GT(joint.Arrows.size(), MostHandTexts);
  EXPECT_EQ(NumTexts(joint), 0);
  EXPECT_EQ(joint.Names.size(), 1U);

  TrussBuilder strip = TrussBuilder().Member(0, 0, 0, 1).Clamp(0, 0).Roller(40, 0).Force(20, 1, 0, -1000);
  for (int i = 0; i < 40; ++i) {
    const auto x = static_cast<float>(i);
    strip.Member(x, 0, x + 1, 0).Member(x, 1, x + 1, 1).Member(x, 0, x + 1, 1).Member(x + 1, 0, x + 1, 1);
  }
  const PicturedTruss girder{Truss(strip)};
  const HandPicture reactions = girder.Of(0);
  EXPECT_GT(reactions.Pins.size(), MostHandNames);
  EXPECT_TRUE(reactions.Names.empty());
  EXPECT_GT(NumTexts(reactions), 0);
}

TEST(HandPicture, ASectionShowsTheSensesAssumedAndSignedNumbers) {
  const PicturedTruss truss(ThreeHingedArch());
  const std::size_t index = FirstSection(truss);
  const HandPicture picture = truss.Of(index);
  for (const char* name : {"CD", "CE"}) {
    const HandArrow& arrow = NamedArrow(truss, picture, name);
    EXPECT_TRUE(arrow.HasHead);
    EXPECT_EQ(arrow.Text, std::string(name) + " ?");
    // It pushes: from the crown towards the part.
    EXPECT_LT(HeadsAway(arrow, picture.Pins.front()), 0);
  }
  const HandArrow& found = NamedArrow(truss, picture, "Ax");
  EXPECT_EQ(found.Role, ForceRole::Found);
  EXPECT_GT(found.Line.X2, found.Line.X1) << "along its arrow, to the right";
  EXPECT_THAT(DescribeHandStep(truss.Graph, truss.Solution, index, {}),
              HasSubstr("The picture's arrows show the senses assumed"));
}

TEST(HandPicture, TheNumberOfASectionIsNegativeWhereItsArrowIsWrong) {
  // The load pulls upwards: everything turns round, but not the arrows of the section.
  const PicturedTruss truss(ThreeHingedArch().Force(6, 6, 0, 100));
  const std::size_t index = FirstSection(truss);
  const HandPicture picture = truss.Of(index);
  const HandArrow& found = NamedArrow(truss, picture, "Ax");
  EXPECT_GT(found.Line.X2, found.Line.X1);
  EXPECT_THAT(found.Text, HasSubstr("Ax -"));
  // In the pictures that show the senses found the arrow is turned round, with the number in brackets.
  const HandPicture joint = truss.Of(truss.StepAt("A"));
  const HandArrow& turned = NamedArrow(truss, joint, "Ax");
  EXPECT_LT(turned.Line.X2, turned.Line.X1);
  const double value = *truss.Solution.Values[turned.Unknown];
  EXPECT_EQ(turned.Text, "Ax " + FormatSigFigs(-value, {}) + " (" + FormatSigFigs(value, {}) + ')');
}

TEST(HandPicture, SaysWhetherItsArrowsShowTheSensesFoundOrAssumed) {
  for (const HandStepKind kind : {HandStepKind::Reactions, HandStepKind::ZeroForce, HandStepKind::Joint,
                                  HandStepKind::Section, HandStepKind::Together}) {
    const HandStep step{.Kind = kind,
                        .Joint = kind == HandStepKind::Joint || kind == HandStepKind::ZeroForce ? 1 : 0};
    EXPECT_EQ(ShowsAssumedSenses(step), kind == HandStepKind::Section);
    EXPECT_THAT(NoteOfArrows(step),
                testing::StartsWith(ShowsAssumedSenses(step) ? "The picture's arrows show the senses assumed"
                                                             : "The picture's arrows show the senses found"));
  }
}

// As in the equations beside it: with a value behind it, it could not be told where a name ends.
TEST(HandPicture, OddNamesStandInBracketsAsInTheEquations) {
  const PicturedTruss truss(
      HandTriangle({.AB = "tie = 3 * 4", .BC = "So x = 5", .Ax = "A, left", .AtB = "RB", .B = "B (right)"}));
  const HandPicture joint = truss.Of(truss.StepAt("B (right)"));
  std::vector<std::string> texts;
  for (const HandArrow& arrow : joint.Arrows) texts.push_back(arrow.Text);
  for (const HandPicture::Name& name : joint.Names) texts.push_back(name.Text);
  EXPECT_THAT(texts, testing::IsSupersetOf({HasSubstr("[tie = 3 * 4] "), HasSubstr("[So x = 5] "),
                                            HasSubstr("RB "), HasSubstr("[B (right)]")}));
}

TEST(HandPicture, PaintsLettersForEveryForce) {
  const PicturedTruss truss(HandTriangle());
  const std::size_t step = truss.StepAt("B");
  RecordingSurface surface;
  PaintHandPicture(surface, truss.Of(step));
  const std::string told = DescribeHandStep(truss.Graph, truss.Solution, step, {});
  EXPECT_EQ(told,
            "Joint B alone, and what acts on it: B 500, AB 500 T, BC 707.1 C.  The picture's arrows show the "
            "senses found, "
            "not those assumed: away from the joint is tension, towards it compression.");
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
