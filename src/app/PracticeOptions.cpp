#include "app/PracticeOptions.h"

#include <charconv>
#include <cstdint>

#include "practice/Variants.h"

namespace {

template <class Number>
Number NumberUpTo(Number most, const CommandLineOption& option) {
  const std::string text = NeededValue(option);
  Number number = 0;
  const char* end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || rest != end || number < 1 || number > most) {
    FailWith(std::string(option.Name) + " needs a number from 1 to " + std::to_string(most) + ", not \"" +
             text + '"');
  }
  return number;
}

}  // namespace

bool PracticeOptions::Take(const CommandLineOption& option) {
  if (option.Name == "--variants") {
    request_.NumVariants = NumberUpTo(MostVariants, option);
  } else if (option.Name == "--seed") {
    request_.Seed = NumberUpTo(UINT64_MAX, option);
  } else if (option.Name == "--mark") {
    if (isMarking_) FailWith("--mark is there twice");
    isMarking_ = true;
    if (option.Value) request_.AnswersPath = NeededValue(option);
  } else if (option.Name == "--key") {
    request_.KeyPath = NeededValue(option);
  } else if (option.Name == "--mirrored" && !option.Value) {
    request_.Mirrors = true;
  } else if (option.Name == "--renamed" && !option.Value) {
    request_.Renames = true;
  } else {
    return false;
  }
  return true;
}

std::string PracticeOptions::TakeExerciseFile(const CommandLineOption& option) {
  std::string path = NeededValue(option);
  request_.IsQuestionBank = path.ends_with(".xml");
  if (!request_.IsQuestionBank && !path.ends_with(".pdf"))
    FailWith("an exercise is written as .pdf, or as .xml for Moodle, not as \"" + path + '"');
  return path;
}

void PracticeOptions::CheckMarking() const {
  if (!request_.KeyPath.empty() && !request_.AnswersPath.empty())
    FailWith("--mark takes answers or a key, not both");
  if (request_.KeyPath.empty() && request_.AnswersPath.empty())
    FailWith("--mark needs answers (--mark=ANSWERS.csv) or a key (--key=KEY.trs)");
}

void PracticeOptions::CheckFor(CommandLine::Mode mode) const {
  using Mode = CommandLine::Mode;
  const bool isExercise = mode == Mode::Exercise;
  const bool hasVariants = request_.NumVariants.has_value();
  if (!request_.KeyPath.empty() && mode != Mode::Compare) FailWith("--key goes with --mark");
  if (isExercise && (!hasVariants || !request_.Seed)) FailWith("--exercise needs --variants and --seed");
  if (hasVariants != request_.Seed.has_value()) FailWith("--variants and --seed go together");
  if (hasVariants && !isExercise && mode != Mode::Mark)
    FailWith("--variants goes with --exercise or --mark=ANSWERS.csv");
  if ((request_.Mirrors || request_.Renames) && !hasVariants)
    FailWith(std::string(request_.Mirrors ? "--mirrored" : "--renamed") + " goes with --variants");
}
