#include "app/StatusTexts.h"

void StatusTexts::EnterStep(const std::string& text) {
  standing_ = text;
  notes_.fill({});
  hint_.clear();
}

void StatusTexts::Note(StatusNote about, const std::string& text) {
  notes_.at(static_cast<std::size_t>(about)) = text;
}

void StatusTexts::ShowHint(StatusHint from, const std::string& text) {
  hint_ = text;
  hintFrom_ = from;
}

void StatusTexts::EndHint(StatusHint from) {
  if (hintFrom_ == from) hint_.clear();
}

void StatusTexts::ChooseTool(const std::string& hint) { standing_ = hint; }

std::string StatusTexts::Shown() const {
  if (!hint_.empty()) return hint_;
  std::string notes;
  for (const std::string& note : notes_) notes += note;
  return notes.empty() ? standing_ : notes;
}
