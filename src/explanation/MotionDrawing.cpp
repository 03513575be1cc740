#include "explanation/MotionDrawing.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>

#include "canvas/Arrow.h"
#include "canvas/DoLabel.h"
#include "canvas/PaintDrawing.h"
#include "canvas/Paper.h"
#include "canvas/RedrawTruss.h"
#include "document/JointList.h"
#include "explanation/MotionTexts.h"
#include "explanation/SwungTruss.h"
#include "explanation/forces/PaintForces.h"
#include "platform/Palette.h"

namespace {

constexpr int MotionYellow = 14;
constexpr int MotionArrowWidth = 2;  // pixels
constexpr float MarginOfMotion = 6;

// Air around the truss for supports and names, pixels.
constexpr float MotionBorder = 56;

// Of more arrows, those closer to each other than this many pixels would cover everything.
constexpr std::size_t MostArrowsAnywhere = 100;
constexpr float CellOfCrowdedArrow = 24;

constexpr double ArrowOverSwing = 3;

// A force longer than this share of the drawing is drawn shorter, and all others with it.
constexpr double LongestForce = 0.4;

void ShortenForces(Truss& truss, double size) {
  double longest = 0;
  for (const ForceRec& force : truss.ForcesInUse()) {
    if (force.Active) longest = std::max(longest, std::hypot(double{force.Fx}, double{force.Fy}));
  }
  const double least = longest / (LongestForce * size);
  if (size > 0 && std::isfinite(least) && std::abs(double{truss.Settings.ForceScale}) < least)
    truss.Settings.ForceScale = FiniteSingle(std::copysign(least, truss.Settings.ForceScale));
}

// A force that is drawn shorter than this would be hidden by its joint, or be a head alone.
constexpr double ShortestForce = 28;  // pixels

void LengthenForces(Truss& truss, double pixelsPerUnit) {
  const double pixels = pixelsPerUnit / std::abs(double{truss.Settings.ForceScale});
  for (ForceRec& force : truss.ForcesInUse()) {
    const double length = pixels * std::hypot(double{force.Fx}, double{force.Fy});
    if (!force.Active || !(length > 0) || !std::isfinite(length) || length >= ShortestForce) continue;
    force.Fx = FiniteSingle(force.Fx * (ShortestForce / length));
    force.Fy = FiniteSingle(force.Fy * (ShortestForce / length));
  }
}

double PixelsPerUnit(const Graph& mapping) {
  return (double{mapping.PixelX2} - double{mapping.PixelX1}) /
         (double{mapping.WorldX2} - double{mapping.WorldX1});
}

// What must have room: the joints with their largest swing, and the heads of the forces.
TrussExtent WantedExtent(const Truss& truss, double forceScale, const TrussGraph& graph, bool moves) {
  TrussExtent extent = ExtentOf(graph);
  const double air = moves ? ArrowOverSwing * LargestSwing * extent.Size() : 0;
  extent = {extent.Left - air, extent.Bottom - air, extent.Right + air, extent.Top + air};
  for (const ForceRec& force : truss.ForcesInUse()) {
    const double x = force.X + double{force.Fx} / forceScale;
    const double y = force.Y + double{force.Fy} / forceScale;
    if (!force.Active || !std::isfinite(x) || !std::isfinite(y)) continue;
    extent = {std::min(extent.Left, x), std::min(extent.Bottom, y), std::max(extent.Right, x),
              std::max(extent.Top, y)};
  }
  return extent;
}

void ShowJointNames(Drawing& drawing, const Truss& truss, const TextMeasure& measure) {
  if (truss.NumJoints > MostNamedJoints) return;
  PlaceJointLabels(drawing, truss, measure);
  for (const JointRec& joint : truss.JointsInUse()) {
    if (joint.NameLabel == 0 || truss.Name(joint.NameLabel) == UnnamedCaption) continue;
    drawing.lblRodJoint[joint.NameLabel].Visible = true;
  }
}

void PlaceTruss(Drawing& drawing, const Truss& truss, bool namesOfForces, const TextMeasure& measure) {
  if (namesOfForces) {
    PlaceElements(drawing, truss, measure);
    PlaceJointLabels(drawing, truss, measure);
    ShowLabels(drawing, truss);
  } else {
    FitTables(drawing, truss);
    PlaceObjects(drawing, truss);
    ShowJointNames(drawing, truss, measure);
  }
}

// Where joints stand at rest and where a motion brings them, pixels.
class JointPlaces {
 public:
  JointPlaces(const TrussGraph& graph, const Graph& mapping, const Motion& motion, double length)
      : atRest_(graph.NumJoints()), moved_(graph.NumJoints()), moves_(graph.NumJoints()) {
    for (int j = 1; j <= graph.NumJoints(); ++j) {
      const PlacedJoint& joint = graph.Joints[j];
      atRest_[j] = moved_[j] = {mapping.XPixel(joint.X), mapping.YPixel(joint.Y)};
    }
    for (const JointDisplacement& at : motion.Joints) {
      const PlacedJoint& joint = graph.Joints[at.Joint];
      moved_[at.Joint] = {mapping.XPixel(FiniteSingle(joint.X + length * at.Dx)),
                          mapping.YPixel(FiniteSingle(joint.Y + length * at.Dy))};
      moves_[at.Joint] = 1;
    }
  }

