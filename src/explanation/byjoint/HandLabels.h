// Where the texts stand in the picture of a step.
#pragma once

#include <string>
#include <vector>

#include "explanation/byjoint/HandPicture.h"
#include "explanation/forces/TextPlacer.h"

/// More forces, or joints, have no texts of their own: they would cover everything.
inline constexpr std::size_t MostHandTexts = 80, MostHandNames = 60;

/// Of joints; forces have TextFont{}.
inline constexpr TextFont HandNameFont{.Points = 10, .Bold = true};

/// Gives a picture its texts. None covers another one, nor a line, a joint or an arrow; a text without room
/// is left out.
class HandLabels {
 public:
  /// All must outlive it.
  HandLabels(HandPicture& picture, const PixelRect& room, const TextMeasure& measure)
      : picture_(picture), measure_(measure), placer_(room) {}

  /// Takes note of what is drawn; before the first text.
  void KeepClear();

  /// Beside an arrow of the picture that stands at the joint.
  void Arrow(HandArrow& arrow, const std::string& text, PixelPoint joint);

  /// Beside an arrow that points to the line of a cut, on the arrow's side of it.
  void CutArrow(HandArrow& arrow, const std::string& text);

  /// Beside a joint, first in the widest gap between the directions (of length 1, y upward) that are taken.
  void Name(const std::string& name, PixelPoint joint, const std::vector<PixelVector>& taken);

 private:
  static void Put(HandArrow& arrow, const std::string& text, const TextPlace& place);

  HandPicture& picture_;
  const TextMeasure& measure_;
  TextPlacer placer_;
};
