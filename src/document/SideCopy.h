// What a file held, kept aside while it is written in place. A save that is ended halfway there, by a power
// failure or from outside, leaves neither the old file nor the new one; the copy then still stands.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "document/FileBeside.h"

class SideCopy {
 public:
  /// Keeps `bytes` as what stood in the file at `path`: in its folder, or else where the program keeps its
  /// state, or else among the temporary files. When the constructor returns they stand on the disk.
  SideCopy(const std::string& path, std::string_view bytes);

  /// Where the copy stands; empty when no place took it.
  const std::string& Path() const { return path_; }

  /// The file is whole. A copy that is not removed stays for good; false when the system does not remove it.
  [[nodiscard]] bool Remove();

 private:
  bool Keep(const std::string& folder, const std::string& name, std::string_view bytes);

  std::optional<FileBeside> file_;  // locked, so that nobody takes the copy of a running save for a left one
  std::string path_;
};

/// The copy that an interrupted save of this file has left. Empty when there is none; one that holds what
/// the file holds has nothing to give back and is removed.
std::string LeftCopyOf(const std::string& path);

/// Removes what LeftCopyOf tells of.
void DiscardLeftCopy(const std::string& path);
