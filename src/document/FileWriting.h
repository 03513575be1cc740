// Writing whole files: what stands there afterwards is the new file or the old one, never a part of either.
#pragma once

#include <string>
#include <string_view>

#include "platform/ManyBytes.h"
#include "platform/SystemFile.h"

/// Writes a file beside the target and puts it in its place, with the old file's owner, mode, access list and
/// extended attributes. A file that has several names, or whose owner or place does not allow this, is
/// written in place: its old bytes are kept in a SideCopy meanwhile, and are put back when writing fails. A
/// symbolic link is followed. Refused are a target without write permission, one for which a copy is left
/// (it may be all that there is of the file), and pipes and devices unless they are `Taken`: bytes then go
/// into them as they are. Returns an empty text when all is written, else the reason, beginning with a small
/// letter. `doubt`, when given, gets what is still uncertain about a file that is written, in the same form.
[[nodiscard]] std::string WriteWholeFile(const std::string& path, const ManyBytes& bytes,
                                         PipesAndDevices others = PipesAndDevices::Refused,
                                         std::string* doubt = nullptr);
[[nodiscard]] std::string WriteWholeFile(const std::string& path, std::string_view bytes,
                                         PipesAndDevices others = PipesAndDevices::Refused,
                                         std::string* doubt = nullptr);

/// Writes what LeftCopyOf(path) holds into the file and removes that copy. Returns an empty text, or why the
/// copy still stands.
[[nodiscard]] std::string PutLeftCopyBack(const std::string& path);
