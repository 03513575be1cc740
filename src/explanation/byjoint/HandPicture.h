// The picture of a step: a joint drawn alone with the forces on it, or the part of the truss that is looked
// at, with the cut around it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "analysis/FormatSigFigs.h"
#include "canvas/Drawing.h"
#include "explanation/byjoint/HandSteps.h"
#include "platform/Picture.h"
#include "platform/TextMeasure.h"

/// Pixels; all forces on a joint that is drawn alone have arrows of one length.
inline constexpr float LongestJointArrow = 80;

/// What a force is to the step: nothing of it is left to find, or the step gives it, or it stays open.
enum class ForceRole { Known, Found, Zero, Open, Load };

struct HandArrow {
  int Unknown = 0;  ///< 0: a load
  PixelLine Line;   ///< to the head
  bool HasHead = true;
  ForceRole Role = ForceRole::Known;
  std::string Text{};  ///< "AB 1875 T", "Ay 2500", "1000", "CD 0", "CI ?"; empty where it has no room
  PixelRect TextBox{};
  std::optional<PixelLine> Leader{};  ///< from the text to the arrow, when it stands away from it
};

struct HandPicture {
  std::vector<PixelLine> Others;  ///< members outside the part, and what is cut off, in grey
  std::vector<PixelLine> Part;    ///< members of the part; those that are cut up to the cut
  std::vector<PixelLine> Cut;     ///< the line of the cut, broken
  std::vector<HandArrow> Arrows;
  std::vector<PixelPoint> Pins;    ///< joints of the part
  std::vector<PixelPoint> Points;  ///< about which moments are taken

  struct Name {
    std::string Text;
    PixelRect Box;
  };
  std::vector<Name> Names;  ///< of joints, and of the points about which moments are taken
};

/// Draws step `index` (from 0) in a room of this size (pixels). Values that the step gives stand in it; those
/// of later steps do not.
HandPicture DrawHandStep(const TrussGraph& graph, const HandSolution& solution, std::size_t index,
                         const PixelRect& room, const ReportFormat& format, const TextMeasure& measure);

/// Whether the arrows of a step's picture show the senses assumed, as its equations do, with the numbers of
/// the solutions; otherwise they show the senses found, with magnitudes.
bool ShowsAssumedSenses(const HandStep& step);

/// Says which of them it is, for whoever looks at the picture.
std::string NoteOfArrows(const HandStep& step);

/// Leaves a black foreground, a line width of 1 and the font TextFont{}.
void PaintHandPicture(Surface& surface, const HandPicture& picture);

/// The same for files and documents, cropped.
Picture PictureOfHandStep(const TrussGraph& graph, const HandSolution& solution, std::size_t index,
                          const ReportFormat& format, const TextMeasure& measure);

/// What the picture shows, in words: "Joint A alone, and what acts on it: AH 3125 C, ...".
std::string DescribeHandStep(const TrussGraph& graph, const HandSolution& solution, std::size_t index,
                             const ReportFormat& format);
