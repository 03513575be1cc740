// There is no way back out of the question whether to save: the command that asked always goes on, once the
// truss is saved or given up.
#include "document/DocumentLifecycle.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <new>
#include <utility>

#include "document/BrokenName.h"
#include "document/FilePaths.h"
#include "document/FileWriting.h"
#include "document/SideCopy.h"
#include "document/TrussChanged.h"
#include "text/CodePage.h"
#include "text/ControlCharacters.h"
#include "text/Sentence.h"

namespace {

constexpr const char* SaveChangesText = "The truss has changed.  Do you want to save the changes?";
constexpr const char* FileGoneText = "File no longer exists.";
constexpr const char* SaveErrorText = "Error in mnuFileSave attempting to save file ";
constexpr const char* SaveAsErrorText = "Error attempting to save the file.";

constexpr const char* ReplaceUnreadText =
    "This file was not read to its end, and what was not read is lost when it is replaced:\n%1\n\n"
    "Do you want to replace it?";
constexpr const char* ReplaceChangedText =
    "This file has changed on disk since it was opened or saved here:\n%1\n\n"
    "Do you want to replace it?";
constexpr const char* ReplaceInterruptedText =
    "A save of this file was interrupted:\n%1\n\nWhat it held before is kept in\n%2\n\n"
    "That copy is removed when the file is replaced.  Do you want to replace it?";
constexpr const char* PutBackText =
    "A save of this file was interrupted, so it may be neither the old truss nor the new one:\n%1\n\n"
    "What it held before is kept in\n%2\n\nDo you want to put that back?";
constexpr const char* NotPutBackText = "The file could not be put back.  Its copy is still there.";

constexpr bool PathsHaveDrives = std::filesystem::path::preferred_separator == '\\';
constexpr const char* PathSeparators = PathsHaveDrives ? "\\/" : "/";

std::string WithPaths(std::string text, const std::string& path, const std::string& copy = {}) {
  text.replace(text.find("%1"), 2, VisibleText(path));
  return copy.empty() ? text : text.replace(text.find("%2"), 2, VisibleText(copy));
}

// What the status bar says of a file that was read; nothing when it was read whole. Standard input has no
// path.
std::string NoteOnReading(const TrussReading& reading, const std::string& path) {
  if (reading.IsWhole()) return "";
  const std::string saving = path.empty() ? " " : ".  Save will ask for another name. ";
  if (reading.Error && reading.Error->Line == 0) {
    const std::string from = path.empty() ? "standard input" : VisibleText(FileNameOf(path));
    const bool isGone = !path.empty() && !IsTaken(path);
    return " Nothing was read from " + from + ": " +
           (isGone ? "there is no such file" : ToUtf8(reading.Error->Why)) + saving;
  }
  if (reading.Error) {
    return " The file could not be read to its end: " + ToUtf8(reading.Error->Text()) + saving;
  }
  return " Something in line " + std::to_string(reading.UnreadLine) +
         " of the file is no part of the truss and was left out" + saving;
}

// `element` as ElementWithBrokenName names it.
std::string NoteOnBrokenName(const std::string& element) {
  if (element.empty()) return "";
  return " The name of " + element +
         " cannot be read back from the file because of its double quote: rename it and save again. ";
}

// Nothing when the file reads back as the truss that was just written to it, and stands safely on the disk.
std::string NoteOnWriting(Truss& truss, const std::string& doubt) {
  std::string kept = doubt.empty() ? "" : " The file is saved, but " + doubt + ". ";
  if (!TrussChanged(truss)) return kept;
  const std::string broken = NoteOnBrokenName(ElementWithBrokenName(truss));
  return kept + (broken.empty() ? " The file that was saved does not read back as this truss. " : broken);
}

// "bridge (copy).trs" for "bridge.trs".
std::string NameOfCopy(const std::string& path) {
  const std::string name = FileNameOf(path);
  const std::size_t ending = std::min(name.rfind('.'), name.size());
  return name.substr(0, ending) + " (copy)" + name.substr(ending);
}

}  // namespace

std::string MainWindowCaption(const std::string& fileName) {
  return "Orvane - " + (fileName.empty() ? "[untitled]" : fileName);
}

