// A file that is written in a folder until it can take the place of another one there.
#pragma once

#include <string>

#include "platform/SystemFile.h"

/// Of a file that nobody else may read before it has the rights of the one whose place it takes.
inline constexpr mode_t PrivateMode = 0600;

/// Its name begins with ".orvane-save-" and does not depend on the target's, which may already be as long as
/// names can be. It is locked as long as it is written: an unlocked one is what a killed save has left, and
/// is removed by the next save in this folder. Unless it takes its place it is gone in the end.
class FileBeside {
 public:
  /// `folder` ends with a slash, or is empty for the current one.
  FileBeside(std::string folder, mode_t mode);
  FileBeside(const FileBeside&) = delete;
  FileBeside& operator=(const FileBeside&) = delete;
  ~FileBeside();

  /// Why it could not be created, as the system's number; 0 when it stands there.
  int Error() const { return error_; }

  const SystemFile& File() const { return file_; }

  /// Puts it in the target's place, so that a power failure leaves the one or the other there. Returns 0 or
  /// the number of the error because of which the target is what it was.
  int TakePlaceOf(const std::string& target);

  /// Whether the disk has failed to keep that it took the target's place: it has, but a power failure may
  /// bring the old one back.
  bool MayBeUndone() const { return mayBeUndone_; }

 private:
  std::string folder_;
  std::string path_;
  SystemFile file_;
  int error_ = 0;
  bool mayBeUndone_ = false;
};

/// Whether both tell of one file, under whatever names.
bool IsSameFile(const struct stat& one, const struct stat& other);

/// Whether it is surely no file of somebody else: in a folder that all may write, a name is anybody's.
bool IsFileOfThisUser(const SystemFile& file);
