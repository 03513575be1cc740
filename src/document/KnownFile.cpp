#include "document/KnownFile.h"

#include <utility>

#include "document/FilePaths.h"
#include "platform/FileBytes.h"

void KnownFile::Remember(const std::string& path, std::optional<std::string> bytes, bool whole) {
  path_ = path;
  bytes_ = std::move(bytes);
  whole_ = whole;
}

KnownFile::State KnownFile::StateOf(const std::string& path) const {
  if (path_.empty() || !LeadToOneFile(path, path_) || !IsTaken(path)) return State::AsKnown;
  if (!whole_) return State::NotReadWhole;
  const FileBytes now = ReadWholeFile(path);
  const bool same = now.Problem.empty() && bytes_ == now.Bytes;
  return same ? State::AsKnown : State::Changed;
}
