// The picture of a step: a joint drawn alone with the forces on it, or the part of the truss that is looked
// at.
#pragma once

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
  PixelLine Line;   ///< to the head; of Zero and Open without one
  ForceRole Role = ForceRole::Known;
  std::string Text{};  ///< "AB 1875 T", "Ay 2500", "1000", "CD 0", "CI ?"
  PixelRect TextBox{};
};

struct HandPicture {
  std::vector<PixelLine> Others;  ///< members outside the part, in grey
  std::vector<PixelLine> Part;    ///< members of the part
  std::vector<HandArrow>
      Arrows;  ///< forces on the joint or the part, as they act: away from a joint is tension
  std::vector<PixelPoint> Pins;    ///< joints of the part
  std::vector<PixelPoint> Points;  ///< about which moments are taken

  struct Name {
    std::string Text;
    PixelRect Box;
  };
  std::vector<Name> Names;  ///< of joints
};

/// Draws step `index` (from 0) in a room of this size (pixels). Values that the step gives stand in it; those
/// of later steps do not.
HandPicture DrawHandStep(const TrussGraph& graph, const HandSolution& solution, std::size_t index,
                         const PixelRect& room, const ReportFormat& format, const TextMeasure& measure);

/// Leaves a black foreground, a line width of 1 and the font TextFont{}.
void PaintHandPicture(Surface& surface, const HandPicture& picture);

/// The same for files and documents, cropped.
Picture PictureOfHandStep(const TrussGraph& graph, const HandSolution& solution, std::size_t index,
                          const ReportFormat& format, const TextMeasure& measure);

/// What the picture shows, in words: "Joint A alone: AH pushes with 3125, AB pulls with 1875, ...".
std::string DescribeHandStep(const TrussGraph& graph, const HandSolution& solution, std::size_t index,
                             const ReportFormat& format);
