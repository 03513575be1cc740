// The drawing of a motion and of a state of self-stress.
#include "explanation/MotionDrawing.h"

#include <gmock/gmock.h>

#include <cmath>

#include "ExplanationFixture.h"
#include "canvas/Arrow.h"
#include "canvas/PaintDrawing.h"
#include "canvas/PixelBoxes.h"
#include "canvas/SupportPicture.h"
#include "document/JointList.h"
#include "document/TrussFile.h"
#include "explanation/ExactVerdict.h"
#include "explanation/MotionText.h"
#include "explanation/SwungTruss.h"
#include "platform/Palette.h"
#include "support/RecordingSurface.h"

namespace {

using testing::Contains;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

const PixelRect Room{0, 0, 500, 300};

struct Reasoned {
  explicit Reasoned(Truss given)
      : Document(std::move(given)),
        Analysis(SolveTruss(Document)),
        Graph(GraphOf(Document, Analysis)),
        Reasons(ReasonExactly(Graph)) {}

  MotionScene Motion(std::size_t i) const {
    return {.Document = Document, .Graph = Graph, .Moves = &Reasons.Motions.at(i)};
  }
  MotionScene Stress(std::size_t i) const {
    return {.Document = Document, .Graph = Graph, .Stressed = &Reasons.SelfStresses.at(i)};
  }
  MotionDrawing Drawn(const MotionScene& scene, double swing = 1) const {
    return DrawMotion(scene, Room, swing, RecordingSurface::Measure);
  }

