// What a student's numbers are worth against the solutions.
#pragma once

#include <optional>
#include <span>

#include "document/Table.h"
#include "explanation/TrussGraph.h"

/// Of one unknown force, 1 .. N; empty where nothing is written (or, of the solutions, not determined).
using ForceValues = Table<std::optional<double>>;

enum class Verdict {
  Empty,
  Right,  ///< within 1 %
  Close,  ///< within 5 %
  Sense,  ///< the size is right, the sense is not
  Power,  ///< right but for a power of ten
  Wrong,
};

/// "empty", "right", "close", "sense", "power", "wrong": the words by which programs know them.
const char* VerdictWord(Verdict verdict);

inline constexpr double RightWithin = 0.01;
inline constexpr double CloseWithin = 0.05;
/// A force of 0 has no percentage: it is right within this share of the largest force.
inline constexpr double ZeroWithin = 0.001;

/// Whether a solution is 0 but for what rounding leaves: below a millionth of the largest force.
bool IsNoForce(double solution, double largest);

/// Judges one value against the solution; `largest` is the magnitude of the largest force of the solutions.
/// Bounds are widened by a millionth of themselves, since the solutions are rounded, too.
Verdict JudgeValue(std::optional<double> given, double solution, double largest);

/// The magnitude of the largest force; 0 without any.
double LargestOf(const ForceValues& values);

/// Judges all; a force that the solutions do not determine is Empty, whatever is written.
Table<Verdict> Judge(const ForceValues& given, const ForceValues& solutions);

/// Whether every member that is judged and carries a force has the right size and the wrong sense, and there
/// are at least two: its writer counts tension as positive.
bool CountsTensionPositive(const TrussGraph& graph, const Table<Verdict>& verdicts,
                           const ForceValues& solutions);

/// The values of one who counts tension as positive, with compression positive: those of members turned.
ForceValues WithMembersTurned(const TrussGraph& graph, ForceValues values);
