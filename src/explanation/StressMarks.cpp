#include "explanation/StressMarks.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

#include "canvas/Arrow.h"
#include "canvas/Paper.h"
#include "document/Truss.h"
#include "platform/Palette.h"

namespace {

// The bands are light enough for a black line to be seen on them; arrows are dark.
constexpr std::int16_t Cyan = 11, Magenta = 13, DarkCyan = 3, DarkMagenta = 5;
constexpr int StressBandWidth = 8;  // pixels

// A reaction's arrow ends clear of the support's picture, or begins there when it pulls; pixels.
constexpr float NearEnd = 20, FarEnd = 46;
constexpr float StressTextGap = 3;

// Where along a member its text may stand, the best place first.
constexpr std::array TextPlaces = {0.5, 0.36, 0.64, 0.24, 0.76};

struct TextBox {
  float Left, Top, Right, Bottom;

  bool Meets(const TextBox& other) const {
    return Left < other.Right && other.Left < Right && Top < other.Bottom && other.Top < Bottom;
  }
};

TextBox BoxAbout(PixelPoint centre, const TextExtent& extent) {
  return {centre.X - extent.Width / 2, centre.Y - extent.Height / 2, centre.X + extent.Width / 2,
          centre.Y + extent.Height / 2};
}

std::string Named(const std::string& name) {
  return name.empty() || name == UnnamedCaption ? std::string() : name + ' ';
}

class Marker {
 public:
  Marker(const TrussGraph& graph, const Graph& mapping, const ReportFormat& format,
         const TextMeasure& measure)
      : graph_(graph), mapping_(mapping), format_(format), measure_(measure) {}

  std::vector<StressMark> All(const SelfStress& stress) {
    std::vector<StressMark> marks;
    const bool withTexts = stress.Forces.size() <= MostMarkTexts;
    for (const UnknownForce& force : stress.Forces) {
      const PlacedUnknown& unknown = graph_.Unknowns[force.Unknown];
      if (!unknown.IsMember() && unknown.Sign == 0) continue;
      marks.push_back(unknown.IsMember() ? OfMember(unknown, force) : OfReaction(unknown, force));
      if (!withTexts) marks.back().Text.clear();
    }
    return marks;
  }

 private:
  PixelPoint At(int joint) const {
    return {mapping_.XPixel(graph_.Joints[joint].X), mapping_.YPixel(graph_.Joints[joint].Y)};
  }

  StressMark OfMember(const PlacedUnknown& unknown, const UnknownForce& force) {
    const PixelPoint a = At(unknown.JointA);
    const PixelPoint b = At(unknown.JointB);
    const bool pushes = force.Value > 0;
    StressMark mark{
        .Unknown = force.Unknown,
        .IsCompression = pushes,
        .Line = {a.X, a.Y, b.X, b.Y},
        .Text = Named(unknown.Name) + FormatSigFigs(std::abs(force.Value), format_) + (pushes ? " C" : " T"),
        .TextTopLeft = {}};
    mark.TextTopLeft = PlaceOn(mark.Line, measure_(TextFont{}, mark.Text));
    return mark;
  }

  // In the middle of the member, or where no other text stands: of two members that cross, say.
  PixelPoint PlaceOn(const PixelLine& line, const TextExtent& extent) {
    const auto boxAt = [&](double share) {
      return BoxAbout({static_cast<float>((1 - share) * double{line.X1} + share * double{line.X2}),
                       static_cast<float>((1 - share) * double{line.Y1} + share * double{line.Y2})},
                      extent);
    };
    TextBox place = boxAt(TextPlaces.front());
    if (taken_.size() > MostMarkTexts) return {place.Left, place.Top};
    for (const double share : TextPlaces) {
      const TextBox box = boxAt(share);
      if (std::ranges::any_of(taken_, [&](const TextBox& other) { return box.Meets(other); })) continue;
      place = box;
      break;
    }
    return Take(place);
  }