  Truss Document;
  TrussAnalysis Analysis;
  TrussGraph Graph;
  ExactReasons Reasons;
};

// Its two upper joints move to the right, its two lower ones are held.
Reasoned PushedParallelogram() {
  return Reasoned(TrussBuilder()
                      .Member(0, 0, 1, 2, "a")
                      .Member(4, 0, 5, 2, "b")
                      .Member(1, 2, 5, 2, "c")
                      .Clamp(0, 0, "x1", "y1")
                      .Clamp(4, 0, "x2", "y2")
                      .Force(1, 2, 1000, 0)
                      .Joint(1, 2, "P")
                      .Joint(5, 2, "Q"));
}

// A square with both diagonals: one state of self-stress, in which the sides push when the diagonals pull.
Reasoned CrossedSquare() {
  return Reasoned(TrussBuilder()
                      .Member(0, 0, 4, 0, "s1")
                      .Member(4, 0, 4, 4, "s2")
                      .Member(4, 4, 0, 4, "s3")
                      .Member(0, 4, 0, 0, "s4")
                      .Member(0, 0, 4, 4, "d1")
                      .Member(4, 0, 0, 4, "d2")
                      .Clamp(0, 0, "x", "y")
                      .Roller(4, 0, "r"));
}

// The letters of the names that are shown.
std::vector<PixelRect> NamesIn(const MotionDrawing& drawing) {
  std::vector<PixelRect> boxes;
  for (const JointRec& joint : drawing.Shown.JointsInUse()) {
    const LabelPlace& place = drawing.Objects.lblRodJoint[joint.NameLabel];
    if (!place.Visible) continue;
    boxes.push_back({place.Left + place.TextLeft, place.Top + place.TextTop, place.Left + place.Width,
                     place.Top + place.Height});
  }
  return boxes;
}

// How often a text lies on a member (where it is drawn, or thin where it was), an arrow, a pin, a support or
// another text.
int NumCovered(const MotionDrawing& drawing, const std::vector<PixelRect>& texts) {
  int count = 0;
  for (const PixelRect& text : texts) {
    const auto crosses = [&text](const PixelLine& line) { return Crosses(line, text); };
    for (int i = 1; i <= drawing.Shown.NumMembers; ++i) {
      count += int{crosses(drawing.Objects.Rod[i])};
      for (const PixelPoint& pin : {drawing.Objects.Rod[i].End1(), drawing.Objects.Rod[i].End2()})
        count += int{Overlap(text, Widened({pin.X, pin.Y, pin.X, pin.Y}, PinSize / 2))};
    }
    for (int i = 1; i <= drawing.Shown.NumSupports; ++i) {
      const PixelPoint at = drawing.Objects.Support[i];
      const float half = SupportPictureSize / 2;
      count += int{
          Overlap(text, SupportPictureBox(drawing.Shown.Supports[i].TypeIndex, {at.X + half, at.Y + half}))};
    }
    for (int i = 1; i <= drawing.Shown.NumForces; ++i) count += int{crosses(drawing.Objects.Force[i])};
    count += static_cast<int>(std::ranges::count_if(drawing.Arrows, crosses));
    count += static_cast<int>(std::ranges::count_if(drawing.AtRest, crosses));
    for (const PixelRect& other : texts) count += int{&other != &text && Overlap(other, text)};
  }
  return count;
}

double LengthOf(const PixelLine& line) { return std::hypot(line.X2 - line.X1, line.Y2 - line.Y1); }

double PixelsPerUnit(const MotionDrawing& drawing) {
  return double{drawing.Objects.Mapping.XPixel(1)} - double{drawing.Objects.Mapping.XPixel(0)};
}

TEST(SwungTruss, NoJointGoesFartherThanATwentiethOfTheDrawing) {
  std::mt19937 random(8);
  int numMotions = 0;
  for (int i = 0; i < 300; ++i) {
    const Reasoned truss(RandomSmallTruss(random, 7, 6));
    const double bound = ExtentOf(truss.Graph).Size() / 20;
    for (const Motion& motion : truss.Reasons.Motions) {
      ++numMotions;
      double largest = 0;
      for (const double swing : {-1.0, -0.3, 0.0, 1.0, 7.0}) {
        const Truss swung = Swung(truss.Document, truss.Graph, &motion, swing);
        for (int j = 1; j <= swung.NumJoints; ++j) {
          largest = std::max(largest, std::hypot(double{swung.Joints[j].X} - truss.Document.Joints[j].X,
                                                 double{swung.Joints[j].Y} - truss.Document.Joints[j].Y));
        }
      }
      EXPECT_NEAR(largest, bound, 1e-6) << "but for the rounding of a single";
    }
  }
  EXPECT_GT(numMotions, 300);
}

TEST(SwungTruss, EverythingAtAJointGoesWithIt) {
  const Reasoned truss = PushedParallelogram();
  const Truss swung = Swung(truss.Document, truss.Graph, &truss.Reasons.Motions.front(), 1);
  EXPECT_FLOAT_EQ(swung.Members[1].X2, 1 + 0.5F / std::sqrt(5.0F));
  EXPECT_FLOAT_EQ(swung.Members[1].Y2, 2 - 0.25F / std::sqrt(5.0F));
  EXPECT_FLOAT_EQ(swung.Forces[1].X, 1 + 0.5F / std::sqrt(5.0F));
  EXPECT_FLOAT_EQ(swung.Forces[1].Y, 2 - 0.25F / std::sqrt(5.0F));
  EXPECT_EQ(swung.Members[1].X1, 0);
  EXPECT_EQ(swung.Supports[1].X, 0);
}

TEST(MotionDrawing, HasArrowsAtMovingJointsOnly) {
  const Reasoned truss = PushedParallelogram();
  ASSERT_THAT(truss.Reasons.Motions, SizeIs(1));
  const MotionDrawing drawing = truss.Drawn(truss.Motion(0));
  ASSERT_THAT(drawing.Arrows, SizeIs(2));
  for (std::size_t i = 0; i < 2; ++i) {
    const PlacedJoint& joint = truss.Graph.Joints[truss.Reasons.Motions[0].Joints[i].Joint];
    EXPECT_EQ(drawing.Arrows[i].X1, drawing.Objects.Mapping.XPixel(joint.X));
    EXPECT_EQ(drawing.Arrows[i].Y1, drawing.Objects.Mapping.YPixel(joint.Y));
    EXPECT_GT(drawing.Arrows[i].X2, drawing.Arrows[i].X1) << "to the right";
    EXPECT_GT(drawing.Arrows[i].Y2, drawing.Arrows[i].Y1) << "and down";
  }
}

TEST(MotionDrawing, ShowsTheMembersThatMoveBeforeAndAfter) {
  const Reasoned truss = PushedParallelogram();
  const MotionDrawing drawing = truss.Drawn(truss.Motion(0));
  ASSERT_THAT(drawing.AtRest, SizeIs(3));
  ASSERT_THAT(drawing.Moved, SizeIs(3));
  const double unit = PixelsPerUnit(drawing);
  EXPECT_NEAR(drawing.Moved[2].X1 - drawing.AtRest[2].X1, 0.25 * 2 / std::sqrt(5) * unit, 0.01)
      << "together a twentieth of 5";
  EXPECT_NEAR(drawing.Moved[2].Y1 - drawing.AtRest[2].Y1, 0.25 / std::sqrt(5) * unit, 0.01);
}

TEST(MotionDrawing, SwingsToBothSidesWhileArrowsAndMappingStandStill) {
  const Reasoned truss = PushedParallelogram();
  const MotionDrawing there = truss.Drawn(truss.Motion(0), 1);
  const MotionDrawing back = truss.Drawn(truss.Motion(0), -1);
  const MotionDrawing still = truss.Drawn(truss.Motion(0), 0);
  EXPECT_EQ(there.Arrows, back.Arrows);
  EXPECT_EQ(there.AtRest, back.AtRest);
  EXPECT_EQ(still.AtRest, still.Moved);
  EXPECT_NEAR(there.Moved[2].X1 + back.Moved[2].X1, 2 * still.Moved[2].X1, 0.01);
}

// Members and supports that stand still, and members that share one joint with what moves.
TEST(MotionDrawing, LeavesAloneWhatStandsStill) {
  const Reasoned truss(TrussBuilder()
                           .Member(0, 0, 2, 0)
                           .Member(0, 0, 1, 2)
                           .Member(2, 0, 1, 2)
                           .Member(2, 0, 4, 1)
                           .Clamp(0, 0)
                           .Roller(2, 0));
  ASSERT_THAT(truss.Reasons.Motions, SizeIs(1));
  const MotionDrawing drawing = truss.Drawn(truss.Motion(0));
  EXPECT_THAT(drawing.Arrows, SizeIs(1));
  EXPECT_THAT(drawing.AtRest, SizeIs(1)) << "the member that hangs on the triangle";
}

TEST(MotionDrawing, AnArrowIsNeverTooShortToPoint) {
  Reasoned truss = PushedParallelogram();
  truss.Reasons.Motions[0].Joints[1].Dx *= 1e-6;
  truss.Reasons.Motions[0].Joints[1].Dy *= 1e-6;
  const MotionDrawing drawing = truss.Drawn(truss.Motion(0));
  EXPECT_NEAR(LengthOf(drawing.Arrows[1]), ShortestMotionArrow, 0.01);
  EXPECT_GT(LengthOf(drawing.Arrows[0]), LengthOf(drawing.Arrows[1]));
}

TEST(MotionDrawing, StaysInItsRoom) {
  std::mt19937 random(3);
  for (int i = 0; i < 200; ++i) {
    const Reasoned truss(RandomSmallTruss(random, 7, 6));
    for (std::size_t m = 0; m < truss.Reasons.Motions.size(); ++m) {
      for (const PixelRect& room : {Room, PixelRect{10, 20, 90, 400}}) {
        const MotionDrawing drawing = DrawMotion(truss.Motion(m), room, 1, RecordingSurface::Measure);
        for (const std::vector<PixelLine>* lines : {&drawing.AtRest, &drawing.Moved, &drawing.Arrows}) {
          for (const PixelLine& line : *lines) {
            EXPECT_TRUE(line.X1 >= room.Left && line.X2 >= room.Left && line.X1 <= room.Right &&
                        line.X2 <= room.Right && line.Y1 >= room.Top && line.Y1 <= room.Bottom &&
                        line.Y2 >= room.Top && line.Y2 <= room.Bottom);
          }
        }
      }
    }
  }
}

TEST(MotionDrawing, PaintsTheMembersAtRestThinAndGreyUnderTheTruss) {
  const Reasoned truss = PushedParallelogram();
  const MotionDrawing drawing = truss.Drawn(truss.Motion(0));
  RecordingSurface surface;
  PaintMotion(surface, drawing);
  const PixelLine& rest = drawing.AtRest[2];
  const PixelLine& moved = drawing.Moved[2];
  const auto grey =
      std::ranges::find(surface.Lines, DrawnLine{rest.X1, rest.Y1, rest.X2, rest.Y2, 1, DarkGrey});
  const auto black = std::ranges::find(
      surface.Lines, DrawnLine{moved.X1, moved.Y1, moved.X2, moved.Y2, RodLineWidth, Black});
  ASSERT_NE(grey, surface.Lines.end());
  ASSERT_NE(black, surface.Lines.end());
  EXPECT_LT(grey, black);
  EXPECT_THAT(surface.Texts, Contains(testing::Field(&DrawnText::Text, "P"))) << "joints have their names";
  EXPECT_EQ(surface.Colour, Black);
  EXPECT_EQ(surface.Width, 1);
}

// It would be a head alone, and half of that under the joint's pin.
TEST(MotionDrawing, AForceThatItsJointWouldHideIsDrawnLonger) {
  Reasoned truss = PushedParallelogram();
  for (const float load : {1.0F, 50.0F, -50.0F}) {
    truss.Document.Forces[1].Fx = load;
    const MotionDrawing drawing = truss.Drawn(truss.Motion(0));
    EXPECT_GE(LengthOf(drawing.Objects.Force[1]), PinSize / 2 + ForceHeadLength + 10) << load;
    EXPECT_EQ(drawing.Objects.Force[1].X2 > drawing.Objects.Force[1].X1, load > 0);
  }
  truss.Document.Forces[1].Fx = 0;
  EXPECT_NEAR(LengthOf(truss.Drawn(truss.Motion(0)).Objects.Force[1]), 0, 1e-3);
}

TEST(MotionDrawing, AForceLongerThanTheDrawingIsDrawnShorter) {
  Reasoned truss = PushedParallelogram();
  truss.Document.Forces[1].Fx = 1e9F;
  const MotionDrawing drawing = truss.Drawn(truss.Motion(0));
  EXPECT_NEAR(LengthOf(drawing.Objects.Force[1]), 0.4 * 5 * PixelsPerUnit(drawing), 0.1);
}

TEST(MotionDrawing, SelfStressIsToldByLetters) {
  const Reasoned truss = CrossedSquare();
  ASSERT_THAT(truss.Reasons.SelfStresses, SizeIs(1));
  const MotionDrawing drawing = truss.Drawn(truss.Stress(0));
  EXPECT_THAT(drawing.Arrows, IsEmpty());
  ASSERT_THAT(drawing.Marks, SizeIs(6));
  for (const StressMark& mark : drawing.Marks) {
    const double value =
        truss.Reasons.SelfStresses[0].Forces[static_cast<std::size_t>(&mark - drawing.Marks.data())].Value;
    EXPECT_EQ(mark.IsCompression, value > 0);
    const std::string& name = truss.Graph.Unknowns[mark.Unknown].Name;
    const std::string size = name[0] == 'd' ? "1" : "0.7071";
    EXPECT_EQ(mark.Label.Lines.front(), name + ' ' + size + (value > 0 ? " C" : " T"));
  }
}

// The two diagonals have their middles at one place.
TEST(MotionDrawing, TextsOfASelfStressCoverNeitherEachOtherNorMembersNorNames) {
  const Reasoned truss = CrossedSquare();
  const MotionDrawing drawing = truss.Drawn(truss.Stress(0));
  std::vector<PixelRect> boxes = NamesIn(drawing);
  for (const StressMark& mark : drawing.Marks) {
    ASSERT_FALSE(mark.Label.Lines.empty()) << mark.Unknown;
    boxes.push_back(mark.Label.Box);
  }
  EXPECT_EQ(NumCovered(drawing, boxes), 0);
}

// Two clamps and a bar between them push against each other.
TEST(MotionDrawing, AReactionOfASelfStressIsAnArrowInItsDirection) {
  const Reasoned truss(
      TrussBuilder().Member(0, 0, 4, 0, "m").Clamp(0, 0, "ax", "ay").Clamp(4, 0, "bx", "by"));
  ASSERT_THAT(truss.Reasons.SelfStresses, SizeIs(1));
  const MotionDrawing drawing = truss.Drawn(truss.Stress(0));
  int numArrows = 0;
  for (const StressMark& mark : drawing.Marks) {
    const PlacedUnknown& unknown = truss.Graph.Unknowns[mark.Unknown];
    if (unknown.IsMember()) continue;
    ++numArrows;
    const double value = mark.IsCompression ? 1 : -1;
    EXPECT_GT(value * (mark.Line.X2 - mark.Line.X1), 0) << unknown.Name;
    EXPECT_EQ(mark.Label.Lines.front(), unknown.Name + " 1") << "the arrow tells the sense";
    EXPECT_EQ(mark.Label.Lines.size(), mark.IsCompression ? 1U : 2U);
    EXPECT_EQ(mark.Label.Lines.back(), mark.IsCompression ? unknown.Name + " 1"
                                                          : "(\x96"
                                                            "1)");
  }
  EXPECT_EQ(numArrows, 2);
}

TEST(SelfStressText, TellsWhichWayAReactionActs) {
  const Reasoned truss(
      TrussBuilder().Member(0, 0, 4, 0, "m").Clamp(0, 0, "ax", "ay").Clamp(4, 0, "bx", "by"));
  EXPECT_EQ(SelfStressText(truss.Graph, truss.Reasons.SelfStresses.front(), {}),
            "ax, bx and m hang together: forces in the proportions ax = 1 (to the right), bx = -1 (1 to the "
            "left) and m = 1 (compression positive) are in balance without any load.");
}

TEST(MotionDrawing, TheTextOfAReactionIsNotCutBesideTheEdge) {
  const Reasoned truss(TrussBuilder()
                           .Member(0, 0, 4, 0, "m")
                           .Clamp(0, 0, "a long name", "ay")
                           .Clamp(4, 0, "another name", "by"));
  for (const float width : {240.0F, 320.0F, 900.0F}) {
    const PixelRect room{.Left = 0, .Top = 0, .Right = width, .Bottom = 200};
    for (const StressMark& mark : DrawMotion(truss.Stress(0), room, 0, RecordingSurface::Measure).Marks) {
      ASSERT_FALSE(mark.Label.Lines.empty()) << mark.Unknown << " in " << width;
      EXPECT_GE(mark.Label.Box.Left, room.Left) << mark.Label.Lines.front() << " in " << width;
      EXPECT_LE(mark.Label.Box.Right, room.Right) << mark.Label.Lines.front() << " in " << width;
    }
  }
}

TEST(MotionDrawing, WithoutAChoiceTheTrussStandsAsItIs) {
  const Reasoned truss = PushedParallelogram();
  const MotionDrawing drawing = truss.Drawn({.Document = truss.Document, .Graph = truss.Graph});
  EXPECT_THAT(drawing.AtRest, IsEmpty());
  EXPECT_THAT(drawing.Arrows, IsEmpty());
  EXPECT_THAT(drawing.Marks, IsEmpty());
  EXPECT_EQ(drawing.Shown.Members[3].X1, 1);
  EXPECT_FALSE(drawing.Objects.Mapping.IsEmpty());
}

// Coordinates from a file may be anything.
TEST(MotionDrawing, DrawsAnythingThatAFileCanHold) {
  for (const float size : {1e-30F, 1e-3F, 1e7F, 3e38F}) {
    for (const float at : {0.0F, 1.0F, 1e7F, -3e38F}) {
      const Reasoned truss(TrussBuilder()
                               .Member(at, 0, size, size)
                               .Member(at, 0, at, 0)
                               .Clamp(at, 0)
                               .Force(size, size, 3e38F, -3e38F));
      for (std::size_t i = 0; i < truss.Reasons.Motions.size(); ++i) {
        RecordingSurface surface;
        PaintMotion(surface, truss.Drawn(truss.Motion(i)));
        EXPECT_THAT(surface.Lines, Not(IsEmpty()));
      }
    }
  }
}

TEST(MotionPicture, IsNoLargerThanItsRoom) {
  std::mt19937 random(5);
  for (int i = 0; i < 60; ++i) {
    const Reasoned truss(RandomSmallTruss(random, 7, 6));
    for (std::size_t m = 0; m < truss.Reasons.Motions.size(); ++m) {
      const PixelRect frame = MotionPicture(truss.Motion(m), RecordingSurface::Measure).Frame();
      EXPECT_LE(frame.Width(), 640);
      EXPECT_LE(frame.Height(), 340);
      EXPECT_GT(frame.Width(), 0);
    }
  }
}

TEST(MotionDrawing, ASelfStressIsDrawnWithoutLoads) {
  Reasoned truss = CrossedSquare();
  truss.Document.NumForces = 1;
  truss.Document.Forces.Resize(1);
  truss.Document.Forces[1] = {.X = 4, .Y = 4, .Fx = 0, .Fy = -1000, .Active = true};
  const MotionDrawing drawing = truss.Drawn(truss.Stress(0));
  EXPECT_FALSE(drawing.Shown.Forces[1].Active);
  RecordingSurface surface;
  PaintMotion(surface, drawing);
  for (const DrawnLine& line : surface.Lines) EXPECT_NE(line.Colour, ForceColour);
}

bool LiesOn(const PixelLine& arrow, const LabelPlace& place) {
  for (int i = 0; i <= 200; ++i) {
    const float share = static_cast<float>(i) / 200;
    const float x = arrow.X1 + share * (arrow.X2 - arrow.X1);
    const float y = arrow.Y1 + share * (arrow.Y2 - arrow.Y1);
    if (x > place.Left + place.TextLeft && x < place.Left + place.Width && y > place.Top + place.TextTop &&
        y < place.Top + place.Height)
      return true;
  }
  return false;
}

// In every direction of the motion and at every swing.
TEST(MotionDrawing, NoArrowLiesOnTheNameOfAJoint) {
  for (int direction = 0; direction < 16; ++direction) {
    const double angle = direction * 3.14159265 / 8;
    const auto x = static_cast<float>(3 * std::cos(angle));
    const auto y = static_cast<float>(3 * std::sin(angle));
    const Reasoned truss(TrussBuilder()
                             .Member(0, 0, x, y)
                             .Clamp(0, 0)
                             .Member(6, 6, 9, 6)
                             .Joint(x, y, "Name")
                             .Force(x, y, -y, x));
    for (std::size_t m = 0; m < truss.Reasons.Motions.size(); ++m) {
      for (const double swing : {-1.0, -0.4, 0.0, 0.4, 1.0}) {
        const MotionDrawing drawing = truss.Drawn(truss.Motion(m), swing);
        for (const JointRec& joint : truss.Document.Joints.First(truss.Document.NumJoints)) {
          if (truss.Document.Name(joint.NameLabel) != "Name") continue;
          for (const PixelLine& arrow : drawing.Arrows)
            EXPECT_FALSE(LiesOn(arrow, drawing.Objects.lblRodJoint[joint.NameLabel]))
                << direction << ", swing " << swing;
        }
      }
    }
  }
}

// The strut ends hardly beside the chord's joint: both names can be read, in motion, under self-stress, and
// at rest.
TEST(MotionDrawing, NamesOfJointsThatNearlyMeetDoNotCoverEachOther) {
  for (const float gap : {0.0F, 0.02F, 0.1F, 0.3F}) {
    TrussBuilder builder;
    builder.Member(0, 0, 4, 0)
        .Member(4, 0, 8, 0)
        .Member(0, 0, 4, 3)
        .Member(8, 0, 4, 3)
        .Member(4, 3, 4 + gap, 0.01F)
        .Clamp(0, 0)
        .Clamp(8, 0)
        .Joint(4, 0, "D")
        .Joint(4 + gap, 0.01F, "E");
    const Reasoned truss(builder);
    std::vector<MotionScene> scenes = {{.Document = truss.Document, .Graph = truss.Graph}};
    for (std::size_t i = 0; i < truss.Reasons.Motions.size(); ++i) scenes.push_back(truss.Motion(i));
    for (std::size_t i = 0; i < truss.Reasons.SelfStresses.size(); ++i) scenes.push_back(truss.Stress(i));
    ASSERT_GE(scenes.size(), 4U);
    for (const MotionScene& scene : scenes) {
      const MotionDrawing drawing = truss.Drawn(scene);
      std::vector<LabelPlace> names;
      for (const JointRec& joint : truss.Document.JointsInUse()) {
        const std::string& name = truss.Document.Name(joint.NameLabel);
        if (name == "D" || name == "E") names.push_back(drawing.Objects.lblRodJoint[joint.NameLabel]);
      }
      ASSERT_EQ(names.size(), 2U);
      const auto letters = [](const LabelPlace& place) {
        return PixelRect{place.Left + place.TextLeft, place.Top + place.TextTop, place.Left + place.Width,
                         place.Top + place.Height};
      };
      const PixelRect d = letters(names[0]);
      const PixelRect e = letters(names[1]);
      EXPECT_TRUE(d.Right <= e.Left || e.Right <= d.Left || d.Bottom <= e.Top || e.Bottom <= d.Top)
          << "gap " << gap;
    }
  }
}

Reasoned SquaresInAGrid(int numSquares) {
  TrussBuilder builder;
  const auto at = [](int i) { return static_cast<float>(3 * i); };
  for (int i = 0; i <= numSquares; ++i) {
    for (int j = 0; j <= numSquares; ++j) {
      if (i < numSquares) builder.Member(at(i), at(j), at(i + 1), at(j));
      if (j < numSquares) builder.Member(at(i), at(j), at(i), at(j + 1));
    }
  }
  builder.Clamp(0, 0).Roller(at(numSquares), 0).Force(at(numSquares), at(numSquares), 1000, 0);
  for (int i = 0; i <= numSquares; ++i) {
    for (int j = 0; j <= numSquares; ++j)
      builder.Joint(at(i), at(j), std::string(1, static_cast<char>('A' + i)) + std::to_string(j));
  }
  return Reasoned(builder);
}

Reasoned ExampleTruss(const std::string& name) {
  Truss truss;
  EXPECT_EQ(ReadTruss(truss, CanvasBounds{}, std::string(ORVANE_EXAMPLES_DIR) + "/" + name + ".trs"),
            std::nullopt);
  EXPECT_TRUE(CheckJoints(truss));
  return Reasoned(std::move(truss));
}

void ExpectReadable(const Reasoned& truss, const std::string& name) {
  std::vector<MotionScene> scenes = {{.Document = truss.Document, .Graph = truss.Graph}};
  for (std::size_t i = 0; i < truss.Reasons.Motions.size(); ++i) scenes.push_back(truss.Motion(i));
  for (std::size_t i = 0; i < truss.Reasons.SelfStresses.size(); ++i) scenes.push_back(truss.Stress(i));
  for (const MotionScene& scene : scenes) {
    for (const PixelRect& room : {Room, PixelRect{0, 0, 340, 260}, PixelRect{0, 0, 900, 700}}) {
      for (const double swing : {-1.0, -0.5, 0.0, 0.5, 1.0}) {
        const MotionDrawing drawing = DrawMotion(scene, room, swing, RecordingSurface::Measure);
        std::vector<PixelRect> texts = NamesIn(drawing);
        EXPECT_EQ(static_cast<int>(texts.size()), truss.Document.NumJoints)
            << name << ", room " << room.Width() << ": a name is missing";
        for (const StressMark& mark : drawing.Marks) {
          if (!mark.Label.Lines.empty()) texts.push_back(mark.Label.Box);
        }
        EXPECT_EQ(NumCovered(drawing, texts), 0) << name << ", room " << room.Width() << ", swing " << swing;
      }
    }
  }
}

TEST(MotionTexts, LieOnNothingInTheMotionsOfTheExamples) {
  for (const char* name : {"critical-hexagon", "flat-arch", "inconsistent", "leaning-panel", "near-joint",
                           "not-enough", "one-too-many", "parallelogram", "redundant", "sloping-arch",
                           "three-rollers", "tie", "triangle", "undetermined", "wrong-roller"})
    ExpectReadable(ExampleTruss(name), name);
  ExpectReadable(SquaresInAGrid(3), "a grid");
}

// While it is played, a name keeps its place beside its joint.
TEST(MotionTexts, GoAlongWithTheirJoints) {
  const Reasoned truss = ExampleTruss("critical-hexagon");
  const MotionDrawing rest = truss.Drawn(truss.Motion(0), 0);
  for (const double swing : {-1.0, -0.3, 0.8, 1.0}) {
    const MotionDrawing swung = truss.Drawn(truss.Motion(0), swing);
    for (int j = 1; j <= rest.Shown.NumJoints; ++j) {
      const auto beside = [j](const MotionDrawing& drawing) {
        const JointRec& joint = drawing.Shown.Joints[j];
        const LabelPlace& place = drawing.Objects.lblRodJoint[joint.NameLabel];
        return PixelPoint{place.Left - drawing.Objects.Mapping.XPixel(joint.X),
                          place.Top - drawing.Objects.Mapping.YPixel(joint.Y)};
      };
      EXPECT_NEAR(beside(swung).X, beside(rest).X, 0.01) << swing;
      EXPECT_NEAR(beside(swung).Y, beside(rest).Y, 0.01) << swing;
    }
  }
}

// Five joints on a line that a long name each would cover.
TEST(MotionTexts, AreLedToTheirJointsWhereTheyCannotStandBesideThem) {
  TrussBuilder builder;
  for (int i = 0; i < 12; ++i) {
    const auto x = static_cast<float>(i);
    builder.Member(x, 0, x + 1, 0).Joint(x, 0, "a rather long name " + std::to_string(i));
  }
  const Reasoned truss(builder.Joint(12, 0, "the last").Clamp(0, 0).Clamp(12, 0));
  const MotionDrawing drawing = truss.Drawn(truss.Stress(0));
  EXPECT_FALSE(drawing.Leaders.empty());
  RecordingSurface surface;
  PaintMotion(surface, drawing);
  for (const PixelLine& leader : drawing.Leaders)
    EXPECT_THAT(surface.Lines, Contains(DrawnLine{leader.X1, leader.Y1, leader.X2, leader.Y2, 1, DarkGrey}));
}

// The names of members and reactions do not go along; names of joints keep clear of them in each picture.
TEST(MotionTexts, NamesOfJointsKeepClearOfTheNamesOfForces) {
  for (const Reasoned& truss : {PushedParallelogram(), ExampleTruss("critical-hexagon")}) {
    MotionScene scene = truss.Motion(0);
    scene.NamesOfForces = true;
    for (const double swing : {-1.0, 0.0, 0.4, 1.0}) {
      const MotionDrawing drawing = truss.Drawn(scene, swing);
      std::vector<PixelRect> names;
      for (const MemberRec& member : drawing.Shown.MembersInUse()) {
        for (const LabelIndex label : {member.NameLabel1, member.NameLabel2}) {
          const LabelPlace& place = drawing.Objects.lblRodJoint[label];
          if (place.Visible)
            names.push_back({place.Left, place.Top, place.Left + place.Width, place.Top + place.Height});
        }
      }
      EXPECT_FALSE(names.empty());
      EXPECT_FALSE(NamesIn(drawing).empty());
      for (const PixelRect& ofJoint : NamesIn(drawing)) {
        for (const PixelRect& ofForce : names) EXPECT_FALSE(Overlap(ofJoint, ofForce)) << swing;
      }
    }
  }
}

TEST(MotionTexts, AreNoneOfMoreJointsThanCanBeNamed) {
  TrussBuilder builder;
  builder.Clamp(0, 0, "x", "y");
  for (int i = 0; i < MostNamedJoints; ++i) {
    const auto x = static_cast<float>(i);
    builder.Member(x, 0, x + 1, 0, "m").Joint(x + 1, 0, "J");
  }
  const Reasoned chain(builder);
  const MotionDrawing drawing = chain.Drawn(chain.Motion(0));
  ASSERT_EQ(drawing.Shown.NumJoints, MostNamedJoints + 1);
  EXPECT_THAT(NamesIn(drawing), IsEmpty());
  EXPECT_THAT(drawing.Leaders, IsEmpty());
}

}  // namespace
