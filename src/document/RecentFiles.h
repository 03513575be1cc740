// The four most recently used files, as the File menu shows them and the settings store keeps them.
#pragma once

#include <array>
#include <string>

#include "platform/SettingsStore.h"

class RecentFiles {
 public:
  static constexpr int Count = 4;

  /// The store must outlive this object.
  explicit RecentFiles(SettingsStore& store) : store_(store) {}

  /// Takes the captions from the store; entries with empty captions are hidden.
  void Load();

  /// Moves the path to the head of the list, or inserts it there (the oldest entry then falls off), and
  /// stores the list. Paths are told apart by their exact text, letter case included. One that is not UTF-8
  /// is left out: no store gives it back as it is.
  void AddRecent(const std::string& path);

  /// Entry 1 .. 4: the path as it was stored, empty when there is none.
  const std::string& Caption(int entry) const { return captions_[static_cast<std::size_t>(entry - 1)]; }

  /// Entry 0 is the separator above the entries.
  bool IsShown(int entry) const;

 private:
  SettingsStore& store_;
  std::array<std::string, Count> captions_;
};
