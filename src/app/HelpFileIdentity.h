// By what the program knows its help file: the build compiles the file, measures it and writes the
// definition.
#pragma once

#include <cstdint>

struct HelpFileIdentity {
  std::int64_t Size;   ///< bytes
  const char* Sha256;  ///< 64 hexadecimal digits, small letters
};

HelpFileIdentity BuiltHelpFile();
