// A force as a student writes it: "1875", "-1875", or a magnitude with T or C.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/NumberFormat.h"

/// What a box or a cell says. Without a value and without a reason it says nothing.
struct Answer {
  std::optional<double> Value;  ///< force units, compression positive
  std::string Why;              ///< why it is no force, as the rest of a sentence: "5 T needs no sign"; UTF-8

  bool IsEmpty() const { return !Value && Why.empty(); }
  bool IsWrong() const { return !Why.empty(); }
};

/// Who is asked: a member is in tension or in compression, a reaction in neither.
enum class AnswerOf { Member, Reaction };

/// Reads outer blanks, then a number with or without a sign (a minus sign may be a dash, as tables show it),
/// or a magnitude without one and T or C (small letters too, with or without a blank). Numbers are those of
/// ReadTypedNumber.
Answer ReadAnswer(std::string_view utf8Text, AnswerOf of, const NumberFormat& numbers);
