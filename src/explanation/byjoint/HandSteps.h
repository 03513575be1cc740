// A truss solved by hand, as a value: step after step, which part is looked at, which equations of balance
// are written for it, and which forces they give. Text and drawing are made from it.
#pragma once

#include <optional>
#include <vector>

#include "document/Table.h"
#include "explanation/Motions.h"
#include "explanation/TrussGraph.h"

enum class BalanceKind {
  X,       ///< forces right = forces left
  Y,       ///< forces up = forces down
  Across,  ///< components at right angles to a line: to its left = to its right
  Moment,  ///< moments about a point: anticlockwise = clockwise
};

/// One force in an equation. The equation says that Factor times Force, over all terms, adds up to 0.
struct BalanceTerm {
  int Unknown = 0;        ///< 0: a component of a load
  int Joint = 0;          ///< at which it acts
  bool IsSought = false;  ///< the unknown has no value yet
  double Factor = 0;      ///< of a unit of force: its component, or its moment (length units)
  double Force = 0;       ///< compression positive; of a load the component's magnitude; 0 when sought
};

enum class BalanceUse {
  Solves,          ///< gives the one force that is sought in it
  SolvesTogether,  ///< gives two forces together with the next or the previous equation
  Holds,           ///< has no sought force, and is true
  Contradicts,     ///< has no sought force, and is false: no forces balance the loads
};

/// Forces that are known to be 0 have no term.
struct BalanceEquation {
  BalanceKind Kind = BalanceKind::X;
  double AtX = 0, AtY = 0;  ///< Moment: the point; Across: the direction of the line, of length 1
  int AlongUnknown = 0;     ///< Across: the unknown whose line it is
  std::vector<BalanceTerm> Terms{};
  BalanceUse Use = BalanceUse::Holds;
  UnknownForce Solved{};  ///< Solves: the unknown and its value

  /// What the known terms add up to: those with a positive factor, the others with their sign changed, and
  /// all of them, which is the first less the second. Each is rounded once, however much cancels in it; the
  /// sides of an equation that holds are the same number.
  double KnownLeft = 0, KnownRight = 0, KnownSum = 0;
};

enum class HandStepKind {
  Reactions,  ///< the balance of the whole truss (of one of its connected parts)
  ZeroForce,  ///< members that carry nothing, by a rule
  Joint,      ///< the balance of one joint
  Section,    ///< the balance of the part on one side of a cut
  Together,   ///< equations that only the matrix can solve
};

/// "reactions", "zero-force", "joint", "section", "together": the words by which programs know the kinds.
const char* KindWord(HandStepKind kind);

/// Why members carry nothing. Members that are already known to carry nothing do not count, and a reaction
/// counts as a load.
enum class ZeroRule {
  Alone,         ///< one member, no load
  TwoOutOfLine,  ///< two members out of line, no load
  ThirdOfThree,  ///< members in line and another one, no load
  LoadAlongOne,  ///< members in line with the load and another one
};

struct HandStep {
  HandStepKind Kind = HandStepKind::Joint;
  int Joint = 0;                             ///< ZeroForce and Joint
  std::vector<UnknownForce> Solved{};        ///< compression positive, in the order in which they were found
  std::vector<BalanceEquation> Equations{};  ///< in the order in which they are used
  bool Contradicts = false;                  ///< nothing further is said about this part of the truss

  ZeroRule Rule = ZeroRule::Alone;  ///< ZeroForce
  std::vector<int> InLine{};  ///< ZeroForce: the unknowns that lie in one line, with each other or the load

  std::vector<int>
      Joints{};            ///< Reactions, Section: the part looked at; Together: whose equations; ascending
  std::vector<int> Cut{};  ///< Section: the members that run out of the part, ascending
  std::vector<int> StillSought{};  ///< Reactions: those of the part that its balance does not give
  std::vector<int> LeftOut{};   ///< Joint: the unknowns at it that are known to be 0; ZeroForce: the members
  std::vector<int> PutAside{};  ///< Section: of the sought forces those that the equation does not contain
  std::vector<int> Unknowns{};  ///< Together: sought in these equations, ascending
};

struct HandSolution {
  std::vector<HandStep> Steps;

  /// 1 .. N, compression positive; empty for what the steps do not find.
  Table<std::optional<double>> Values;

  /// Sections are looked for until this would take too long (see Sections.h).
  bool AllSectionsSought = true;

  bool Contradicts() const;
};
