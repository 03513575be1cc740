// Reading whole files as bytes. A file's size is never trusted, and nothing that could wait for ever is
// opened.
#pragma once

#include <istream>
#include <string>

#include "platform/SystemFile.h"

/// Paths are UTF-8 everywhere in the program.
struct FileBytes {
  std::string Bytes;
  std::string Problem;  ///< empty when the whole file was read; else why not, beginning with a small letter
};

/// Reads up to 256 MiB, far more than the largest truss needs; a larger (or endless) file is a problem. The
/// window refuses pipes and devices, which could keep it waiting; the command line may take them.
FileBytes ReadWholeFile(const std::string& path, PipesAndDevices others = PipesAndDevices::Refused);

/// The same for what is left of an open file, and of an open stream, such as standard input.
FileBytes ReadWholeFile(const SystemFile& file);
FileBytes ReadWholeStream(std::istream& stream);

/// True if it is a file and can be opened for reading.
bool FileExists(const std::string& path);
