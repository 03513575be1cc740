// The commands of the File menu: what they ask, in which order they act, and what the window must then show.
// Every command that would discard the truss first asks whether changes are to be saved.
#pragma once

#include <optional>
#include <string>

#include "document/FieldReader.h"
#include "document/KnownFile.h"
#include "document/RecentFiles.h"
#include "document/Truss.h"
#include "document/TrussFile.h"
#include "platform/FileBytes.h"
#include "platform/FileChooser.h"
#include "platform/MessageBox.h"

/// The filter of every file chooser, and which of its two entries is preselected.
inline constexpr const char* TrussFileFilter = "All Files (*.*)|*.*|Truss Files (*.trs)|*.trs";
inline constexpr int TrussFileFilterIndex = 2;

/// The name that the chooser proposes for a truss that has none.
inline constexpr const char* UntitledFileName = "truss.trs";

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

  /// Opens a file as File, Open does, without the chooser: a dropped file or one of the command line. The
  /// path may be relative to the working directory. Every command that opens a file offers to put back what
  /// it held when its last save was interrupted.
  void OpenPath(const std::string& path);

  /// Opens what came through standard input. The truss has no file then.
  void OpenInput(const FileBytes& input);

  /// File, entry 1 .. 4 of the recent files. A file that is gone gives a message and changes nothing.
  void OpenRecentFile(int entry);

  /// File, Save. A truss without a file, or whose file holds more than what was read of it, goes to Save As.
  /// Asks before a file is replaced that has changed since, or that a copy of an interrupted save is left of.
  /// Returns whether the truss was saved; a
  /// file that cannot be written gives a message.
  bool SaveFile();

  /// File, Save As. When nothing is saved, the truss keeps the name it had. Returns whether it was saved.
  bool SaveFileAs();

  /// The user has changed names: a note on one that a file cannot hold ends when it is mended. Returns
  /// whether there was such a note.
  bool NamesChanged();

  /// Before the main window closes. Returns when nothing is left that the user wants to be saved.
  void Unload();

  /// Empties the document without asking, as leaving the instructions does.
  void EmptyDocument();

  /// Why the file that the present truss was opened from could not be read to its end. Empty after every
  /// other command that empties the document.
  const std::optional<ReadError>& LastReadError() const { return readError_; }

  /// One line (UTF-8) for the status bar on what is wrong with the document's file: it was not read whole, or
  /// what was written does not read back. Empty when all is well.
  const std::string& FileNote() const { return fileNote_; }

 private:
  void SaveChangesFirst();
  bool AskSaveChanges();
  void ReadFile(const std::string& path);
  TrussReading Read(const FileBytes& file);
  void NameDocument(const std::string& path);
  bool SaveUnder(const std::string& path);
  std::string ProposedName() const;
  bool MayReplace(const std::string& path);
  bool AskToReplace(const std::string& question);
  void OfferLeftCopy(const std::string& path);
  bool WriteFile();
  FileChooserRequest ChooserRequest() const;

  Partners on_;
  std::string chooserDirectory_;
  std::optional<ReadError> readError_;
  KnownFile known_;
  std::string fileNote_;
  bool nameIsBroken_ = false;  // and the note says so
};
