// There is no way back out of the question whether to save: the command that asked always goes on.
#include "document/DocumentLifecycle.h"

#include <exception>
#include <filesystem>
#include <utility>

#include "document/FileBytes.h"
#include "document/TrussChanged.h"
#include "document/TrussFile.h"
#include "text/CodePage.h"
#include "text/Sentence.h"

namespace {

constexpr const char* SaveChangesText = "The truss has changed.  Do you want to save the changes?";
constexpr const char* FileGoneText = "File no longer exists.";
constexpr const char* SaveErrorText = "Error in mnuFileSave attempting to save file ";
constexpr const char* SaveAsErrorText = "Error attempting to save the file.";

constexpr bool PathsHaveDrives = std::filesystem::path::preferred_separator == '\\';
constexpr const char* PathSeparators = PathsHaveDrives ? "\\/" : "/";

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
  if (path) ReadFile(*path);
}

// A copy: the path may be the document's own file name, which saving and emptying change.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
void DocumentLifecycle::OpenPath(std::string path) {
  SaveChangesFirst();
  ReadFile(path);
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
  const std::string problem = WriteTruss(on_.Document);
  if (problem.empty()) return true;
  on_.Messages.Show({.Text = SaveErrorText + on_.Document.FileName, .Details = AsSentence(problem)});
  return false;
}

void DocumentLifecycle::SaveFileAs() {
  const std::string oldName = on_.Document.FileName;
  bool saved = false;
  try {
    const std::optional<std::string> path = on_.Chooser.ChooseForSaving(ChooserRequest());
    if (!path) return;
    saved = SaveUnder(*path);
  } catch (const std::exception&) {
    on_.Messages.Show({.Text = SaveAsErrorText});
  }
  if (!saved) NameDocument(oldName);
}

bool DocumentLifecycle::SaveUnder(const std::string& path) {
  NameDocument(path);
  if (!SaveFile()) return false;
  on_.Recent.AddRecent(path);
  return true;
}

void DocumentLifecycle::Unload() { SaveChangesFirst(); }

void DocumentLifecycle::SaveChangesFirst() {
  if (TrussChanged(on_.Document)) AskSaveChanges();
}

void DocumentLifecycle::AskSaveChanges() {
  const MessageAnswer answer = on_.Messages.Show(
      {.Text = SaveChangesText, .Buttons = MessageButtons::YesNo, .Icon = MessageIcon::Information});
  if (answer != MessageAnswer::Yes) return;
  if (on_.Document.FileName.empty()) {
    SaveFileAs();
  } else {
    SaveFile();
  }
}

void DocumentLifecycle::EmptyDocument() {
  readError_.reset();
  ResetAll(on_.Document);
  on_.Window.ShowCaption(MainWindowCaption(""));
  on_.Window.DocumentEmptied();
}

// The path must not be the document's own FileName, which goes when the document is emptied.
void DocumentLifecycle::ReadFile(const std::string& path) {
  EmptyDocument();
  NameDocument(path);
  readError_ = ReadTruss(on_.Document, on_.Bounds, path);
  on_.Window.Redraw();
  if (!readError_) on_.Recent.AddRecent(path);
}

void DocumentLifecycle::NameDocument(const std::string& path) {
  on_.Document.FileName = path;
  on_.Window.ShowCaption(MainWindowCaption(path));
}

FileChooserRequest DocumentLifecycle::ChooserRequest() const {
  return {TrussFileFilter, TrussFileFilterIndex, chooserDirectory_};
}

std::string DocumentLifecycle::ReadErrorText() const {
  if (!readError_) return "";
  return " The file could not be read to its end: " + ToUtf8(readError_->Text()) + " ";
}
