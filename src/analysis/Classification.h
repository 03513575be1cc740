// Reading the reduced matrix: which unknowns are determined, and whether the system is redundant or has no
// solution.
#pragma once

#include <cstdint>
#include <optional>

#include "analysis/EquationSystem.h"
#include "document/Table.h"

enum class Outcome : std::int16_t {
  Neither = 0,       ///< neither redundant nor inconsistent
  Redundant = 1,     ///< in equilibrium for these applied forces but not for others
  Inconsistent = 2,  ///< no solution: the truss is unstable and will move
};

struct Classification {
  Outcome Code = Outcome::Neither;
  /// 1 .. N: the value of each unknown, empty while undetermined. Not complete when inconsistent, because
  /// reading stops at the first contradiction.
  Table<std::optional<double>> Values;
};

/// Reads the rows of EquationMatrix in order. Cells are compared exactly with 1 and 0: the elimination leaves
/// exact ones and zeros.
Classification ClassifyRREF(const EquationSystem& system);

/// The sentences that go with the outcomes.
inline constexpr const char* InconsistentText =
    "There is NO SOLUTION for this inconsistent system of equations."
    "  This system of equations was derived assuming that the forces are in balance at each joint."
    "  This assumption must be incorrect which implies that the truss is unstable and will move.";
inline constexpr const char* RedundantText =
    "This is a redundant system of equations.  This implies that the truss"
    " is in equilibrium (static) for these applied forces but not for others.";

/// InconsistentText, RedundantText or "".
const char* ConclusionText(Outcome outcome);
