// Finds places for texts on a drawing, one text after the other: each takes the first of the places it may
// have that is free, so that no text ever covers anything.
#pragma once

#include <optional>

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

/// A place that is found is taken: no later text has it.
class TextPlacer {
 public:
  /// Pixels around everything that a text must not touch.
  static constexpr float Air = 1.5F;

  explicit TextPlacer(const PixelRect& area) : room_(area) {}

  /// For what is drawn; nothing that is added later moves a text.
  LabelRoom& Room() { return room_; }

  std::optional<TextPlace> At(const PixelRect& box);

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
  LabelRoom room_;
  int numTries_ = 0;
};
