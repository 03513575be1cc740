// Driving a modal dialog: what the user does is called once the dialog is open.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QTimer>
#include <QtTest>
#include <functional>

/// Calls `act` with the next modal dialog of the kind as soon as one is open. The dialog is closed after that
/// if `act` left it open on purpose or by mistake, so a test fails but never hangs.
template <class Dialog>
void WhenOpen(const std::function<void(Dialog&)>& act) {
  QTimer::singleShot(0, qApp, [act] {
    QWidget* open = QApplication::activeModalWidget();
    if (open == nullptr || !open->isActiveWindow()) return WhenOpen<Dialog>(act);
    auto* dialog = qobject_cast<Dialog*>(open);
    EXPECT_NE(dialog, nullptr) << "another dialog is open";
    if (dialog != nullptr) act(*dialog);
    if (QApplication::activeModalWidget() == open) open->close();
  });
}

/// Types characters for which QTest has no key.
inline void TypeCharacters(QWidget& widget, const QString& text) {
  QKeyEvent key(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, text);
  QApplication::sendEvent(&widget, &key);
}

/// The child with this object name; a missing one fails the test.
template <class Widget>
Widget& Child(const QWidget& parent, const char* name) {
  auto* child = parent.findChild<Widget*>(QString::fromUtf8(name));
  if (child == nullptr) throw std::runtime_error(std::string("no ") + name);
  return *child;
}