  // The arrow points in the direction of the force, and its text stands beyond it.
  StressMark OfReaction(const PlacedUnknown& unknown, const UnknownForce& force) {
    const PixelPoint joint = At(unknown.JointA);
    const PixelPoint side = FreeSide(unknown);
    const PixelPoint nearEnd{joint.X + NearEnd * side.X, joint.Y + NearEnd * side.Y};
    const PixelPoint farEnd{joint.X + FarEnd * side.X, joint.Y + FarEnd * side.Y};
    const PixelPoint positive = PositiveDirection(unknown);
    const bool pushes = force.Value > 0;
    const bool outwards = (positive.X * side.X + positive.Y * side.Y > 0) == pushes;
    const PixelPoint from = outwards ? nearEnd : farEnd;
    const PixelPoint to = outwards ? farEnd : nearEnd;
    StressMark mark{.Unknown = force.Unknown,
                    .IsCompression = pushes,
                    .Line = {from.X, from.Y, to.X, to.Y},
                    .Text = Named(unknown.Name) + FormatSigFigs(force.Value, format_),
                    .TextTopLeft = {}};
    const TextExtent extent = measure_(TextFont{}, mark.Text);
    mark.TextTopLeft = Take(IntoTheRoom(BoxAbout({farEnd.X + side.X * (StressTextGap + extent.Width / 2),
                                                  farEnd.Y + side.Y * (StressTextGap + extent.Height / 2)},
                                                 extent)));
    return mark;
  }

  // Beside the edge a text stands over its arrow's tail rather than being cut.
  TextBox IntoTheRoom(TextBox box) const {
    const auto moved = [](float from, float to, float least, float most) {
      return from < least ? least - from : to > most ? std::max(most - to, least - from) : 0.0F;
    };
    const float x = moved(box.Left, box.Right, mapping_.PixelX1 + 1, mapping_.PixelX2 - 1);
    const float y = moved(box.Top, box.Bottom, mapping_.PixelY2 + 1, mapping_.PixelY1 - 1);
    return {box.Left + x, box.Top + y, box.Right + x, box.Bottom + y};
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
    const PixelPoint from = At(joint);
    return std::ranges::any_of(graph_.Unknowns.First(graph_.NumUnknowns()), [&](const PlacedUnknown& other) {
      if (!other.IsMember() || (other.JointA != joint && other.JointB != joint)) return false;
      const PixelPoint to = At(other.JointA == joint ? other.JointB : other.JointA);
      const double dx = double{to.X} - double{from.X};
      const double dy = double{to.Y} - double{from.Y};
      return dx * double{direction.X} + dy * double{direction.Y} > nearly * std::hypot(dx, dy);
    });
  }

  PixelPoint Take(const TextBox& box) {
    taken_.push_back(box);
    return {box.Left, box.Top};
  }

  const TrussGraph& graph_;
  const Graph& mapping_;
  const ReportFormat& format_;
  const TextMeasure& measure_;
  std::vector<TextBox> taken_;
};

// On white, so that the member's line does not run through it.
void PrintOnPaper(Surface& surface, const StressMark& mark) {
  const TextExtent extent = surface.Extent(mark.Text);
  const float left = OntoPaper(mark.TextTopLeft.X);
  const float top = OntoPaper(mark.TextTopLeft.Y);
  const float right = left + extent.Width + RimWidth;
  const std::array<PixelPoint, 4> paper = {{{left - RimWidth, top},
                                            {right, top},
                                            {right, top + extent.Height},
                                            {left - RimWidth, top + extent.Height}}};
  surface.FillPolygon(paper, White);
  surface.SetForeground(Black);
  surface.PrintText(left, top, mark.Text);
}

}  // namespace

std::vector<StressMark> MarksOf(const SelfStress& stress, const TrussGraph& graph, const Graph& mapping,
                                const ReportFormat& format, const TextMeasure& measure) {
  return Marker(graph, mapping, format, measure).All(stress);
}

void PaintStressBands(Surface& surface, const std::vector<StressMark>& marks, const TrussGraph& graph) {
  surface.SetLineWidth(StressBandWidth);
  for (const StressMark& mark : marks) {
    if (!graph.Unknowns[mark.Unknown].IsMember()) continue;
    surface.SetForeground(mark.IsCompression ? Cyan : Magenta);
    DrawLine(surface, mark.Line);
  }
  surface.SetForeground(Black);
  surface.SetLineWidth(1);
}

void PaintStressTexts(Surface& surface, const std::vector<StressMark>& marks, const TrussGraph& graph) {
  for (const StressMark& mark : marks) {
    if (graph.Unknowns[mark.Unknown].IsMember()) continue;
    DrawArrow(surface, mark.Line.X1, mark.Line.Y1, mark.Line.X2, mark.Line.Y2, 2, LabelArrowSize,
              mark.IsCompression ? DarkCyan : DarkMagenta);
  }
  surface.SetFont(TextFont{});
  for (const StressMark& mark : marks) {
    if (mark.Text.empty()) continue;
    PrintOnPaper(surface, mark);
  }
  surface.SetForeground(Black);
}
