// Whole files as bytes. Reading never trusts a file's size; writing leaves a complete file or the old one.
#pragma once

#include <istream>
#include <string>
#include <string_view>

/// Paths are UTF-8 everywhere in the program.
struct FileBytes {
  std::string Bytes;
  std::string Problem;  ///< empty when the whole file was read; else why not, beginning with a small letter
};

/// Reads up to 256 MiB, far more than the largest truss needs; a larger (or endless) file is a problem.
FileBytes ReadWholeFile(const std::string& path);

/// The same for what stands in an open stream, such as standard input.
FileBytes ReadWholeStream(std::istream& stream);

/// Writes beside the target, flushes, and puts the new file in the old one's place with its permissions. A
/// symbolic link is followed. A target without write permission is refused. Returns false, with the old file
/// untouched, when anything fails.
[[nodiscard]] bool WriteWholeFile(const std::string& path, std::string_view bytes);

/// True if the file can be opened for reading.
bool FileExists(const std::string& path);
