// Writing whole files: what stands there afterwards is the new file or the old one, never a part of either.
#pragma once

#include <string>
#include <string_view>

#include "platform/SystemFile.h"

/// Writes a file beside the target and puts it in its place, with the old file's owner, mode, access list and
/// extended attributes. A file that has several names, or whose owner or place does not allow this, is
/// written in place, and its old bytes are put back when that fails. A symbolic link is followed. A target
/// without write permission is refused, and so are pipes and devices unless they are `Taken`: bytes then go
/// into them as they are. Returns an empty text when all is written, else the reason, beginning with a small
/// letter.
[[nodiscard]] std::string WriteWholeFile(const std::string& path, std::string_view bytes,
                                         PipesAndDevices others = PipesAndDevices::Refused);
