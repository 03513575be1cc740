// There is no way back out of the question whether to save: the command that asked always goes on, once the
// truss is saved or given up.
#include "document/DocumentLifecycle.h"

#include <exception>
#include <filesystem>
#include <utility>

#include "document/BrokenName.h"
#include "document/FilePaths.h"
#include "document/TrussChanged.h"
#include "text/CodePage.h"

namespace {

constexpr const char* SaveChangesText = "The truss has changed.  Do you want to save the changes?";
constexpr const char* FileGoneText = "File no longer exists.";
constexpr const char* SaveErrorText = "Error in mnuFileSave attempting to save file ";
constexpr const char* SaveAsErrorText = "Error attempting to save the file.";

constexpr const char* ReplaceUnreadText =
    "This file was not read to its end, and what was not read is lost when it is replaced:\n%1\n\n"
    "Do you want to replace it?";
constexpr const char* ReplaceChangedText =
    "This file was changed by someone else after it was opened or saved here:\n%1\n\n"
    "Do you want to replace it?";

constexpr bool PathsHaveDrives = std::filesystem::path::preferred_separator == '\\';
constexpr const char* PathSeparators = PathsHaveDrives ? "\\/" : "/";

std::string WithPath(std::string text, const std::string& path) {
  return text.replace(text.find("%1"), 2, path);
}

// What the status bar says of a file that was read; nothing when it was read whole.
std::string NoteOnReading(const TrussReading& reading, bool hasFile) {
  if (reading.IsWhole()) return "";
  const std::string saving = hasFile ? ".  Save will ask for another name. " : " ";
  if (reading.Error) {
    return " The file could not be read to its end: " + ToUtf8(reading.Error->Text()) + saving;
  }
  return " Something in line " + std::to_string(reading.UnreadLine) +
         " of the file is no part of the truss and was left out" + saving;
}

// Nothing when the file reads back as the truss that was just written to it.
std::string NoteOnWriting(Truss& truss) {
  if (!TrussChanged(truss)) return "";
  const std::string element = ElementWithBrokenName(truss);
  if (element.empty()) return " The file that was saved does not read back as this truss. ";
  return " The name of " + element +
         " cannot be read back from the file because of its double quote: rename it and save again. ";
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
  fileNote_ = NoteOnReading(Read(input), false);
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
  return MayReplace(path) && WriteFile();
}

bool DocumentLifecycle::SaveFileAs() {
  const std::string oldName = on_.Document.FileName;
  bool saved = false;
  try {
    FileChooserRequest request = ChooserRequest();
    request.ProposedName = oldName.empty() ? UntitledFileName : FileNameOf(oldName);
    const std::optional<std::string> path = on_.Chooser.ChooseForSaving(request);
    if (!path || !MayReplace(AbsolutePath(*path))) return false;
    saved = SaveUnder(AbsolutePath(*path));
  } catch (const std::exception&) {
    on_.Messages.Show({.Text = SaveAsErrorText});
  }
  if (!saved) NameDocument(oldName);
  return saved;
}

bool DocumentLifecycle::SaveUnder(const std::string& path) {
  NameDocument(path);
  if (!WriteFile()) return false;
  on_.Recent.AddRecent(path);
  return true;
}

bool DocumentLifecycle::MayReplace(const std::string& path) {
  const KnownFile::State state = known_.StateOf(path);
  if (state == KnownFile::State::AsKnown) return true;
  const bool changed = state == KnownFile::State::Changed;
  return on_.Messages.Show({.Text = WithPath(changed ? ReplaceChangedText : ReplaceUnreadText, path),
                            .Buttons = MessageButtons::YesNo,
                            .Icon = MessageIcon::Exclamation,
                            .Default = MessageAnswer::No}) == MessageAnswer::Yes;
}

bool DocumentLifecycle::WriteFile() {
  const std::string& path = on_.Document.FileName;
  if (!WriteTruss(on_.Document)) {
    on_.Messages.Show({.Text = SaveErrorText + path});
    return false;
  }
  known_.Remember(path, TrussText(on_.Document), true);
  fileNote_ = NoteOnWriting(on_.Document);
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
  ResetAll(on_.Document);
  on_.Window.ShowCaption(MainWindowCaption(""));
  on_.Window.DocumentEmptied();
}

// The path must not be the document's own FileName, which goes when the document is emptied.
void DocumentLifecycle::ReadFile(const std::string& path) {
  EmptyDocument();
  NameDocument(path);
  FileBytes file = ReadWholeFile(path);
  const TrussReading reading = Read(file);
  fileNote_ = NoteOnReading(reading, true);
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
