// The pivot of an unknown, and what its row still waits for.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "explanation/steps/StepText.h"

/// The step in which the unknown's pivot is chosen; empty when it gets none.
std::optional<std::size_t> StepOfPivot(const EliminationInSteps& story, int unknown);

struct AwaitedPivot {
  int Unknown = 0;
  std::size_t Step = 0;  ///< in which the unknown goes out of the row
};

/// The unknowns that steps from number `from` on take out of the row of this pivot after it has become a
/// pivot's row, in the order of the steps.
std::vector<AwaitedPivot> AwaitedBy(const EliminationInSteps& story, std::size_t stepOfPivot,
                                    std::size_t from);

/// "AB has its pivot in A - x (step 4).  That row still waits for BC (step 9)." Steps below `from` are done.
std::string PivotOfUnknownText(const StepText& text, int unknown, std::size_t from);
