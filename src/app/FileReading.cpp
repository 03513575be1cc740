// Where the bytes of a file that is analysed come from.
#include "app/FileAnalysis.h"

AnalysedFile ReadForAnalysis(const std::string& argument, bool autoName, std::istream& standardInput) {
  return FileWithBytes(
      argument, autoName,
      argument == "-" ? ReadWholeStream(standardInput) : ReadWholeFile(argument, PipesAndDevices::Taken));
}
