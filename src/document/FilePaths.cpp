#include "document/FilePaths.h"

#include <filesystem>
#include <system_error>

namespace fs = std::filesystem;

namespace {

fs::path ToPath(const std::string& utf8Path) {
  return fs::path(std::u8string(utf8Path.begin(), utf8Path.end()));
}

std::string ToText(const fs::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

// One directory up. Behind a symbolic link to a directory that is not the directory in which the link lies.
fs::path Above(const fs::path& directory) {
  std::error_code error;
  if (!fs::is_symlink(fs::symlink_status(directory, error))) return directory.parent_path();
  const fs::path target = fs::canonical(directory, error);
  return (error ? directory : target).parent_path();
}

}  // namespace

std::string AbsolutePath(const std::string& path) {
  if (path.empty()) return path;
  std::error_code error;
  const fs::path whole = fs::absolute(ToPath(path), error);
  if (error) return path;  // the working directory is gone
  fs::path result = whole.root_path();
  for (const fs::path& part : whole.relative_path()) {
    if (part == "..") {
      result = Above(result);
    } else if (!part.empty() && part != ".") {
      result /= part;
    }
  }
  return ToText(result);
}

std::string FileNameOf(const std::string& path) { return ToText(ToPath(path).filename()); }

bool IsTaken(const std::string& path) {
  std::error_code error;
  return fs::exists(ToPath(path), error);
}

bool LeadToOneFile(const std::string& path, const std::string& other) {
  std::error_code error;
  return path == other || (fs::equivalent(ToPath(path), ToPath(other), error) && !error);
}
