#include "explanation/MotionTexts.h"

#include <vector>

#include "canvas/Arrow.h"
#include "canvas/PaintDrawing.h"
#include "canvas/PixelBoxes.h"
#include "canvas/SupportPicture.h"
#include "explanation/SwungTruss.h"
#include "explanation/forces/TextPlacer.h"

namespace {

constexpr float MotionHeadWidth = 0.4F * MotionHeadLength + 2 * TextPlacer::Air;
constexpr float LoadHeadWidth = 0.4F * ForceHeadLength + 2 * TextPlacer::Air;
constexpr float NameArrowWidth = 0.4F * LabelArrowSize + 2 * TextPlacer::Air;

// The swings at which a place must be free. At rest first: places are told as they are then.
std::vector<double> SwingsToBeFreeAt(const MotionScene& scene, double swing) {
  if (scene.Moves == nullptr) return {0};
  // The names of forces stand where they are in this picture.
  if (scene.NamesOfForces) return {swing};
  return {0, 1, -1, 0.5, -0.5};
}

class MotionTexts {
 public:
  MotionTexts(const MotionScene& scene, const PixelRect& room, double swing, MotionDrawing& drawing)
      : scene_(scene), drawing_(drawing) {
    for (const double at : SwingsToBeFreeAt(scene, swing))
      pictures_.push_back(Swung(scene.Document, scene.Graph, scene.Moves, at));
    placer_.emplace(room, pictures_.size());
    for (std::size_t i = 0; i < pictures_.size(); ++i) KeepClearOfTruss(pictures_[i], placer_->Room(i));
    for (std::size_t i = 0; i < pictures_.size(); ++i) KeepClearOfRest(placer_->Room(i));
  }

  void NamesOfJoints() {
    for (int j = 1; j <= drawing_.Shown.NumJoints; ++j) {
      const LabelIndex label = drawing_.Shown.Joints[j].NameLabel;
      if (label != 0 && drawing_.Objects.lblRodJoint[label].Visible)
        NameOfJoint(j, drawing_.Objects.lblRodJoint[label]);
    }
  }

  void SelfStress(const TextMeasure& measure) {
    placer_->GoAlong({});
    PlaceStressTexts(drawing_.Marks, scene_.Graph, drawing_.Objects.Mapping, *placer_, measure);
  }

 private:
  PixelPoint PointAt(float x, float y) const {
    const Graph& mapping = drawing_.Objects.Mapping;
    return {OntoPaper(mapping.XPixel(x)), OntoPaper(mapping.YPixel(y))};
  }

  PixelPoint PlaceOf(const Truss& truss, int joint) const {
    return PointAt(truss.Joints[joint].X, truss.Joints[joint].Y);
  }

  // Members, pins, supports and loads of the truss as it is swung here.
  void KeepClearOfTruss(const Truss& truss, LabelRoom& room) const {
    constexpr float air = TextPlacer::Air;
    for (int i = 1; i <= truss.NumMembers; ++i) {
      if (!IsRodShown(drawing_.Objects, drawing_.Shown, i)) continue;
      const MemberRec& member = truss.Members[i];
      const PixelPoint a = PointAt(member.X1, member.Y1);
      const PixelPoint b = PointAt(member.X2, member.Y2);
      room.AddLine({a.X, a.Y, b.X, b.Y}, MotionBandWidth + 2 * air);
      for (const PixelPoint& pin : {a, b})
        room.AddBox(Widened({pin.X, pin.Y, pin.X, pin.Y}, PinSize / 2 + air));
    }
    for (int i = 1; i <= truss.NumSupports; ++i) {
      if (!IsSupportShown(drawing_.Objects, drawing_.Shown, i)) continue;
      const SupportRec& support = truss.Supports[i];
      room.AddBox(SupportPictureBox(support.TypeIndex, PointAt(support.X, support.Y)));
    }
    for (int i = 1; i <= truss.NumForces; ++i) {
      if (!IsForceShown(drawing_.Objects, drawing_.Shown, i)) continue;
      const ForceRec& shown = drawing_.Shown.Forces[i];
      const PixelPoint from = PointAt(shown.X, shown.Y);
      const PixelPoint to = PointAt(truss.Forces[i].X, truss.Forces[i].Y);
      const float x = to.X - from.X;
      const float y = to.Y - from.Y;
      const PixelLine& arrow = drawing_.Objects.Force[i];
      room.AddArrow({OntoPaper(arrow.X1 + x), OntoPaper(arrow.Y1 + y), OntoPaper(arrow.X2 + x),
                     OntoPaper(arrow.Y2 + y)},
                    LoadHeadWidth);
    }
  }