std::string ChooserDirectory(const std::string& recentFile1, const std::string& programDirectory) {
  const std::size_t separator = recentFile1.find_last_of(PathSeparators);
  if (separator == std::string::npos) return programDirectory;
  std::string directory = recentFile1.substr(0, separator);
  // The root of a file system, or of a drive, is nothing without its separator.
  if (directory.empty() || (PathsHaveDrives && directory.ends_with(':'))) directory += recentFile1[separator];
  return directory;
}

DocumentLifecycle::DocumentLifecycle(const Partners& partners, const std::string& programDirectory)
    : on_(partners) {
  on_.Recent.Load();
  chooserDirectory_ = ChooserDirectory(on_.Recent.Caption(1), programDirectory);
}

void DocumentLifecycle::NewFile() {
  SaveChangesFirst();
  EmptyDocument();
}

void DocumentLifecycle::OpenFile() {
  SaveChangesFirst();
  std::optional<std::string> path;
  try {
    path = on_.Chooser.ChooseForOpening(ChooserRequest());
  } catch (const std::exception&) {
    return;  // no file was chosen, so the document stays
  }
  if (path) ReadFile(AbsolutePath(*path));
}

void DocumentLifecycle::OpenPath(const std::string& path) {
  const std::string wholePath = AbsolutePath(path);
  SaveChangesFirst();
  ReadFile(wholePath);
}

void DocumentLifecycle::OpenInput(const FileBytes& input) {
  SaveChangesFirst();
  EmptyDocument();
  fileNote_ = NoteOnReading(Read(input), "");
}

void DocumentLifecycle::OpenRecentFile(int entry) {
  // Saving an untitled truss first moves the entries down; the user means the path that he clicked on.
  const std::string path = on_.Recent.Caption(entry);
  SaveChangesFirst();
  if (!FileExists(path)) {
    on_.Messages.Show({.Text = FileGoneText, .Icon = MessageIcon::Exclamation});
    return;
  }
  ReadFile(path);
}

bool DocumentLifecycle::SaveFile() {
  const std::string& path = on_.Document.FileName;
  if (path.empty() || !known_.WasReadWhole(path)) return SaveFileAs();
  try {
    return MayReplace(path) && WriteFile();
  } catch (const std::bad_alloc&) {
    // The truss is still here, and can be saved when there is more.
    on_.Messages.Show({.Text = SaveErrorText + path, .Details = "There is not enough memory."});
    return false;
  }
}

bool DocumentLifecycle::SaveFileAs() {
  const std::string oldName = on_.Document.FileName;
  bool saved = false;
  try {
    FileChooserRequest request = ChooserRequest();
    request.ProposedName = ProposedName();
    const std::optional<std::string> path = on_.Chooser.ChooseForSaving(request);
    if (!path || !MayReplace(AbsolutePath(*path))) return false;
    saved = SaveUnder(AbsolutePath(*path));
  } catch (const std::exception&) {
    on_.Messages.Show({.Text = SaveAsErrorText});
  }
  if (!saved) NameDocument(oldName);
  return saved;
}

// A file that holds more than the truss is not proposed to be replaced.
std::string DocumentLifecycle::ProposedName() const {
  const std::string& path = on_.Document.FileName;
  if (path.empty()) return UntitledFileName;
  return known_.WasReadWhole(path) || !IsTaken(path) ? FileNameOf(path) : NameOfCopy(path);
}

bool DocumentLifecycle::SaveUnder(const std::string& path) {
  NameDocument(path);
  if (!WriteFile()) return false;
  on_.Recent.AddRecent(path);
  return true;
}

bool DocumentLifecycle::MayReplace(const std::string& path) {
  const KnownFile::State state = known_.StateOf(path);
  const bool changed = state == KnownFile::State::Changed;
  const bool mayGo = state == KnownFile::State::AsKnown ||
                     AskToReplace(WithPaths(changed ? ReplaceChangedText : ReplaceUnreadText, path));
  if (!mayGo) return false;
  const std::string copy = LeftCopyOf(path);
  if (copy.empty()) return true;
  if (!AskToReplace(WithPaths(ReplaceInterruptedText, path, copy))) return false;
  DiscardLeftCopy(path);
  return true;
}

