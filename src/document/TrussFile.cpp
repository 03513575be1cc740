#include "document/TrussFile.h"

#include "document/FileWriting.h"
#include "platform/FileBytes.h"

std::optional<ReadError> ReadTruss(Truss& truss, const CanvasBounds& bounds, const std::string& path) {
  const FileBytes file = ReadWholeFile(path);
  if (!file.Problem.empty()) return ReadError{0, file.Problem};
  return ReadTrussText(truss, bounds, file.Bytes);
}

std::string WriteTruss(Truss& truss, std::string* doubt) {
  return WriteWholeFile(truss.FileName, TrussText(truss), PipesAndDevices::Refused, doubt);
}
