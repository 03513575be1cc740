// The bytes of a truss file (".trs"): plain text, a header line, the settings, then supports, members, forces
// and joints, each section under its count. This is where the layout is fixed, for the writer and for the
// reader.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "document/FieldReader.h"
#include "document/Truss.h"
#include "platform/ManyBytes.h"
#include "text/LongText.h"

/// The first line of the current layout; a file with any other first line is read in the older layout.
inline constexpr const char* TrussFileHeader = "Orvane 5";

/// Fields of the current layout between the header and the number of supports: four booleans, eight numbers.
inline constexpr int NumSettingsFields = 12;

/// How far a file was read.
struct TrussReading {
  std::optional<ReadError> Error;
  int UnreadLine = 0;  ///< without an error: line from 1 of a text that is no part of the truss; 0: none

  bool IsWhole() const { return !Error && UnreadLine == 0; }
};

/// Reads the bytes into the truss, which the caller has emptied with ResetAll. Returns the error that ended
/// the read; elements read completely before it stay and are counted, and so do the settings.
std::optional<ReadError> ReadTrussText(Truss& truss, const CanvasBounds& bounds, std::string_view text);

/// The same, and says what was passed over without an error.
TrussReading ReadTrussWithRest(Truss& truss, const CanvasBounds& bounds, std::string_view text);

/// The same; the truss's names share their letters with the bytes, which stay as long as one of them.
TrussReading ReadTrussWithRest(Truss& truss, const CanvasBounds& bounds,
                               std::shared_ptr<const std::string> text);

/// The bytes of the file: live elements only, joints sorted by name (the truss's joint list is sorted too).
std::string TrussText(Truss& truss);

/// The same, with names that share their letters with the truss.
LongText LongTrussText(Truss& truss);
ManyBytes TrussBytes(Truss& truss);
