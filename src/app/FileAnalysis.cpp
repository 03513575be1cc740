#include "app/FileAnalysis.h"

#include <optional>

#include "document/JointList.h"
#include "document/TrussFile.h"
#include "naming/Naming.h"
#include "platform/FileBytes.h"
#include "text/CodePage.h"

namespace {

std::optional<ReadError> Read(AnalysedFile& file, std::istream& standardInput) {
  const CanvasBounds bounds;
  const bool isStandardInput = file.Argument == "-";
  if (!isStandardInput) file.Document.FileName = file.Argument;
  const FileBytes input =
      isStandardInput ? ReadWholeStream(standardInput) : ReadWholeFile(file.Argument, PipesAndDevices::Taken);
  if (!input.Problem.empty()) return ReadError{0, input.Problem};
  const TrussReading reading = ReadTrussWithRest(file.Document, bounds, input.Bytes);
  file.UnreadLine = reading.UnreadLine;
  return reading.Error;
}

}  // namespace

AnalysedFile ReadForAnalysis(const std::string& argument, bool autoName, std::istream& standardInput) {
  AnalysedFile file;
  file.Argument = argument;
  if (const auto error = Read(file, standardInput)) file.Error = ToUtf8(error->Text());
  if (!CheckJoints(file.Document)) {
    // Nothing can be said of a truss whose joints cannot be numbered.
    if (file.IsComplete()) file.Error = TooManyJointsText;
    ResetAll(file.Document);
    file.Document.FileName = argument == "-" ? "" : argument;
  }
  if (autoName) AutoName(file.Document);
  return file;
}

void Analyse(AnalysedFile& file) {
  file.Analysis = SolveTruss(file.Document);
  for (const MemberRec& member : file.Document.MembersInUse()) {
    if (!member.Live || member.X1 != member.X2 || member.Y1 != member.Y2) continue;
    file.Remarks.push_back("member \"" + ToUtf8(file.Document.Name(member.NameLabel1)) +
                           "\" has no length; its force cannot be determined");
  }
}
