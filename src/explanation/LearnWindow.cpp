#include "explanation/LearnWindow.h"

#include <QAction>

#include "platform/qt/AccessibleRole.h"

LearnWindow::LearnWindow(const QString& name, const QString& title, QWidget* parent)
    : QWidget(parent, Qt::Window) {
  setObjectName(name);
  setWindowTitle(title);
  SetAccessibleRole(*this, QAccessible::Dialog);
  auto* close = new QAction(QStringLiteral("Close"), this);
  close->setShortcuts({QKeySequence(Qt::Key_Escape), QKeySequence(QKeySequence::Close)});
  connect(close, &QAction::triggered, this, &QWidget::close);
  addAction(close);
}

void LearnWindow::BringUp() {
  setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
  raise();
  activateWindow();
  FirstControl().setFocus();
}
