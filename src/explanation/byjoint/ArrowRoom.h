// Where the arrows at the joints of a picture stand: none on another one, nor on a member.
#pragma once

#include <functional>
#include <map>
#include <vector>

#include "canvas/Paper.h"
#include "explanation/forces/TextPlacer.h"

/// How an arrow stands at its joint.
struct ArrowStand {
  PixelVector Side;  ///< where it is, seen from the joint; of length 1, y upward
  double Shift = 0;  ///< pixels to the left of that side, for an arrow beside another one
};

class ArrowRoom {
 public:
  /// An arrow or a member that is drawn at this joint.
  void Add(int joint, const PixelLine& line) { taken_[joint].push_back(line); }

  /// On `usual`, else on the other side of the joint, else as little beside these as it takes to stand clear
  /// of all that was added there; where nothing does, where it stands clearest. `lineAt` gives the arrow.
  ArrowStand StandFor(int joint, const PixelVector& usual,
                      const std::function<PixelLine(const ArrowStand&)>& lineAt) const;

 private:
  double ClearanceOf(int joint, const PixelLine& line) const;

  std::map<int, std::vector<PixelLine>> taken_;
};

/// The least distance between points of two lines, pixels.
double DistanceBetween(const PixelLine& a, const PixelLine& b);
