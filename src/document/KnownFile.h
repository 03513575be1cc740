// What the program knows of the document's file: what stood in it when it was opened or saved, and whether
// all of that was read. It tells when saving would destroy what the user has never seen.
#pragma once

#include <optional>
#include <string>

class KnownFile {
 public:
  /// What a file is to the document that is about to be saved there.
  enum class State {
    AsKnown,       ///< it holds what was read or written, or is gone, or is another file
    NotReadWhole,  ///< it holds more than the document
    Changed,       ///< it holds something else since
  };

  /// The document has no file.
  void Forget() { path_.clear(); }

  /// The document was read from a file, or written to it. `bytes` is what stands there, nothing when that
  /// could not be read; `whole` says whether the document holds all of it.
  void Remember(const std::string& path, std::optional<std::string> bytes, bool whole);

  /// Looks at the disk. What counts is what stands in the file: one that was only touched has not changed.
  State StateOf(const std::string& path) const;

  /// Whether the document holds all of that file, whatever has happened to it since.
  bool WasReadWhole(const std::string& path) const { return path != path_ || whole_; }

 private:
  std::string path_;
  std::optional<std::string> bytes_;
  bool whole_ = true;
};
