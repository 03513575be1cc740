#include "app/FileAnalysis.h"

#include <memory>
#include <optional>
#include <utility>

#include "document/JointList.h"
#include "document/TrussText.h"
#include "naming/Naming.h"
#include "text/CodePage.h"

AnalysedFile FileWithBytes(const std::string& argument, bool autoName, FileBytes input) {
  AnalysedFile file;
  file.Argument = argument;
  const std::string path = argument == "-" ? "" : argument;
  file.Document.FileName = path;
  std::optional<ReadError> error;
  if (input.Problem.empty()) {
    const TrussReading reading = ReadTrussWithRest(
        file.Document, CanvasBounds{}, std::make_shared<const std::string>(std::move(input.Bytes)));
    file.UnreadLine = reading.UnreadLine;
    error = reading.Error;
  } else {
    error = ReadError{0, input.Problem};
  }
  if (error) file.Error = ToUtf8(error->Text());
  if (!CheckJoints(file.Document)) {
    // Nothing can be said of a truss whose joints cannot be numbered.
    if (file.IsComplete()) file.Error = TooManyJointsText;
    ResetAll(file.Document);
    file.Document.FileName = path;
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
