#include "explanation/ChecksWindow.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHideEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>

#include "explanation/ShownText.h"
#include "platform/qt/AccessibleRole.h"
#include "platform/qt/FittedText.h"
#include "platform/qt/ReadOnlyText.h"

namespace {

QString HeadingFor(std::size_t count) {
  if (count == 0) return QStringLiteral("Nothing was found.");
  return count == 1 ? QStringLiteral("One thing to look at:")
                    : QStringLiteral("%1 things to look at:").arg(count);
}

}  // namespace

ChecksWindow::ChecksWindow(QWidget* parent)
    : QWidget(parent, Qt::Window), lblChecks_(new QLabel(this)), lstChecks_(new QListWidget(this)) {
  setObjectName(QStringLiteral("Checks"));
  setWindowTitle(QStringLiteral("Check the drawing"));
  SetAccessibleRole(*this, QAccessible::Dialog);
  lblChecks_->setObjectName(QStringLiteral("lblChecks"));
  lblChecks_->setWordWrap(true);
  lstChecks_->setObjectName(QStringLiteral("lstChecks"));
  lstChecks_->setAccessibleName(QStringLiteral("Checks of the drawing"));
  lstChecks_->setToolTip(
      QStringLiteral("Choose one to see its place on the drawing; Ctrl+A and Ctrl+C copy all"));
  lstChecks_->setWordWrap(true);
  lstChecks_->setTextElideMode(Qt::ElideNone);
  lstChecks_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  lstChecks_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  lstChecks_->setResizeMode(QListView::Adjust);
  lstChecks_->setSpacing(2);
  lstChecks_->setMinimumSize(160, 60);
  lblChecks_->setBuddy(lstChecks_);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(lblChecks_);
  layout->addWidget(lstChecks_, 1);
  connect(lstChecks_, &QListWidget::itemSelectionChanged, this, &ChecksWindow::TellPlace);

  auto* copy = new QAction(QStringLiteral("&Copy"), this);
  copy->setShortcut(QKeySequence::Copy);
  connect(copy, &QAction::triggered, this, &ChecksWindow::Copy);
  auto* close = new QAction(QStringLiteral("Close"), this);
  close->setShortcuts({QKeySequence(Qt::Key_Escape), QKeySequence(QKeySequence::Close)});
  connect(close, &QAction::triggered, this, &QWidget::close);
  addAction(copy);
  addAction(close);
  lstChecks_->addAction(copy);
  lstChecks_->installEventFilter(this);
  lstChecks_->setContextMenuPolicy(Qt::ActionsContextMenu);
}

void ChecksWindow::ShowChecks(const std::vector<DrawingCheck>& checks, float points) {
  lstChecks_->setFont(LettersAt96(*this, points));
  const QListWidgetItem* chosen = lstChecks_->selectedItems().value(0);
  const QString chosenText = chosen == nullptr ? QString() : chosen->text();
  {
    const QSignalBlocker silent(lstChecks_);
    lstChecks_->clear();
    checks_ = checks;
    for (const DrawingCheck& check : checks_) {
      auto* item = new QListWidgetItem(ShownText(check.Text), lstChecks_);
      if (item->text() != chosenText) continue;
      lstChecks_->setCurrentItem(item);
    }
  }
  lblChecks_->setText(HeadingFor(checks_.size()));
  lstChecks_->setAccessibleDescription(checks_.empty() ? lblChecks_->text() : QString());
  TellPlace();
}

void ChecksWindow::BringUp() {
  setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
  raise();
  activateWindow();
  lstChecks_->setFocus();
}

// The list by itself would copy the line that has the focus alone.
bool ChecksWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched != lstChecks_ || event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
  if (!static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy)) return false;
  Copy();
  return true;
}

void ChecksWindow::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  KeepWholeHeight(*this);
}

void ChecksWindow::Copy() const { QApplication::clipboard()->setText(CopiedText()); }

QString ChecksWindow::CopiedText() const {
  if (checks_.empty()) return lblChecks_->text();
  QStringList texts;
  const bool all = lstChecks_->selectedItems().isEmpty();
  for (int row = 0; row < lstChecks_->count(); ++row) {
    const QListWidgetItem* item = lstChecks_->item(row);
    if (all || item->isSelected()) texts.append(item->text());
  }
  return texts.join(QLatin1Char('\n'));
}

// Of several findings that are chosen, the place of the first.
void ChecksWindow::TellPlace() {
  for (int row = 0; row < lstChecks_->count(); ++row) {
    if (!lstChecks_->item(row)->isSelected()) continue;
    const DrawingCheck& check = checks_[static_cast<std::size_t>(row)];
    Q_EMIT PlaceChosen(check.X, check.Y);
    return;
  }
  Q_EMIT PlaceLeft();
}

void ChecksWindow::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  if (!event->spontaneous()) Q_EMIT PlaceLeft();
}
