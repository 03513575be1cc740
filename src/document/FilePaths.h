// Paths as the user names files, and when two of them mean one file. All are UTF-8.
#pragma once

#include <string>

/// The full path, without "." and "..", of a file that may not exist. Symbolic links stay as they are named,
/// except where ".." leads out of one. An empty path stays empty.
std::string AbsolutePath(const std::string& path);

/// What stands behind the last separator.
std::string FileNameOf(const std::string& path);

/// Whether anything stands there, readable or not.
bool IsTaken(const std::string& path);

/// Whether both paths lead to one file: they are the same text, or the system says so (links, hard links).
bool LeadToOneFile(const std::string& path, const std::string& other);

/// The path in an address such as "file:///home/ann/a%20b.trs", as file managers hand it over; any other
/// text, and an address on another machine, is a path already and comes back as it is.
std::string PathOfAddress(const std::string& address);
