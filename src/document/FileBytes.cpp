// Standard streams and std::filesystem; every call that can fail is asked whether it did.
#include "document/FileBytes.h"

#include <array>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <system_error>

namespace fs = std::filesystem;

namespace {

constexpr std::size_t MaxFileSize = std::size_t{256} << 20U;

// File systems take names of 255 bytes; this leaves room for an ending.
constexpr std::size_t LongestStem = 240;

fs::path ToPath(const std::string& utf8Path) {
  return fs::path(std::u8string(utf8Path.begin(), utf8Path.end()));
}

bool IsDirectory(const fs::path& path) {
  std::error_code error;
  return fs::is_directory(path, error);
}

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using OpenFile = std::unique_ptr<std::FILE, CloseFile>;

// Empty when the file cannot be opened.
OpenFile Open(const fs::path& path, const char* mode) {
#ifdef _WIN32
  // Narrow names would go through the system's code page and lose characters.
  return OpenFile(_wfopen(path.c_str(), std::wstring(mode, mode + std::strlen(mode)).c_str()));
#else
  return OpenFile(std::fopen(path.c_str(), mode));
#endif
}

// The file that a chain of symbolic links ends at, whether it exists or not. Empty when the links go round.
fs::path BehindLinks(fs::path path) {
  std::error_code error;
  constexpr int longestChain = 40;
  for (int i = 0; i < longestChain && fs::is_symlink(fs::symlink_status(path, error)); ++i) {
    path = path.parent_path() / fs::read_symlink(path, error);
    if (error) return {};
  }
  return fs::is_symlink(fs::symlink_status(path, error)) ? fs::path{} : path;
}

bool WriteAndClose(OpenFile file, std::string_view bytes) {
  bool good = std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size();
  good = std::fflush(file.get()) == 0 && good;
  return std::fclose(file.release()) == 0 && good;
}

// Creates a file beside the target under a name that nothing had.
OpenFile CreateBeside(const fs::path& target, fs::path& created) {
  const fs::path stem = target.filename().native().substr(0, LongestStem);
  for (int i = 1; i <= 100; ++i) {
    created = target.parent_path() / stem;
    created += ".new" + std::to_string(i);
    if (OpenFile file = Open(created, "wbx")) return file;
  }
  return nullptr;
}

bool ReplaceFile(const fs::path& target, std::string_view bytes, const fs::file_status& status) {
  std::error_code error;
  fs::path created;
  OpenFile file = CreateBeside(target, created);
  if (!file) return false;
  bool good = WriteAndClose(std::move(file), bytes);
  if (good && fs::exists(status)) {
    fs::permissions(created, status.permissions(), error);
    good = !error;
  }
  if (good) {
    fs::rename(created, target, error);
    good = !error;
  }
  if (!good) fs::remove(created, error);
  return good;
}

}  // namespace

FileBytes ReadWholeFile(const std::string& path) {
  FileBytes result;
  if (IsDirectory(ToPath(path))) {
    result.Problem = "it is a directory, not a file";
    return result;
  }
  std::ifstream file(ToPath(path), std::ios::binary);
  if (!file) {
    result.Problem = "the file cannot be opened for reading";
    return result;
  }
  return ReadWholeStream(file);
}

FileBytes ReadWholeStream(std::istream& stream) {
  FileBytes result;
  std::array<char, 65536> buffer{};
  while (stream) {
    stream.read(buffer.data(), static_cast<std::streamsize>(buffer.size()));
    result.Bytes.append(buffer.data(), static_cast<std::size_t>(stream.gcount()));
    if (result.Bytes.size() > MaxFileSize) {
      result.Bytes.clear();
      result.Problem = "the file is larger than any truss";
      return result;
    }
  }
  if (stream.bad()) result.Problem = "the file could not be read to its end";
  return result;
}

bool WriteWholeFile(const std::string& path, std::string_view bytes) {
  std::error_code error;
  const fs::file_status status = fs::status(ToPath(path), error);
  if (fs::exists(status)) {
    if (fs::is_directory(status)) return false;
    constexpr auto anyWrite = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    if ((status.permissions() & anyWrite) == fs::perms::none) return false;
    // Appending nothing asks the system whether this user may write the file.
    OpenFile existing = Open(ToPath(path), "ab");
    if (!existing) return false;
    // A device or a pipe has no old content to protect, and nothing can take its place.
    if (!fs::is_regular_file(status)) return WriteAndClose(std::move(existing), bytes);
  }
  const fs::path target = BehindLinks(ToPath(path));
  return !target.empty() && ReplaceFile(target, bytes, status);
}

bool FileExists(const std::string& path) {
  return !IsDirectory(ToPath(path)) && std::ifstream(ToPath(path), std::ios::binary).is_open();
}
