// What is known of the forces while a truss is solved by hand, and the equations of balance of its parts.
// Values are doubles, each rounded once from its exact form, in which all is summed up, and which decides
// whether something is 0, whether members are in line, and whether an equation holds.
#pragma once

#include <optional>
#include <vector>

#include "explanation/TrussGraph.h"
#include "explanation/byjoint/ExactNumber.h"
#include "explanation/byjoint/HandSteps.h"

/// A division by less than this (the sine of an angle, or the share of an arm) waits until nothing else is
/// left.
inline constexpr double NearlyVanishing = 0.01;

struct PlanePoint {
  ExactVector Exact;
  double X = 0, Y = 0;  ///< world coordinates
};

/// What an equation measures of each force.
struct Measure {
  BalanceKind Kind = BalanceKind::X;
  PlanePoint At{};              ///< Moment
  ExactVector Line{};           ///< Across
  double LineX = 0, LineY = 0;  ///< Across: the same with length 1
  int AlongUnknown = 0;         ///< Across
};

/// An equation with its exact form.
struct Balance {
  struct SoughtForce {
    int Unknown;
    ExactNumber Factor;  ///< of a unit of exact force, see TrussBalance
    double ByForce;      ///< of a unit of force
  };
  BalanceEquation Equation;
  std::vector<SoughtForce> Sought;  ///< those that the equation contains
  std::vector<int> PutAside;        ///< sought forces on the part that it does not contain
  ExactNumber Rest;                 ///< what the known forces add up to, by the exact measure

  /// A term whose force is known, and what it adds to the rest.
  void AddKnown(const BalanceTerm& term, const ExactNumber& part);

  /// Writes into the equation what its known terms add up to; `unit` is what the exact measure gives for 1.
  void Close(double unit);

 private:
  struct KnownSide {
    ExactNumber Sum;
    double LargestTerm = 0;
  };
  KnownSide left_, right_;
};

/// The exact force of a member is its force divided by its length, as in RigidityMatrix.h.
class TrussBalance {
 public:
  /// The graph must outlive it.
  explicit TrussBalance(const TrussGraph& graph);

  const TrussGraph& Graph() const { return graph_; }
  const PlanePoint& At(int joint) const { return places_[joint]; }

  /// The unknowns that act on a joint, ascending. Members of no length and supports that hold nothing act
  /// nowhere.
  const std::vector<int>& ActingAt(int joint) const { return acting_[joint]; }
  const std::vector<int>& LoadsAt(int joint) const { return loads_[joint]; }
  bool Acts(int unknown) const { return !directions_[unknown].IsZero(); }

  bool IsKnown(int unknown) const { return known_[unknown] != 0; }
  bool IsKnownZero(int unknown) const { return IsKnown(unknown) && exact_[unknown].IsZero(); }
  double Value(int unknown) const { return values_[unknown]; }
  std::vector<int> SoughtAt(int joint) const;
  int NumSoughtAt(int joint) const { return numSought_[joint]; }

  void Learn(int unknown, const ExactNumber& exact);
  /// The length of a member, by which its exact force is multiplied; 1 of a reaction.
  double Length(int unknown) const { return lengths_[unknown]; }

  /// Where a positive force points, up to its length and its sign: the line of an unknown.
  const ExactVector& Direction(int unknown) const { return directions_[unknown]; }
  bool AreParallel(int unknown, int other) const {
    return AreInLine(directions_[unknown], directions_[other]);
  }
  /// The same with length 1.
  double UnitX(int unknown) const { return unitX_[unknown]; }
  double UnitY(int unknown) const { return unitY_[unknown]; }
  /// The magnitude of the sine of the angle between two lines.
  double Sine(int unknown, int other) const;
  bool PassesThrough(int unknown, const PlanePoint& point) const;
  /// How far the line of an unknown passes the point, as a share of the distance to its nearest joint.
  double ArmShare(int unknown, const PlanePoint& point) const;

  /// The sum of loads and known reactions at a joint.
  ExactVector LoadAt(int joint) const;

  Measure Across(int unknown) const;
  static Measure About(const PlanePoint& point) { return {.Kind = BalanceKind::Moment, .At = point}; }

  /// The equation of the part that consists of these joints (ascending).
  Balance BalanceOf(const std::vector<int>& joints, const Measure& measure) const;

  /// Learns the only force that is sought in the equation, and says so in it. Returns the value.
  UnknownForce Solve(Balance& balance);

  /// Learns the two forces that are sought in both equations; their determinant must not be 0.
  std::vector<UnknownForce> SolveTogether(Balance& one, Balance& other);

 private:
  ExactVector UnitForceOn(int joint, int unknown) const;
  double UnitOf(const Measure& measure) const;
  void AddUnknown(int joint, int unknown, const Measure& measure, Balance& balance) const;
  void AddLoads(int joint, const Measure& measure, Balance& balance) const;

  const TrussGraph& graph_;
  Table<PlanePoint> places_;
  Table<ExactVector> directions_;  // from joint B to joint A; of a reaction along its axis
  Table<double> unitX_, unitY_;    // the same with length 1
  Table<double> lengths_;
  Table<std::vector<int>> acting_;
  Table<std::vector<int>> loads_;        // indices into Graph().Loads
  std::vector<ExactVector> exactLoads_;  // parallel to Graph().Loads
  Table<int> numSought_;
  Table<char> known_;
  Table<ExactNumber> exact_;
  Table<double> values_;
};
