// A file chooser that chooses by itself and remembers how it was called.
#pragma once

#include <deque>
#include <stdexcept>
#include <vector>

#include "platform/FileChooser.h"

class FakeFileChooser : public FileChooser {
 public:
  std::optional<std::string> ChooseForOpening(const FileChooserRequest& request) override {
    Opened.push_back(request);
    return Choose();
  }
  std::optional<std::string> ChooseForSaving(const FileChooserRequest& request) override {
    Saved.push_back(request);
    return Choose();
  }

  /// What the user chooses; empty: he cancels.
  std::optional<std::string> Choice;

  /// What he chooses before that, one after the other.
  std::deque<std::optional<std::string>> FirstChoices;

  bool CannotBeShown = false;

  std::vector<FileChooserRequest> Opened;  ///< the calls for opening
  std::vector<FileChooserRequest> Saved;   ///< the calls for saving

 private:
  std::optional<std::string> Choose() {
    if (CannotBeShown) throw std::runtime_error("no file chooser");
    if (FirstChoices.empty()) return Choice;
    const std::optional<std::string> choice = FirstChoices.front();
    FirstChoices.pop_front();
    return choice;
  }
};
