// Access lists are extended attributes to the system, too.
#include "document/FileAttributes.h"

#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <vector>

namespace {

constexpr const char* AccessList = "system.posix_acl_access";

// They speak of the bytes, not of the file, and would be wrong of other bytes.
constexpr std::array<const char*, 3> AttributesOfBytes = {"security.capability", "security.ima",
                                                          "security.evm"};

std::vector<std::string> AttributeNames(int file) {
  std::string list(static_cast<std::size_t>(std::max<ssize_t>(flistxattr(file, nullptr, 0), 0)), '\0');
  const ssize_t size = flistxattr(file, list.data(), list.size());
  list.resize(static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
  std::vector<std::string> names;
  for (std::size_t at = 0; at < list.size(); at += names.back().size() + 1) names.emplace_back(&list[at]);
  return names;
}

std::optional<std::string> Attribute(int file, const std::string& name) {
  const ssize_t size = fgetxattr(file, name.c_str(), nullptr, 0);
  if (size < 0) return std::nullopt;
  std::string value(static_cast<std::size_t>(size), '\0');
  if (fgetxattr(file, name.c_str(), value.data(), value.size()) != size) return std::nullopt;
  return value;
}

// False when the access list could not be kept.
bool KeepExtendedAttributes(int from, int to) {
  bool access = true;
  const std::vector<std::string> names = AttributeNames(from);
  for (const std::string& name : names) {
    if (std::ranges::find(AttributesOfBytes, name) != AttributesOfBytes.end()) continue;
    const std::optional<std::string> value = Attribute(from, name);
    const bool kept = value && fsetxattr(to, name.c_str(), value->data(), value->size(), 0) == 0;
    access = access && (kept || name != AccessList);
  }
  // The folder may give its new files an access list that the old one has not.
  for (const std::string& name : AttributeNames(to)) {
    if (std::ranges::find(names, name) == names.end()) fremovexattr(to, name.c_str());
  }
  return access;
}

}  // namespace

bool KeepAttributes(int from, const struct stat& old, int to) {
  constexpr mode_t modeBits = 07777;
  struct stat now {};
  if (fstat(to, &now) != 0) return false;
  const bool sameOwner = now.st_uid == old.st_uid && now.st_gid == old.st_gid;
  if (!sameOwner && fchown(to, old.st_uid, old.st_gid) != 0) return false;
  const bool access = KeepExtendedAttributes(from, to);
  // After the owner, whose change takes bits of the mode away. That it may fail is seen below.
  static_cast<void>(fchmod(to, old.st_mode & modeBits) == 0);
  return access && fstat(to, &now) == 0 && (now.st_mode & modeBits) == (old.st_mode & modeBits);
}
