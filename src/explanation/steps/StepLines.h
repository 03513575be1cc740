// The elimination as lines of text, for everybody who writes it down.
#pragma once

#include <string>
#include <vector>

#include "explanation/steps/StepText.h"

enum class StepLineKind {
  Text,       ///< a sentence of its own
  Pivot,      ///< a pivot, with its number: what follows belongs to it
  Operation,  ///< another step, with its number
  Remark,     ///< on the step above
};

struct StepLine {
  StepLineKind Kind = StepLineKind::Text;
  std::string Text;
};

/// How much is written at most. What is left out is said.
struct StepsRoom {
  std::size_t Steps = 0;   ///< of more only the pivots are told
  std::size_t Pivots = 0;  ///< of more the first ones
};

inline constexpr StepsRoom StepsWithoutEnd{.Steps = ~std::size_t{0}, .Pivots = ~std::size_t{0}};

/// About ten pages.
inline constexpr StepsRoom StepsOnPaper{.Steps = 500, .Pivots = 500};

std::vector<StepLine> StepLines(const StepText& text, const StepsRoom& room);

/// All of them as plain text, a line each: an empty one before each pivot, remarks moved in by four blanks.
std::vector<std::string> PlainStepLines(const StepText& text);
