// Any bytes are read as a file; what was read must be sane, the error must stand where it is said to stand,
// and writing must give a file that reads back to the same truss.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "Require.h"
#include "document/BrokenName.h"
#include "document/JointList.h"
#include "document/TrussFile.h"

namespace {

void CheckLabels(const Truss& truss) {
  const auto inUse = [&truss](LabelIndex label) { return label >= 1 && label <= truss.NumLabels; };
  for (const MemberRec& member : truss.MembersInUse()) {
    Require(inUse(member.NameLabel1) && inUse(member.NameLabel2), "members have labels");
  }
  for (const SupportRec& support : truss.SupportsInUse()) {
    Require(support.TypeIndex >= 1 && support.TypeIndex <= LastSupportType,
            "supports are of the eight types");
    Require(inUse(support.NameLabel1), "supports have labels");
    Require(!support.IsClamp() || inUse(support.NameLabel2), "clamps have two labels");
  }
  for (const JointRec& joint : truss.JointsInUse()) Require(inUse(joint.NameLabel), "joints have labels");
}

// Up to the end of a line, from 1; lines end in CR LF, LF or CR.
std::string_view FirstLines(std::string_view text, int numLines) {
  std::size_t at = 0;
  for (int line = 0; line < numLines && at < text.size(); ++line) {
    at = text.find_first_of("\r\n", at);
    if (at == std::string_view::npos) return text;
    at += text.substr(at, 2) == "\r\n" ? 2 : 1;
  }
  return text.substr(0, at);
}

std::optional<ReadError> ErrorOf(std::string_view text) {
  Truss truss;
  return ReadTrussText(truss, CanvasBounds{}, text);
}

// Without its line the text has no such error, and what stands behind the line does not change it. A quoted
// text may go on over many lines.
void CheckLine(std::string_view text, const ReadError& error) {
  Require(error.Line >= 1, "an error has a line");
  Require(ErrorOf(FirstLines(text, error.Line - 1)).has_value(), "what ends before an error is not whole");
  const std::string_view upToIt = FirstLines(text, error.Line);
  if (upToIt.size() == text.size() || upToIt.find('"') != std::string_view::npos) return;
  for (const std::string& more : {std::string(), std::string("1,2,3\r\n"), std::string("\"")}) {
    const std::optional<ReadError> again = ErrorOf(std::string(upToIt) + more);
    Require(again && again->Line == error.Line && again->Why == error.Why,
            "an error does not depend on what stands behind its line");
  }
}

// They are read in another order than they are written.
void CheckSwitches(const DocumentSettings& written, const DocumentSettings& read) {
  Require(read.SnapObject == written.GridOn && read.SnapGrid == written.RulersOn &&
              read.GridOn == written.SnapGrid && read.RulersOn == written.SnapObject,
          "switches are read in their order");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  Truss truss;
  const std::optional<ReadError> error = ReadTrussText(truss, CanvasBounds{}, text);
  if (error) CheckLine(text, *error);
  CheckLabels(truss);
  Require(CheckJoints(truss), "what was read has its joints");
  CheckLabels(truss);
  const std::string written = TrussText(truss);
  Truss again;
  const TrussReading reading = ReadTrussWithRest(again, CanvasBounds{}, written);
  CheckLabels(again);
  if (!ElementWithBrokenName(truss).empty()) return 0;  // a quote in a name does not survive a save
  Require(reading.IsWhole(), "what was written is read whole");
  CheckSwitches(truss.Settings, again.Settings);
  again.Settings = truss.Settings;
  Require(TrussText(again) == written, "what was read is written with the same bytes");
  return 0;
}
