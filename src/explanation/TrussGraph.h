// The truss as statics sees it, apart from how it is drawn: joints, what each unknown force does to which
// joint, and the loads. Joints and unknowns keep the numbers of the analysis, from 1.
#pragma once

#include <string>
#include <vector>

#include "analysis/Analysis.h"
#include "document/Table.h"
#include "document/Truss.h"

enum class Axis { X, Y };

struct PlacedJoint {
  float X = 0, Y = 0;  ///< world coordinates
  SharedText Name;     ///< a single-byte text, as everywhere
};

/// Where an unknown force acts. A member pushes its two joints apart when positive; a reaction acts on its
/// joint along an axis.
struct PlacedUnknown {
  int JointA = 0;        ///< of a member: at its end 1; of a reaction: the joint
  int JointB = 0;        ///< of a member: at its end 2; 0 for a reaction
  Axis Along = Axis::X;  ///< of a reaction
  int Sign = 1;          ///< of a reaction: +1 or -1; 0 for one that is taken out on trial
  SharedText Name{};

  bool IsMember() const { return JointB != 0; }
};

struct PlacedLoad {
  int Joint = 0;
  float Fx = 0, Fy = 0;  ///< force units
};

struct TrussGraph {
  Table<PlacedJoint> Joints;
  Table<PlacedUnknown> Unknowns;
  std::vector<PlacedLoad> Loads;  ///< one for each active force, in table order

  int NumJoints() const { return Joints.Size(); }
  int NumEquations() const { return 2 * Joints.Size(); }
  int NumUnknowns() const { return Unknowns.Size(); }
};

TrussGraph GraphOf(const Truss& truss, const TrussAnalysis& analysis);

/// The connected pieces of a truss: joints that members join, directly or through others.
struct TrussPieces {
  Table<int> OfJoint;  ///< the piece, 0 .. Count - 1, of each joint
  int Count = 0;
};
TrussPieces PiecesOf(const TrussGraph& graph);

/// The unknowns that act on each joint, ascending; a member of no length stands there once.
Table<std::vector<int>> UnknownsByJoint(const TrussGraph& graph);
