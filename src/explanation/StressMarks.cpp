#include "explanation/StressMarks.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>
#include <utility>

#include "canvas/Arrow.h"
#include "canvas/Paper.h"
#include "explanation/forces/ForceLabels.h"
#include "explanation/forces/PaintForces.h"
#include "explanation/forces/TrussForces.h"
#include "platform/Palette.h"

namespace {

// The bands are light enough for a black line to be seen on them; arrows are dark.
constexpr std::int16_t Cyan = 11, Magenta = 13, DarkCyan = 3, DarkMagenta = 5;

// A reaction's arrow ends clear of the support's picture, or begins there when it pulls; pixels.
constexpr float NearEnd = 20, FarEnd = 46;
constexpr int StressArrowWidth = 2;
constexpr float StressHeadWidth = 0.4F * LabelArrowSize + 2 * TextPlacer::Air;

class Marker {
 public:
  Marker(const TrussGraph& graph, const Graph& mapping, const ReportFormat& format)
      : graph_(graph), mapping_(mapping), format_(format) {}

  std::vector<StressMark> All(const SelfStress& stress) {
    std::vector<StressMark> marks;
    const bool withTexts = stress.Forces.size() <= MostMarkTexts;
    for (const UnknownForce& force : stress.Forces) {
      const PlacedUnknown& unknown = graph_.Unknowns[force.Unknown];
      StressMark mark{
          .Unknown = force.Unknown,
          .IsCompression = force.Value > 0,
          .Line = unknown.IsMember() ? LineOf(unknown) : ArrowOfReaction(unknown, force.Value > 0),
          .Label = {.What = unknown.IsMember() ? LabelOf::Member : LabelOf::Reaction,
                    .Number = force.Unknown,
                    .Lines = {},
                    .Font = {.Bold = unknown.IsMember()},
                    .Box = {},
                    .Leader = {}}};
      if (withTexts)
        mark.Label.Lines =
            LinesOf(unknown, {.Sense = SenseOf(force.Value), .Value = force.Value, .Lines = {}}, format_);
      marks.push_back(std::move(mark));
    }
    return marks;
  }

 private:
  PixelPoint PlaceOf(int joint) const {
    return {OntoPaper(mapping_.XPixel(graph_.Joints[joint].X)),
            OntoPaper(mapping_.YPixel(graph_.Joints[joint].Y))};
  }

  PixelLine LineOf(const PlacedUnknown& member) const {
    const PixelPoint a = PlaceOf(member.JointA);
    const PixelPoint b = PlaceOf(member.JointB);
    return {a.X, a.Y, b.X, b.Y};
  }

  // It points in the direction of the force.
  PixelLine ArrowOfReaction(const PlacedUnknown& unknown, bool pushes) const {
    const PixelPoint joint = PlaceOf(unknown.JointA);
    const PixelPoint side = FreeSide(unknown);
    const PixelPoint nearEnd{joint.X + NearEnd * side.X, joint.Y + NearEnd * side.Y};
    const PixelPoint farEnd{joint.X + FarEnd * side.X, joint.Y + FarEnd * side.Y};
    const PixelPoint positive = PositiveDirection(unknown);
    const bool outwards = (positive.X * side.X + positive.Y * side.Y > 0) == pushes;
    const PixelPoint from = outwards ? nearEnd : farEnd;
    const PixelPoint to = outwards ? farEnd : nearEnd;
    return {from.X, from.Y, to.X, to.Y};
  }

  static PixelPoint PositiveDirection(const PlacedUnknown& unknown) {
    const auto sign = static_cast<float>(unknown.Sign);
    return unknown.Along == Axis::X ? PixelPoint{sign, 0} : PixelPoint{0, -sign};
  }

  // The side from which a positive force comes, unless a member runs there and none on the other side.
  PixelPoint FreeSide(const PlacedUnknown& unknown) const {
    const PixelPoint positive = PositiveDirection(unknown);
    const PixelPoint usual{-positive.X, -positive.Y};
    return RunsAMember(unknown.JointA, usual) && !RunsAMember(unknown.JointA, positive) ? positive : usual;
  }

