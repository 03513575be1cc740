// Truss files (".trs") on the disk.
#pragma once

#include <optional>
#include <string>

#include "document/TrussText.h"

/// Reads a file as ReadTrussText reads its bytes.
std::optional<ReadError> ReadTruss(Truss& truss, const CanvasBounds& bounds, const std::string& path);

/// Writes the truss to its FileName. Returns why that failed, as WriteWholeFile does; empty when it is
/// written, and `doubt` then says what is uncertain about it.
[[nodiscard]] std::string WriteTruss(Truss& truss, std::string* doubt = nullptr);
