// Finds places for texts on a drawing, one text after the other: each takes the first of the places it may
// have that is free, so that no text ever covers anything.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "canvas/Paper.h"
#include "explanation/forces/LabelRoom.h"
#include "platform/Picture.h"
#include "platform/TextMeasure.h"

/// Pixels, y downward.
struct PixelVector {
  double X = 0, Y = 0;
};

struct TextPlace {
  PixelRect Box;
  std::optional<PixelLine>
      Leader{};  ///< from the box to what the text is about, when it stands away from that
};

/// The box of a text around its middle.
PixelRect BoxAround(const PixelVector& middle, const TextExtent& extent);

/// How far a text's box reaches from its middle in a direction of length 1.
double ReachOf(const TextExtent& extent, const PixelVector& direction);

/// The direction of length 1 that is turned by this angle (radians) from the right, clockwise.
PixelVector Towards(double turn);

/// A place that is found is taken: no later text has it. A drawing that moves is several pictures, and a text
/// goes along with what it is about: its place is one that is free in all of them.
class TextPlacer {
 public:
  /// Pixels around everything that a text must not touch.
  static constexpr float Air = 1.5F;

  explicit TextPlacer(const PixelRect& area, std::size_t numPictures = 1)
      : rooms_(numPictures, LabelRoom(area)), shifts_(numPictures), middle_(MiddleOf(area)) {}

  std::size_t NumPictures() const { return rooms_.size(); }

  /// For what is drawn in a picture; nothing that is added later moves a text.
  LabelRoom& Room(std::size_t picture = 0) { return rooms_[picture]; }

  /// How far texts that are placed from now on stand, in each picture, from where they are said to stand.
  void GoAlong(std::vector<PixelVector> shifts);

  std::optional<TextPlace> At(const PixelRect& box);

  /// Beside a joint, clear of its pin: to the lower right, where the canvas has it, or on another side, or
  /// away with a leader.
  std::optional<TextPlace> ByJoint(PixelPoint joint, const TextExtent& extent);

  /// Along a member that is drawn this wide (pixels), first on the side away from the middle of the area;
  /// or away with a leader.
  std::optional<TextPlace> ByMember(const PixelLine& line, int width, const TextExtent& extent);

  /// Beyond a point in a direction of length 1, clear of it by this many pixels.
  std::optional<TextPlace> Beyond(const PixelVector& at, const PixelVector& direction, double distance,
                                  const TextExtent& extent);

  /// Beyond the end of an arrow that is farther from its joint, or beside that end, or away with a leader;
  /// `width` is that of its head (pixels).
  std::optional<TextPlace> ByArrow(const PixelLine& line, PixelPoint joint, float width,
                                   const TextExtent& extent);

  /// Away from a point, with a leader that ends there or `clearOfEnd` pixels before; `first` is the direction
  /// that is tried first.
  std::optional<TextPlace> WithLeader(const PixelVector& at, const PixelVector& first, double clearOfEnd,
                                      const TextExtent& extent);

 private:
  static PixelVector MiddleOf(const PixelRect& area) {
    return {(double{area.Left} + double{area.Right}) / 2, (double{area.Top} + double{area.Bottom}) / 2};
  }

  bool IsFree(const PixelRect& box) const;
  bool IsClear(const PixelLine& leader) const;
  PixelVector Outwards(const PixelLine& line, double length) const;

  std::vector<LabelRoom> rooms_;     // by picture
  std::vector<PixelVector> shifts_;  // by picture
  PixelVector middle_;
  int numTries_ = 0;
};
