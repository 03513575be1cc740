// Prints what the logic makes of truss files, as the command line does with --json --matrices --explain, on
// any machine for which the logic is built. Names of files stand on standard input, one on a line, so that
// there can be thousands.
#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

#include "app/FileAnalysis.h"
#include "app/JsonReport.h"

namespace {

/// Elsewhere a line end is what it is.
void WriteLineEndsAsTheyAre() {
#ifdef _WIN32
  _setmode(_fileno(stdout), _O_BINARY);
#endif
}

FileBytes BytesOf(const std::string& name) {
  std::ifstream file(name, std::ios::binary);
  FileBytes bytes;
  bytes.Bytes.assign(std::istreambuf_iterator<char>(file), {});
  if (!file) bytes.Problem = "the file cannot be opened for reading";
  return bytes;
}

}  // namespace

int main() {
  WriteLineEndsAsTheyAre();
  std::string name;
  while (std::getline(std::cin, name)) {
    if (name.ends_with('\r')) name.pop_back();
    AnalysedFile file = FileWithBytes(name, false, BytesOf(name));
    Analyse(file);
    WriteJson(std::cout, file, {.Matrices = true, .Explanation = true},
              {file.Document.Settings.SigFigs, NumberFormat{}});
    std::cout << '\n';
  }
  return std::cout.flush() ? 0 : 1;
}
