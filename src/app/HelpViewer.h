// The window that shows the help: pages, the tree of contents beside them, and the commands of a reader.
#pragma once

#include <QMainWindow>
#include <string>

#include "app/HelpFile.h"
#include "platform/MessageBox.h"

class FindBar;
class HelpBrowser;
class QAction;
class QTreeWidget;
class QTreeWidgetItem;
enum class HelpGlyph;

/// Created once and kept, so that page, size and zoom are as they were when the window is shown again.
class HelpViewer final : public QMainWindow {
  Q_OBJECT

 public:
  /// `messages` must outlive the viewer; it asks before a link leaves the help, and says what is wrong.
  explicit HelpViewer(MessageBox& messages, QWidget* parent = nullptr);

  /// Shows the window with the topic of a topic path (see HelpTopics.h), the program's directory before it.
  /// False after a message when the help file cannot be used or has no such topic; the window stays as it is.
  bool ShowTopic(const std::string& topicPath);

 private:
  void CreateActions();
  void CreateKeys();
  QAction* AddAction(const char* name, const QString& text, const QString& toolTip,
                     const QList<QKeySequence>& keys, HelpGlyph glyph);
  void FillContents();
  void BringUp();
  void ShowContentsEntry(const QTreeWidgetItem* entry);
  void PageChanged(const QString& shown);
  void LeaveHelp(const QUrl& address);
  void Say(const QString& text);
  void GiveUpOrClose();

  MessageBox& messages_;
  HelpFile file_;
  QString path_;  // of the file that is open
  HelpBrowser* browser_;
  QTreeWidget* contents_;
  FindBar* find_;
};