bool DocumentLifecycle::AskToReplace(const std::string& question) {
  return on_.Messages.Show({.Text = question,
                            .Buttons = MessageButtons::YesNo,
                            .Icon = MessageIcon::Exclamation,
                            .Default = MessageAnswer::No}) == MessageAnswer::Yes;
}

// A No leaves both as they are.
void DocumentLifecycle::OfferLeftCopy(const std::string& path) {
  const std::string copy = LeftCopyOf(path);
  if (copy.empty()) return;
  const MessageAnswer answer = on_.Messages.Show({.Text = WithPaths(PutBackText, path, copy),
                                                  .Buttons = MessageButtons::YesNo,
                                                  .Icon = MessageIcon::Exclamation});
  if (answer != MessageAnswer::Yes) return;
  const std::string problem = PutLeftCopyBack(path);
  if (!problem.empty()) on_.Messages.Show({.Text = NotPutBackText, .Details = AsSentence(problem)});
}

bool DocumentLifecycle::WriteFile() {
  const std::string& path = on_.Document.FileName;
  std::string doubt;
  const std::string problem = WriteTruss(on_.Document, &doubt);
  if (!problem.empty()) {
    on_.Messages.Show({.Text = SaveErrorText + path, .Details = AsSentence(problem)});
    return false;
  }
  known_.Remember(path, TrussText(on_.Document), true);
  fileNote_ = NoteOnWriting(on_.Document, doubt);
  nameIsBroken_ = !ElementWithBrokenName(on_.Document).empty();
  return true;
}

// What the file holds is still the old name, but saving again is all there is to do.
bool DocumentLifecycle::NamesChanged() {
  if (!nameIsBroken_) return false;
  fileNote_ = NoteOnBrokenName(ElementWithBrokenName(on_.Document));
  nameIsBroken_ = !fileNote_.empty();
  return true;
}

void DocumentLifecycle::Unload() { SaveChangesFirst(); }

void DocumentLifecycle::SaveChangesFirst() {
  if (!TrussChanged(on_.Document)) return;
  while (!AskSaveChanges()) continue;
}

// Whether the command may go on: the truss was saved, or is given up. A save that failed, or was called off
// in the chooser, is no answer.
bool DocumentLifecycle::AskSaveChanges() {
  const MessageAnswer answer = on_.Messages.Show({.Text = SaveChangesText,
                                                  .Buttons = MessageButtons::YesNo,
                                                  .Icon = MessageIcon::Information,
                                                  .HasWayOut = false});
  return answer != MessageAnswer::Yes || SaveFile();
}

void DocumentLifecycle::EmptyDocument() {
  readError_.reset();
  known_.Forget();
  fileNote_.clear();
  nameIsBroken_ = false;
  ResetAll(on_.Document);
  on_.Window.ShowCaption(MainWindowCaption(""));
  on_.Window.DocumentEmptied();
}

// The path must not be the document's own FileName, which goes when the document is emptied.
void DocumentLifecycle::ReadFile(const std::string& path) {
  OfferLeftCopy(path);
  EmptyDocument();
  NameDocument(path);
  FileBytes file = ReadWholeFile(path);
  const TrussReading reading = Read(file);
  fileNote_ = NoteOnReading(reading, path);
  const bool couldBeRead = file.Problem.empty();
  known_.Remember(path, couldBeRead ? std::optional(std::move(file.Bytes)) : std::nullopt, reading.IsWhole());
  if (!readError_) on_.Recent.AddRecent(path);
}

// What was read before an error stays.
TrussReading DocumentLifecycle::Read(const FileBytes& file) {
  TrussReading reading;
  if (file.Problem.empty()) {
    reading = ReadTrussWithRest(on_.Document, on_.Bounds, file.Bytes);
  } else {
    reading.Error = ReadError{0, file.Problem};
  }
  readError_ = reading.Error;
  on_.Window.Redraw();
  return reading;
}

void DocumentLifecycle::NameDocument(const std::string& path) {
  on_.Document.FileName = path;
  on_.Window.ShowCaption(MainWindowCaption(path));
}

FileChooserRequest DocumentLifecycle::ChooserRequest() const {
  return {TrussFileFilter, TrussFileFilterIndex, chooserDirectory_};
}
