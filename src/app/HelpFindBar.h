// Find in page: a line to type into below the help page, with previous, next and what came of it.
#pragma once

#include <QTextDocument>
#include <QWidget>

class QLabel;
class QLineEdit;
class QTextBrowser;

class FindBar final : public QWidget {
  Q_OBJECT

 public:
  /// Finds in the page that the browser shows; capital and small letters are the same.
  explicit FindBar(QTextBrowser& browser, QWidget* parent = nullptr);

  /// Shows the bar with what is selected in the page, ready to be typed over.
  void Open();

  /// Hides the bar; the page gets the keyboard.
  void Dismiss();

  /// The next or previous place after the selection; behind the last one it goes on with the first.
  void FindNext() { Find({}); }
  void FindPrevious() { Find(QTextDocument::FindBackward); }

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void Find(QTextDocument::FindFlags direction);
  void FindWhileTyping();
  void FollowColors();
  void ShowResult(const QString& text, bool found);
  void FitResult();

  QTextBrowser& browser_;
  QLineEdit* txtFind_;
  QLabel* lblFound_;
  bool found_ = true;
};