  PixelPoint AtRest(int joint) const { return atRest_[joint]; }
  PixelPoint Moved(int joint) const { return moved_[joint]; }
  bool Moves(int joint) const { return moves_[joint] != 0; }

 private:
  Table<PixelPoint> atRest_, moved_;
  Table<char> moves_;
};

PixelLine Between(PixelPoint a, PixelPoint b) { return {a.X, a.Y, b.X, b.Y}; }

void AddMembers(const TrussGraph& graph, const JointPlaces& places, MotionDrawing& drawing) {
  for (const PlacedUnknown& unknown : graph.Unknowns.First(graph.NumUnknowns())) {
    if (!unknown.IsMember() || (!places.Moves(unknown.JointA) && !places.Moves(unknown.JointB))) continue;
    drawing.AtRest.push_back(Between(places.AtRest(unknown.JointA), places.AtRest(unknown.JointB)));
    drawing.Moved.push_back(Between(places.Moved(unknown.JointA), places.Moved(unknown.JointB)));
  }
}

// A small displacement keeps its direction, and gets a length that can be seen.
PixelLine ArrowFrom(PixelPoint from, double dx, double dy) {
  const double length = std::hypot(dx, dy);
  const double stretch = length > 0 ? std::max(1.0, double{ShortestMotionArrow} / length) : 0;
  return {from.X, from.Y, FiniteSingle(from.X + stretch * dx), FiniteSingle(from.Y + stretch * dy)};
}

// Of many arrows only the first of those that begin close to each other is drawn.
class Crowd {
 public:
  bool Takes(PixelPoint place) {
    const auto cell = [](float pixel) { return static_cast<int>(OntoPaper(pixel) / CellOfCrowdedArrow); };
    return taken_.emplace(cell(place.X), cell(place.Y)).second;
  }

