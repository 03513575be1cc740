#include "app/HelpFindBar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QTextBrowser>
#include <QToolButton>

#include "app/HelpIcons.h"
#include "platform/qt/FittedText.h"
#include "platform/qt/MixedColor.h"
#include "platform/qt/OnPress.h"
#include "platform/qt/QtText.h"

namespace {

QToolButton* MakeButton(const char* name, const QString& text, const QString& keys, HelpGlyph glyph) {
  auto* button = new QToolButton;
  button->setObjectName(QString::fromLatin1(name));
  button->setIcon(HelpIcon(glyph));
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::TabFocus);
  button->setAccessibleName(text);
  button->setToolTip(QStringLiteral("%1 (%2)").arg(text, keys));
  return button;
}

}  // namespace

FindBar::FindBar(QTextBrowser& browser, QWidget* parent)
    : QWidget(parent), browser_(browser), txtFind_(new QLineEdit), lblFound_(new QLabel) {
  setObjectName(QStringLiteral("FindBar"));
  txtFind_->setObjectName(QStringLiteral("txtFind"));
  txtFind_->setAccessibleName(QStringLiteral("Find in page"));
  txtFind_->setPlaceholderText(QStringLiteral("Find in page"));
  FollowColors();
  txtFind_->setClearButtonEnabled(true);
  txtFind_->setMaximumWidth(280);
  lblFound_->setObjectName(QStringLiteral("lblFound"));
  lblFound_->setTextFormat(Qt::PlainText);
  lblFound_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);

  QToolButton* previous = MakeButton("cmdFindPrevious", QStringLiteral("Find previous"),
                                     QStringLiteral("Shift+F3"), HelpGlyph::Previous);
  QToolButton* next =
      MakeButton("cmdFindNext", QStringLiteral("Find next"), QStringLiteral("F3"), HelpGlyph::Next);
  QToolButton* close = MakeButton("cmdFindClose", QStringLiteral("Close the find bar"), QStringLiteral("Esc"),
                                  HelpGlyph::Close);
  OnPress(previous, this, &FindBar::FindPrevious);
  OnPress(next, this, &FindBar::FindNext);
  OnPress(close, this, &FindBar::Dismiss);
  connect(txtFind_, &QLineEdit::textChanged, this, &FindBar::FindWhileTyping);
  connect(&browser_, &QTextBrowser::sourceChanged, this, [this] { ShowResult({}, true); });

  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(8, 4, 8, 4);
  row->setSpacing(4);
  row->addWidget(txtFind_, 2);
  row->addWidget(previous);
  row->addWidget(next);
  row->addSpacing(6);
  row->addWidget(lblFound_, 1);
  row->addWidget(close);
  setFocusProxy(txtFind_);
  hide();
}

void FindBar::FollowColors() {
  QPalette readable = palette();
  readable.setColor(QPalette::PlaceholderText, FaintLetters(readable));
  txtFind_->setPalette(readable);
}

void FindBar::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) FollowColors();
}

void FindBar::Open() {
  const QString selected = OneLineText(browser_.textCursor().selectedText());
  if (!selected.isEmpty()) {
    const QSignalBlocker found(txtFind_);  // what is selected stays so
    txtFind_->setText(selected);
  }
  show();
  txtFind_->setFocus(Qt::ShortcutFocusReason);
  txtFind_->selectAll();
}

void FindBar::Dismiss() {
  hide();
  browser_.setFocus();
}

void FindBar::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
    QWidget::keyPressEvent(event);
  } else if (event->modifiers().testFlag(Qt::ShiftModifier)) {
    FindPrevious();
  } else {
    FindNext();
  }
}

// A longer word may still begin where the shorter one was found.
void FindBar::FindWhileTyping() {
  QTextCursor cursor = browser_.textCursor();
  cursor.setPosition(cursor.selectionStart());
  browser_.setTextCursor(cursor);
  FindNext();
}

void FindBar::Find(QTextDocument::FindFlags direction) {
  if (isHidden()) return Open();
  const QString wanted = txtFind_->text();
  if (wanted.isEmpty()) return ShowResult({}, true);
  if (browser_.find(wanted, direction)) return ShowResult({}, true);
  const bool backward = direction.testFlag(QTextDocument::FindBackward);
  const QTextCursor before = browser_.textCursor();
  QTextCursor start = before;
  start.movePosition(backward ? QTextCursor::End : QTextCursor::Start);
  browser_.setTextCursor(start);
  if (browser_.find(wanted, direction)) {
    ShowResult(backward ? QStringLiteral("Continued from the end of the page")
                        : QStringLiteral("Continued from the top of the page"),
               true);
    return;
  }
  browser_.setTextCursor(before);
  ShowResult(QStringLiteral("Not found on this page"), false);
}

void FindBar::ShowResult(const QString& text, bool found) {
  lblFound_->setText(text);
  lblFound_->setAccessibleName(text);
  found_ = found;
  FitResult();
}

void FindBar::FitResult() {
  QFont font = this->font();
  font.setBold(!found_);
  FitLabel(*lblFound_, font);
}

void FindBar::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  layout()->activate();
  FitResult();
}
