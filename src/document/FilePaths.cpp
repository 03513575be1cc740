#include "document/FilePaths.h"

#include <charconv>
#include <filesystem>
#include <optional>
#include <string_view>
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

// The byte written as two hexadecimal digits; nothing for other text, and for the zero byte, which ends every
// path.
std::optional<char> ByteOf(std::string_view digits) {
  unsigned char byte = 0;
  const char* end = digits.data() + digits.size();
  const auto [read, error] = std::from_chars(digits.data(), end, byte, 16);
  if (digits.size() != 2 || error != std::errc() || read != end || byte == 0) return std::nullopt;
  return static_cast<char>(byte);
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
  return path == other || fs::equivalent(ToPath(path), ToPath(other), error);
}

std::string PathOfAddress(const std::string& address) {
  std::string_view rest = address;
  for (const std::string_view here : {"file://localhost/", "file:///", "file:/"}) {
    if (!rest.starts_with(here)) continue;
    rest.remove_prefix(here.size() - 1);
    if (rest.starts_with("//")) break;  // another machine's name
    std::string path;
    while (!rest.empty()) {
      const std::optional<char> byte = rest.front() == '%' ? ByteOf(rest.substr(1, 2)) : std::nullopt;
      path += byte.value_or(rest.front());
      rest.remove_prefix(byte ? 3 : 1);
    }
    return path;
  }
  return address;
}
