// Names that tell joints and forces apart also where the drawing's names do not: the one place where it is
// decided what a joint, a member or a reaction is called in words.
#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "analysis/FormatSigFigs.h"
#include "explanation/TrussGraph.h"

/// How names stand that read like more than a name: that hold blanks, brackets, commas or signs of
/// arithmetic, and names of forces that begin like a number.
enum class OddNames {
  AsTheyAre,   ///< for lists, tables and pictures, where each name stands by itself
  InBrackets,  ///< "[left chord]", for sentences and equations
};

/// The name of a force beside its value: in brackets when it reads like more than a name.
std::string NameBesideValue(std::string_view name);

/// The names of a truss, single-byte texts. Who has a name that no other has is called by it. A joint without
/// one is called by its place, "(3, 4)"; one that shares its name by both, "A at (3, 4)". A member without a
/// name is called by its ends, "member A to C"; one that shares it by both, "AB (A to C)". A reaction without
/// one is the "x-reaction at A", or "R (along x at A)". Those of which even that is the same (two members
/// between the same joints) have a number behind it, "#1" the first among the unknowns.
class DistinctNames {
 public:
  /// The graph must outlive it.
  DistinctNames(const TrussGraph& graph, const ReportFormat& format, OddNames odd = OddNames::AsTheyAre);

  const SharedText& Joint(int joint) const { return joints_[joint]; }
  const SharedText& Force(int unknown) const { return forces_[unknown]; }

  /// In an equation, where all that is not one plain name is in brackets: "[member A to C]".
  std::string ForceInEquation(int unknown) const;

  /// The same without the word "member", for sentences that say it.
  std::string Member(int unknown) const;

  /// "the reaction Ax", or "the x-reaction at A".
  std::string ReactionInWords(int unknown) const;

  /// "joint A", or "the joint at (3, 4)".
  std::string JointInWords(int joint) const;

  /// "joint A at (3, 4)", also where the name alone would do; "the joint at (3, 4)".
  std::string JointWithPlace(int joint) const;

  /// The same without the word: "A at (3, 4)"; "(3, 4)".
  std::string WithPlace(int joint) const;

  /// "(3, 4)": rounded as other numbers are, to at least four figures, but never so that two joints have the
  /// same.
  const std::string& Place(int joint) const { return places_[joint]; }

  /// What the table of the equations calls the row of a joint: "A - x"; "x at (3, 4)" where the place tells.
  std::string Equation(int joint, Axis axis) const;

  /// "AB, BC and CD"; of more than `most` the first ones "and 7 more".
  std::string Forces(const std::vector<int>& unknowns, std::size_t most = 12) const;

  /// The same where a sentence begins: "Member A to C and CD".
  std::string ForcesAtStart(const std::vector<int>& unknowns, std::size_t most = 12) const;

  /// "Member AB", "Members AB, A to C and CD".
  std::string Members(const std::vector<int>& unknowns, std::size_t most = 12) const;

  /// "joint A", "the joint at (3, 4)", "joints A, B and (3, 4)".
  std::string Joints(const std::vector<int>& joints, std::size_t most = 12) const;

  /// As JointInWords when a joint stands at the point (within a ten millionth of the drawing's size; of
  /// several the first), else "the point (1.5, 2)".
  std::string Point(double x, double y) const;

 private:
  enum class Own : char { Tells, IsShared, IsMissing };  // what a name of one's own is worth

  struct Spot {
    std::int64_t Column, Row;  // of a cell as large as the tolerance
    int Joint;
    friend auto operator<=>(const Spot&, const Spot&) = default;
  };

  template <class Named>
  static Table<Own> WorthOf(const Table<Named>& named);
  void FindPlaces();
  void NameJoints();
  void NameForces();
  void FindSpots();
  SharedText OwnOfJoint(int joint) const;
  SharedText OwnOfForce(const PlacedUnknown& unknown) const;
  std::string EndsOf(const PlacedUnknown& member) const;
  SharedText NameOf(const PlacedUnknown& unknown, Own own) const;
  int JointAt(double x, double y) const;

  const TrussGraph& graph_;
  ReportFormat format_;  // of places
  OddNames odd_;
  Table<Own> ofJoints_, ofForces_;
  Table<std::string> places_;
  Table<SharedText> joints_, forces_;
  double near_ = 0;  // world units
  std::vector<Spot> spots_;
};
