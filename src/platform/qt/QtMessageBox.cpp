#include "platform/qt/QtMessageBox.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QMessageBox>

#include "platform/qt/WindowInFront.h"

namespace {

// A run of characters without a blank that is longer than this (a path, as a rule) may be broken anywhere,
// else it would make the box wider than the screen.
constexpr int LongRun = 60;
constexpr QChar ZeroWidthSpace{0x200B};

QString WithLongRunsBreakable(const QString& text) {
  QString result;
  int run = 0;
  for (const QChar character : text) {
    run = character.isSpace() ? 0 : run + 1;
    if (run > LongRun && !character.isLowSurrogate()) result += ZeroWidthSpace;
    result += character;
  }
  return result;
}

std::string WholeText(const Message& message) {
  return message.Details.empty() ? message.Text : message.Text + "\n\n" + message.Details;
}

QMessageBox::Icon IconOf(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::Information:
      return QMessageBox::Information;
    case MessageIcon::Exclamation:
      return QMessageBox::Warning;
    case MessageIcon::Critical:
      return QMessageBox::Critical;
    case MessageIcon::None:
      break;
  }
  return QMessageBox::NoIcon;
}

// Without a way out only the buttons answer: the toolkit would take closing the box for a No.
class AnsweredBox final : public QMessageBox {
 public:
  AnsweredBox(QWidget* parent, bool hasWayOut) : QMessageBox(parent), hasWayOut_(hasWayOut) {
    if (hasWayOut_) return;
    setWindowFlags((windowFlags() | Qt::CustomizeWindowHint) & ~Qt::WindowCloseButtonHint);
  }

 protected:
  void closeEvent(QCloseEvent* event) override {
    if (hasWayOut_) {
      QMessageBox::closeEvent(event);
    } else {
      event->ignore();
    }
  }

  void keyPressEvent(QKeyEvent* event) override {
    if (hasWayOut_ || !event->matches(QKeySequence::Cancel)) QMessageBox::keyPressEvent(event);
  }

 private:
  bool hasWayOut_;
};

}  // namespace

MessageAnswer QtMessageBox::Show(const Message& message) {
  AnsweredBox box(WindowInFront(), message.HasWayOut);
  box.setWindowTitle(QString::fromStdString(message.Title));
  box.setIcon(IconOf(message.Icon));
  box.setTextFormat(Qt::PlainText);
  box.setText(WithLongRunsBreakable(QString::fromStdString(WholeText(message))));
  if (message.Buttons == MessageButtons::Ok) {
    box.setStandardButtons(QMessageBox::Ok);
    box.exec();
    return MessageAnswer::Ok;
  }
  box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
  box.setDefaultButton(message.Default == MessageAnswer::No ? QMessageBox::No : QMessageBox::Yes);
  box.setEscapeButton(QMessageBox::No);
  return box.exec() == QMessageBox::Yes ? MessageAnswer::Yes : MessageAnswer::No;
}
