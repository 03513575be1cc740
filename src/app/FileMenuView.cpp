#include "app/FileMenuView.h"

#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QShortcut>

#include "app/FileMenu.h"

FileMenuView::FileMenuView(const Partners& partners, QMainWindow& window)
    : on_(partners), mnuFile_(window.menuBar()->addMenu(QStringLiteral("&File"))) {
  mnuFile_->setObjectName(QStringLiteral("mnuFile"));
  connect(mnuFile_, &QMenu::aboutToShow, this, [this] {
    Update();
    Q_EMIT HintShown(FileMenuStatusText);
  });
  connect(mnuFile_, &QMenu::aboutToHide, this, &FileMenuView::HintGone);
  AddCommand("mnuFileNew", QStringLiteral("&New truss"), QKeySequence::New,
             [this] { on_.Lifecycle.NewFile(); });
  AddCommand("mnuFileOpen", QStringLiteral("&Open an existing truss ..."), QKeySequence::Open,
             [this] { on_.Lifecycle.OpenFile(); });
  mnuFileSave_ = AddCommand("mnuFileSave", {}, QKeySequence::Save, [this] { on_.Lifecycle.SaveFile(); });
  mnuFileSaveAs_ = AddCommand("mnuFileSaveAs", {}, {}, [this] { on_.Lifecycle.SaveFileAs(); });
  mnuFilePrint_ =
      Add("mnuFilePrint", QStringLiteral("&Print the report ..."), QKeySequence::Print, on_.Print);
  AddRecentFiles();
  mnuFile_->addSeparator();
  Add("mnuFileExit", QStringLiteral("E&xit"), QKeySequence::Quit, [&window] { window.close(); });
  saveKey_ = new QShortcut(QKeySequence::Save, &window);
  connect(saveKey_, &QShortcut::activated, this, &FileMenuView::SaveByKey);
  mnuFile_->menuAction()->setEnabled(false);
}

QAction* FileMenuView::Add(const char* name, const QString& text, const QKeySequence& keys,
                           const std::function<void()>& act) {
  QAction* action = mnuFile_->addAction(text);
  action->setObjectName(QString::fromLatin1(name));
  action->setShortcut(keys);
  connect(action, &QAction::triggered, this, [this, act] {
    on_.BeforeEntry();
    act();
  });
  return action;
}

QAction* FileMenuView::AddCommand(const char* name, const QString& text, const QKeySequence& keys,
                                  const std::function<void()>& act) {
  return Add(name, text, keys, [this, act] {
    act();
    Q_EMIT CommandDone();
  });
}

void FileMenuView::AddRecentFiles() {
  mnuRecentFile_[0] = mnuFile_->addSeparator();
  mnuRecentFile_[0]->setObjectName(QStringLiteral("mnuRecentFile(0)"));
  for (int entry = 1; entry <= RecentFiles::Count; ++entry) {
    const std::string name = "mnuRecentFile(" + std::to_string(entry) + ')';
    mnuRecentFile_[static_cast<std::size_t>(entry)] =
        AddCommand(name.c_str(), {}, {}, [this, entry] { on_.Lifecycle.OpenRecentFile(entry); });
  }
}

void FileMenuView::Enable() { mnuFile_->menuAction()->setEnabled(true); }

bool FileMenuView::IsEnabled() const { return mnuFile_->menuAction()->isEnabled(); }

void FileMenuView::Update() {
  const FileMenu state = FileMenuState(on_.Step.Current(), on_.Document.FileName);
  const bool started = !on_.Instructed();
  mnuFileSaveAs_->setText(QString::fromLatin1(state.SaveAs.Caption.c_str()));
  mnuFileSaveAs_->setEnabled(started && state.SaveAs.Enabled);
  mnuFileSave_->setText(QString::fromLatin1(state.Save.Caption.c_str()));
  mnuFileSave_->setEnabled(started && state.Save.Enabled);
  // Two with the same key would cancel each other out.
  saveKey_->setEnabled(!mnuFileSave_->isEnabled());
  mnuFilePrint_->setEnabled(started && state.PrintEnabled);
  for (int entry = 0; entry <= RecentFiles::Count; ++entry) {
    QAction* action = mnuRecentFile_[static_cast<std::size_t>(entry)];
    action->setVisible(on_.Recent.IsShown(entry));
    if (entry == 0) continue;
    if (!on_.Recent.IsShown(entry)) {
      // A screen reader meets it all the same.
      action->setText(QStringLiteral("No recent file"));
      continue;
    }
    // An ampersand in a path is no access key.
    action->setText(QString::fromStdString(on_.Recent.Caption(entry)).replace(u'&', QStringLiteral("&&")));
  }
}

void FileMenuView::OpenDropped(const QString& path) {
  on_.BeforeEntry();
  on_.Lifecycle.OpenPath(path.toStdString());
  Q_EMIT CommandDone();
}

void FileMenuView::AddKeys(QWidget& window) {
  connect(new QShortcut(QKeySequence::Save, &window), &QShortcut::activated, this, &FileMenuView::SaveByKey);
  connect(new QShortcut(QKeySequence::Print, &window), &QShortcut::activated, mnuFilePrint_,
          &QAction::trigger);
}

void FileMenuView::SaveByKey() {
  const bool instructed = on_.Instructed();
  switch (SaveKeyCommand(on_.Step.Current(), on_.Document.FileName, instructed)) {
    case SaveKey::Save:
      mnuFileSave_->trigger();
      break;
    case SaveKey::SaveAs:
      mnuFileSaveAs_->trigger();
      break;
    case SaveKey::Refused:
      Q_EMIT SaveRefused(SaveRefusedText(instructed));
      break;
  }
}
