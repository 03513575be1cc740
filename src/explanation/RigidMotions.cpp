#include "explanation/RigidMotions.h"

#include <algorithm>
#include <optional>

namespace {

// The one coordinate that all reactions along an axis share, if they do.
struct Line {
  bool Exists = false;  // there is a reaction along the axis
  bool Shared = true;   // they all stand on one line
  float At = 0;
};

void Meet(Line& line, float at) {
  if (line.Exists && line.At != at) line.Shared = false;
  line.Exists = true;
  line.At = at;
}

// How far a coordinate lies beyond the middle of two others, all as they are written: the doubles of singles
// would leave a ten millionth of a lengthening in the members.
double FromMiddle(float at, float a, float b) {
  return (WrittenDifference(at, a) + WrittenDifference(at, b)) / 2;
}

double Middle(float a, float b) { return a == b ? double{a} : WrittenDifference(a, -b) / 2; }

// The turning centre: on the reactions' lines, and in the middle of the drawing where these leave it open.
RigidMotion TurnAbout(const TrussGraph& graph, const Line& acrossX, const Line& acrossY) {
  const auto [left, right] = std::ranges::minmax(graph.Joints.First(graph.NumJoints()), {}, &PlacedJoint::X);
  const auto [low, high] = std::ranges::minmax(graph.Joints.First(graph.NumJoints()), {}, &PlacedJoint::Y);
  RigidMotion motion{.Turns = true};
  motion.CentreX1 = acrossX.Exists ? acrossX.At : left.X;
  motion.CentreX2 = acrossX.Exists ? acrossX.At : right.X;
  motion.CentreY1 = acrossY.Exists ? acrossY.At : low.Y;
  motion.CentreY2 = acrossY.Exists ? acrossY.At : high.Y;
  motion.CentreX = Middle(motion.CentreX1, motion.CentreX2);
  motion.CentreY = Middle(motion.CentreY1, motion.CentreY2);
  return motion;
}

}  // namespace

std::vector<RigidMotion> RigidMotions(const TrussGraph& graph) {
  std::vector<RigidMotion> motions;
  motions.reserve(3);
  if (graph.NumJoints() == 0) return motions;
  Line alongX;  // reactions along x hold the line y = At
  Line alongY;
  for (int k = 1; k <= graph.NumUnknowns(); ++k) {
    const PlacedUnknown& unknown = graph.Unknowns[k];
    if (unknown.IsMember()) continue;
    const PlacedJoint& joint = graph.Joints[unknown.JointA];
    if (unknown.Along == Axis::X) {
      Meet(alongX, joint.Y);
    } else {
      Meet(alongY, joint.X);
    }
  }
  if (!alongX.Exists) motions.push_back({.Ux = 1});
  if (!alongY.Exists) motions.push_back({.Uy = 1});
  // A single joint that turns about itself does not move.
  if (alongX.Shared && alongY.Shared && graph.NumJoints() > 1)
    motions.push_back(TurnAbout(graph, alongY, alongX));
  return motions;
}

std::vector<double> Displacements(const RigidMotion& motion, const TrussGraph& graph) {
  std::vector<double> displacements(static_cast<std::size_t>(graph.NumEquations()));
  for (int j = 1; j <= graph.NumJoints(); ++j) {
    const PlacedJoint& joint = graph.Joints[j];
    double& dx = displacements[static_cast<std::size_t>(ColumnOf(j, Axis::X))];
    double& dy = displacements[static_cast<std::size_t>(ColumnOf(j, Axis::Y))];
    dx = motion.Turns ? -FromMiddle(joint.Y, motion.CentreY1, motion.CentreY2) : motion.Ux;
    dy = motion.Turns ? FromMiddle(joint.X, motion.CentreX1, motion.CentreX2) : motion.Uy;
  }
  return displacements;
}

template <class Field>
ModularRow ExactDisplacements(const RigidMotion& motion, const TrussGraph& graph) {
  const auto middle = [](float a, float b) {
    return Field::Multiply(Field::Add(Field::FromDecimal(a), Field::FromDecimal(b)), Field::Inverse(2));
  };
  const std::uint64_t centreX = middle(motion.CentreX1, motion.CentreX2);
  const std::uint64_t centreY = middle(motion.CentreY1, motion.CentreY2);
  ModularRow row;
  for (int j = 1; j <= graph.NumJoints(); ++j) {
    const PlacedJoint& joint = graph.Joints[j];
    const std::uint64_t dx = motion.Turns ? Field::Subtract(centreY, Field::FromDecimal(joint.Y))
                                          : static_cast<std::uint64_t>(motion.Ux);
    const std::uint64_t dy = motion.Turns ? Field::Subtract(Field::FromDecimal(joint.X), centreX)
                                          : static_cast<std::uint64_t>(motion.Uy);
    if (dx != 0) row.push_back({ColumnOf(j, Axis::X), dx});
    if (dy != 0) row.push_back({ColumnOf(j, Axis::Y), dy});
  }
  return row;
}

template ModularRow ExactDisplacements<FirstField>(const RigidMotion&, const TrussGraph&);
template ModularRow ExactDisplacements<SecondField>(const RigidMotion&, const TrussGraph&);
