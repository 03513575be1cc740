// The commands of the File menu: what they ask, in which order they act, and what the window must then show.
// Every command that would discard the truss first asks whether changes are to be saved.
#pragma once

#include <optional>
#include <string>

#include "document/FieldReader.h"
#include "document/RecentFiles.h"
#include "document/Truss.h"
#include "platform/FileChooser.h"
#include "platform/MessageBox.h"

/// The filter of every file chooser, and which of its two entries is preselected.
inline constexpr const char* TrussFileFilter = "All Files (*.*)|*.*|Truss Files (*.trs)|*.trs";
inline constexpr int TrussFileFilterIndex = 2;

/// What the commands tell the window. All texts are UTF-8.
class DocumentWindow {
 public:
  virtual ~DocumentWindow() = default;

  /// The document has just been emptied: return to the appearance of Step 1, with no tool selected, and let
  /// go of everything that was drawn for or computed from the old truss.
  virtual void DocumentEmptied() = 0;

  virtual void ShowCaption(const std::string& caption) = 0;

  /// The document holds another truss: draw all of it.
  virtual void Redraw() = 0;
};

/// The caption of the main window; an empty file name means that the truss is untitled.
std::string MainWindowCaption(const std::string& fileName);

/// The directory in which file choosers open: that of the most recently used file, else the program's own.
std::string ChooserDirectory(const std::string& recentFile1, const std::string& programDirectory);

class DocumentLifecycle {
 public:
  /// What the commands work with; all of it must outlive them. Bounds always holds the present drawing area.
  struct Partners {
    Truss& Document;
    const CanvasBounds& Bounds;
    RecentFiles& Recent;
    MessageBox& Messages;
    FileChooser& Chooser;
    DocumentWindow& Window;
  };

  /// Loads the recent files and fixes the initial directory of the file chooser for this run.
  DocumentLifecycle(const Partners& partners, const std::string& programDirectory);

  /// File, New.
  void NewFile();

  /// File, Open. Does nothing more when the chooser is cancelled or cannot be shown.
  void OpenFile();

  /// Opens a file as File, Open does, without the chooser: a dropped file or one of the command line.
  void OpenPath(std::string path);

  /// File, entry 1 .. 4 of the recent files. A file that is gone gives a message and changes nothing.
  void OpenRecentFile(int entry);

  /// File, Save. Returns false, after a message, when the file cannot be written.
  bool SaveFile();

  /// File, Save As. When nothing is saved, the truss keeps the name it had.
  void SaveFileAs();

  /// Before the main window closes; it closes whatever is answered.
  void Unload();

  /// Empties the document without asking, as leaving the instructions does.
  void EmptyDocument();

  /// Why the file that the present truss was opened from could not be read to its end. Empty after every
  /// other command that empties the document.
  const std::optional<ReadError>& LastReadError() const { return readError_; }

  /// One line (UTF-8) for the status bar on the last read error; empty when there is none.
  std::string ReadErrorText() const;

 private:
  void SaveChangesFirst();
  void AskSaveChanges();
  void ReadFile(const std::string& path);
  void NameDocument(const std::string& path);
  bool SaveUnder(const std::string& path);
  FileChooserRequest ChooserRequest() const;

  Partners on_;
  std::string chooserDirectory_;
  std::optional<ReadError> readError_;
};
