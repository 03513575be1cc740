// What counts as nearly the same place in a drawing: for the checks of the drawing, and so that no advice
// makes what they would find.
#pragma once

#include <functional>

#include "canvas/Graph.h"
#include "document/Truss.h"
#include "explanation/TrussGraph.h"

/// Where a truss is drawn, as far as the checks ask.
struct DrawnWhere {
  CanvasBounds Bounds;
  float CanvasWidth = 566, CanvasHeight = 453;  ///< pixels
  float SnapX = 0, SnapY = 0;  ///< world units: closer than this on both axes the mouse joins two points
};

/// A canvas of this size in pixels with this mapping.
DrawnWhere DrawnOn(const CanvasBounds& bounds, const Graph& mapping, float width, float height);

/// A canvas of the usual size, as the truss would be opened. Its view must be up to date.
DrawnWhere UsuallyDrawn(const Truss& truss);

/// The line of a member between two places.
class MemberLine {
 public:
  MemberLine(const PlacedJoint& from, const PlacedJoint& to);

  double Length() const { return length_; }

  /// A place as seen from the member: how far along it, and how far beside its line. Both in world units; the
  /// member must have a length.
  struct Seen {
    double Along, Aside;
  };
  Seen See(const PlacedJoint& place) const;

 private:
  double fromX_, fromY_, x_, y_, length_;
};

class NearPlaces {
 public:
  /// Only equal places are near each other.
  NearPlaces() = default;

  /// `size` is the longer side of the rectangle around all joints, world units: of a drawing that is tiny on
  /// its canvas nothing is near that is farther apart than a tenth of it.
  NearPlaces(const DocumentSettings& settings, const DrawnWhere& where, double size);

  /// Of the drawing's width, or what is near in a tiny drawing, world units.
  double Thousandth() const { return thousandth_; }

  /// Whether two joints nearly meet: the mouse would join them, or they are not farther apart than a
  /// thousandth of the drawing's width; and than a tenth of its size.
  bool Meet(const PlacedJoint& a, const PlacedJoint& b) const;

  /// Calls `take` with every two joints that nearly meet, the lower first, by ascending second and then first
  /// joint, until it returns false.
  void ForEachPair(const Table<PlacedJoint>& joints, const std::function<bool(int, int)>& take) const;

  /// Whether a member passes through the joint without ending there, within a thousandth.
  bool PassesThrough(const MemberLine& member, const PlacedJoint& joint) const;

  /// Whether two members lie on one another within a thousandth, all along or for a part longer than that.
  bool LieOnOneAnother(const PlacedJoint& a, const PlacedJoint& b, const PlacedJoint& c,
                       const PlacedJoint& d) const;

 private:
  double snapX_ = 0, snapY_ = 0, thousandth_ = 0, farthest_ = 0;
};