 private:
  std::set<std::pair<int, int>> taken_;
};

void AddArrows(const Motion& motion, const JointPlaces& places, double pixelsPerUnit,
               MotionDrawing& drawing) {
  Crowd crowd;
  for (const JointDisplacement& at : motion.Joints) {
    const PixelPoint from = places.AtRest(at.Joint);
    if (motion.Joints.size() > MostArrowsAnywhere && !crowd.Takes(from)) continue;
    drawing.Arrows.push_back(ArrowFrom(from, pixelsPerUnit * at.Dx, -pixelsPerUnit * at.Dy));
  }
}

void AddMotion(const MotionScene& scene, double size, double swing, MotionDrawing& drawing) {
  const Graph& mapping = drawing.Objects.Mapping;
  const double largest = LargestSwing * size;
  const JointPlaces places(scene.Graph, mapping, *scene.Moves, swing * largest);
  AddMembers(scene.Graph, places, drawing);
  AddArrows(*scene.Moves, places, ArrowOverSwing * largest * PixelsPerUnit(mapping), drawing);
}

void DrawLines(Surface& surface, const std::vector<PixelLine>& lines, int width, int colour) {
  surface.SetLineWidth(width);
  surface.SetForeground(colour);
  for (const PixelLine& line : lines) DrawLine(surface, line);
  surface.SetForeground(Black);
  surface.SetLineWidth(1);
}

void PaintMotionArrow(Surface& surface, const PixelLine& arrow) {
  const auto length =
      std::hypot(static_cast<float>(arrow.X2 - arrow.X1), static_cast<float>(arrow.Y2 - arrow.Y1));
  DrawArrow(surface, arrow.X1, arrow.Y1, arrow.X2, arrow.Y2, MotionArrowWidth,
            std::min(MotionHeadLength, 0.7F * length), LightBlue);
}

Picture PictureIn(const MotionScene& scene, const TextExtent& room, const TextMeasure& measure) {
  Picture picture(measure);
  const MotionDrawing drawing = DrawMotion(scene, {0, 0, room.Width, room.Height}, 1, measure);
  PaintMotion(picture, drawing);
  picture.Crop(MarginOfMotion);
  return picture;
}

}  // namespace

MotionDrawing DrawMotion(const MotionScene& scene, const PixelRect& room, double swing,
                         const TextMeasure& measure) {
  const double held = std::clamp(swing, -1.0, 1.0);
  const double size = ExtentOf(scene.Graph).Size();
  MotionDrawing drawing;
  drawing.Shown = Swung(scene.Document, scene.Graph, scene.Moves, held);
  // A state of self-stress is one without loads.
  if (scene.Stressed != nullptr) {
    for (ForceRec& force : drawing.Shown.ForcesInUse()) force.Active = false;
  }
  ShortenForces(drawing.Shown, size);
  // The room is the same for every swing, so that nothing else moves with it.
  drawing.Objects.Mapping =
      MappingInto(WantedExtent(scene.Stressed != nullptr ? drawing.Shown : scene.Document,
                               drawing.Shown.Settings.ForceScale, scene.Graph, scene.Moves != nullptr),
                  room, MotionBorder);
  LengthenForces(drawing.Shown, PixelsPerUnit(drawing.Objects.Mapping));
  PlaceTruss(drawing.Objects, drawing.Shown, scene.NamesOfForces, measure);
  if (scene.Moves != nullptr) AddMotion(scene, size, held, drawing);
  if (scene.Stressed != nullptr)
    drawing.Marks = MarksOf(*scene.Stressed, scene.Graph, drawing.Objects.Mapping, scene.Format);
  PlaceMotionTexts(scene, room, held, drawing, measure);
  return drawing;
}

void PaintMotion(Surface& surface, const MotionDrawing& drawing) {
  DrawLines(surface, drawing.Moved, MotionBandWidth, MotionYellow);
  DrawLines(surface, drawing.AtRest, 1, DarkGrey);
  PaintStressBands(surface, drawing.Marks);
  PaintDrawing(surface, drawing.Objects, drawing.Shown);
  for (const PixelLine& arrow : drawing.Arrows) PaintMotionArrow(surface, arrow);
  for (const PixelLine& leader : drawing.Leaders) PaintLeader(surface, leader);
  PaintStressTexts(surface, drawing.Marks);
}

Picture MotionPicture(const MotionScene& scene, const TextMeasure& measure, const TextExtent& largest) {
  // Names and supports reach over the room's border by no more than can be given back.
  TextExtent room = largest;
  Picture picture = PictureIn(scene, room, measure);
  for (int attempt = 0; attempt < 4; ++attempt) {
    const float wider = std::max(0.0F, picture.Frame().Width() - largest.Width);
    const float higher = std::max(0.0F, picture.Frame().Height() - largest.Height);
    if (wider <= 0 && higher <= 0) break;
    room = {std::max(1.0F, room.Width - wider), std::max(1.0F, room.Height - higher)};
    picture = PictureIn(scene, room, measure);
  }
  return picture;
}