  // What does not swing.
  void KeepClearOfRest(LabelRoom& room) const {
    for (const PixelLine& line : drawing_.AtRest) room.AddLine(line, 1 + 2 * TextPlacer::Air);
    for (const PixelLine& arrow : drawing_.Arrows) room.AddArrow(arrow, MotionHeadWidth);
    KeepClearOf(drawing_.Marks, room);
    if (!scene_.NamesOfForces) return;
    std::vector<bool> isOfJoint(static_cast<std::size_t>(drawing_.Objects.lblRodJoint.Size()) + 1);
    for (const JointRec& joint : drawing_.Shown.JointsInUse())
      isOfJoint[static_cast<std::size_t>(joint.NameLabel)] = true;
    for (int i = 1; i <= drawing_.Objects.lblRodJoint.Size(); ++i) {
      const LabelPlace& name = drawing_.Objects.lblRodJoint[i];
      if (name.Visible && !isOfJoint[static_cast<std::size_t>(i)])
        room.AddBox({name.Left, name.Top, name.Left + name.Width, name.Top + name.Height});
    }
    for (const ArrowSegment& segment : drawing_.Objects.ArLin.First(drawing_.Objects.ArLin.Size())) {
      if (segment.Visible) room.AddArrow(segment.Line, NameArrowWidth);
    }
  }

  void NameOfJoint(int joint, LabelPlace& place) {
    const PixelPoint at = PlaceOf(pictures_.front(), joint);
    const auto from = [&at](PixelPoint moved) {
      return PixelVector{double{moved.X} - double{at.X}, double{moved.Y} - double{at.Y}};
    };
    std::vector<PixelVector> shifts;
    for (const Truss& picture : pictures_) shifts.push_back(from(PlaceOf(picture, joint)));
    placer_->GoAlong(shifts);
    const TextExtent extent{.Width = place.Width - place.TextLeft, .Height = place.Height - place.TextTop};
    const std::optional<TextPlace> found = placer_->ByJoint(at, extent);
    place.Visible = found.has_value();
    if (!found) return;
    const PixelVector shown = from(PlaceOf(drawing_.Shown, joint));
    place.Width = extent.Width + RimWidth;
    place.Height = extent.Height;
    place.Left = FiniteSingle(found->Box.Left + shown.X) - RimWidth;
    place.Top = FiniteSingle(found->Box.Top + shown.Y);
    place.TextLeft = RimWidth;
    place.TextTop = 0;
    if (!found->Leader) return;
    const PixelLine& leader = *found->Leader;
    drawing_.Leaders.push_back({FiniteSingle(leader.X1 + shown.X), FiniteSingle(leader.Y1 + shown.Y),
                                FiniteSingle(leader.X2 + shown.X), FiniteSingle(leader.Y2 + shown.Y)});
  }

  const MotionScene& scene_;
  MotionDrawing& drawing_;
  std::vector<Truss> pictures_;
  std::optional<TextPlacer> placer_;
};

}  // namespace

void PlaceMotionTexts(const MotionScene& scene, const PixelRect& room, double swing, MotionDrawing& drawing,
                      const TextMeasure& measure) {
  const bool hasNames = drawing.Shown.NumJoints <= MostNamedJoints;
  if (!hasNames && drawing.Marks.empty()) return;
  MotionTexts texts(scene, room, swing, drawing);
  if (hasNames) texts.NamesOfJoints();
  texts.SelfStress(measure);
}