  bool RunsAMember(int joint, PixelPoint direction) const {
    constexpr double nearly = 0.9;  // the cosine of some 25 degrees
    const PixelPoint from = PlaceOf(joint);
    return std::ranges::any_of(graph_.Unknowns.First(graph_.NumUnknowns()), [&](const PlacedUnknown& other) {
      if (!other.IsMember() || (other.JointA != joint && other.JointB != joint)) return false;
      const PixelPoint to = PlaceOf(other.JointA == joint ? other.JointB : other.JointA);
      const double dx = double{to.X} - double{from.X};
      const double dy = double{to.Y} - double{from.Y};
      return dx * double{direction.X} + dy * double{direction.Y} > nearly * std::hypot(dx, dy);
    });
  }

  const TrussGraph& graph_;
  const Graph& mapping_;
  const ReportFormat& format_;
};

}  // namespace

std::vector<StressMark> MarksOf(const SelfStress& stress, const TrussGraph& graph, const Graph& mapping,
                                const ReportFormat& format) {
  return Marker(graph, mapping, format).All(stress);
}

void KeepClearOf(const std::vector<StressMark>& marks, LabelRoom& room) {
  for (const StressMark& mark : marks) {
    if (mark.Label.What == LabelOf::Member) {
      room.AddLine(mark.Line, StressBandWidth + 2 * TextPlacer::Air);
    } else {
      room.AddArrow(mark.Line, StressHeadWidth);
    }
  }
}

void PlaceStressTexts(std::vector<StressMark>& marks, const TrussGraph& graph, const Graph& mapping,
                      TextPlacer& placer, const TextMeasure& measure) {
  const auto place = [&](StressMark& mark) {
    const TextExtent extent = ExtentOfLines(mark.Label, measure);
    if (mark.Label.What == LabelOf::Member) return placer.ByMember(mark.Line, StressBandWidth, extent);
    const PlacedJoint& joint = graph.Joints[graph.Unknowns[mark.Unknown].JointA];
    return placer.ByArrow(mark.Line, {mapping.XPixel(joint.X), mapping.YPixel(joint.Y)}, StressHeadWidth,
                          extent);
  };
  for (const LabelOf what : {LabelOf::Reaction, LabelOf::Member}) {
    for (StressMark& mark : marks) {
      ForceLabel& label = mark.Label;
      if (label.What != what) continue;
      // Where there is no room for the signed number below it, the magnitude stands alone.
      for (; !label.Lines.empty(); label.Lines.pop_back()) {
        const std::optional<TextPlace> found = place(mark);
        if (!found) continue;
        label.Box = found->Box;
        label.Leader = found->Leader;
        break;
      }
    }
  }
}

void PaintStressBands(Surface& surface, const std::vector<StressMark>& marks) {
  surface.SetLineWidth(StressBandWidth);
  for (const StressMark& mark : marks) {
    if (mark.Label.What != LabelOf::Member) continue;
    surface.SetForeground(mark.IsCompression ? Cyan : Magenta);
    DrawLine(surface, mark.Line);
  }
  surface.SetForeground(Black);
  surface.SetLineWidth(1);
}

void PaintStressTexts(Surface& surface, const std::vector<StressMark>& marks) {
  for (const StressMark& mark : marks) {
    if (mark.Label.What == LabelOf::Member) continue;
    DrawArrow(surface, mark.Line.X1, mark.Line.Y1, mark.Line.X2, mark.Line.Y2, StressArrowWidth,
              LabelArrowSize, mark.IsCompression ? DarkCyan : DarkMagenta);
  }
  for (const StressMark& mark : marks) {
    if (mark.Label.Leader) PaintLeader(surface, *mark.Label.Leader);
  }
  for (const StressMark& mark : marks) {
    if (!mark.Label.Lines.empty()) PaintLabel(surface, mark.Label);
  }
  surface.SetFont(TextFont{});
  surface.SetLineWidth(1);
  surface.SetForeground(Black);
}
