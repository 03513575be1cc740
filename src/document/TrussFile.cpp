#include "document/TrussFile.h"

#include "document/FileWriting.h"
#include "platform/FileBytes.h"

std::optional<ReadError> ReadTruss(Truss& truss, const CanvasBounds& bounds, const std::string& path) {
  FileBytes file = ReadWholeFile(path);
  if (!file.Problem.empty()) return ReadError{0, file.Problem};
  return ReadTrussWithRest(truss, bounds, std::make_shared<const std::string>(std::move(file.Bytes))).Error;
}

std::string WriteTruss(Truss& truss, std::string* doubt) {
  return WriteWholeFile(truss.FileName, TrussBytes(truss), PipesAndDevices::Refused, doubt);
}
