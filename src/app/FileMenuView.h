// The menu File: its entries, their captions and keys. What they do stands in DocumentLifecycle.
#pragma once

#include <QObject>
#include <array>
#include <functional>

#include "app/Steps.h"
#include "document/DocumentLifecycle.h"
#include "document/RecentFiles.h"

class QAction;
class QMainWindow;
class QMenu;
class QShortcut;

class FileMenuView final : public QObject {
  Q_OBJECT

 public:
  /// What the menu works with; all of it must outlive the menu.
  struct Partners {
    DocumentLifecycle& Lifecycle;
    const RecentFiles& Recent;
    const Truss& Document;
    const Steps& Step;
    std::function<bool()> Instructed;   ///< whether the instructions of the start are shown
    std::function<void()> BeforeEntry;  ///< gives up what is being drawn
    std::function<void()> Print;
  };

  /// Appends the menu to the window's bar. It cannot be opened until Enable.
  FileMenuView(const Partners& partners, QMainWindow& window);

  void Enable();
  bool IsEnabled() const;

  /// Brings captions and entries up to date.
  void Update();

  /// Opens a file that was dropped on the window.
  void OpenDropped(const QString& path);

  /// Offers the keys of Save and Print in another window too.
  void AddKeys(QWidget& window);

 Q_SIGNALS:
  /// For the status bar: what the open menu says, and that it is closed.
  void HintShown(const char* hint);
  void HintGone();

  /// Why the key of Save does nothing here.
  void SaveRefused(const char* why);

  /// A command on files has been carried out, or was cancelled.
  void CommandDone();

 private:
  QAction* Add(const char* name, const QString& text, const QKeySequence& keys,
               const std::function<void()>& act);
  QAction* AddCommand(const char* name, const QString& text, const QKeySequence& keys,
                      const std::function<void()>& act);
  void AddRecentFiles();
  void SaveByKey();

  Partners on_;
  QMenu* mnuFile_;
  QAction* mnuFileSave_ = nullptr;
  QAction* mnuFileSaveAs_ = nullptr;
  QAction* mnuFilePrint_ = nullptr;
  std::array<QAction*, RecentFiles::Count + 1> mnuRecentFile_{};
  QShortcut* saveKey_ = nullptr;  // the key of Save where the menu does not offer it
};
