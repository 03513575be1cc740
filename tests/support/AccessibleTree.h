// The windows as a screen reader meets them: through the accessibility tree alone.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QAccessibleInterface>
#include <QApplication>
#include <QPointer>
#include <QTest>
#include <QWidget>
#include <algorithm>
#include <functional>
#include <stdexcept>
#include <vector>

#include "platform/qt/AccessibleEvents.h"

namespace accessible {

/// The interface of a widget, which must have one.
inline QAccessibleInterface* Of(QWidget& widget) {
  QAccessibleInterface* found = QAccessible::queryAccessibleInterface(&widget);
  EXPECT_NE(found, nullptr) << widget.objectName().toStdString();
  return found;
}

/// Calls `visit` for all that is there to be seen below and at `root`. Of a table or list only the first and
/// the last children are visited: they may have millions.
inline void Walk(QAccessibleInterface* root, const std::function<void(QAccessibleInterface*)>& visit) {
  if (root == nullptr || !root->isValid() || root->state().invisible) return;
  visit(root);
  const int count = root->childCount();
  constexpr int most = 400;
  for (int i = 0; i < count; ++i) {
    if (count > most && i == most / 2) i = count - most / 2;
    Walk(root->child(i), visit);
  }
}

inline QString Name(QAccessibleInterface* of) { return of->text(QAccessible::Name); }

/// All below `root` that have this name and role.
inline std::vector<QAccessibleInterface*> All(QAccessibleInterface* root, QAccessible::Role role,
                                              const QString& name) {
  std::vector<QAccessibleInterface*> found;
  Walk(root, [&](QAccessibleInterface* each) {
    if (each->role() == role && Name(each) == name) found.push_back(each);
  });
  return found;
}

/// The only one; a missing one fails the test and ends it.
inline QAccessibleInterface* One(QAccessibleInterface* root, QAccessible::Role role, const QString& name) {
  const auto found = All(root, role, name);
  if (found.size() != 1) {
    QStringList there;
    Walk(root, [&](QAccessibleInterface* each) { there.append(Name(each)); });
    throw std::runtime_error((QString::number(found.size()) + QStringLiteral(" are called ") + name +
                              QStringLiteral("; there are: ") + there.join(QStringLiteral(" | ")))
                                 .toStdString());
  }
  return found.front();
}

inline void Do(QAccessibleInterface* on, const QString& action) {
  ASSERT_NE(on->actionInterface(), nullptr) << Name(on).toStdString();
  ASSERT_TRUE(on->actionInterface()->actionNames().contains(action)) << Name(on).toStdString();
  on->actionInterface()->doAction(action);
  // A button goes down and up again before it does something.
  QPointer<QAbstractButton> button = qobject_cast<QAbstractButton*>(on->object());
  EXPECT_TRUE(QTest::qWaitFor([&button] { return !button || !button->isDown(); }));
  QApplication::processEvents();
}

inline void Press(QAccessibleInterface* on) { Do(on, QAccessibleActionInterface::pressAction()); }

/// Writes down what the program tells those who listen, as long as it lives.
class Listener {
 public:
  struct Event {
    QAccessible::Event What;
    QString Name, Description;
  };

  Listener() {
    ListenInstead([this](QAccessibleEvent& event) { Hear(event); });
  }
  Listener(const Listener&) = delete;
  Listener& operator=(const Listener&) = delete;
  ~Listener() { ListenInstead({}); }

  /// How often something with this name was told.
  int Count(QAccessible::Event what, const QString& name) const {
    return static_cast<int>(std::ranges::count_if(
        Events, [&](const Event& event) { return event.What == what && event.Name == name; }));
  }

  std::vector<Event> Events;
  QStringList Said;  ///< what a screen reader was given to say, in this order

  QString LastSaid() const { return Said.isEmpty() ? QString() : Said.last(); }

 private:
  void Hear(QAccessibleEvent& event) {
    QAccessibleInterface* about = event.accessibleInterface();
    if (about == nullptr || !about->isValid()) return;
    Events.push_back({event.type(), about->text(QAccessible::Name), about->text(QAccessible::Description)});
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    if (event.type() == QAccessible::Announcement)
      Said.append(static_cast<QAccessibleAnnouncementEvent&>(event).message());
#else
    // A reader says a notice that comes up, and without a word for what it is when it is a status bar's.
    if (event.type() != QAccessible::ObjectShow || about->role() != QAccessible::Notification) return;
    EXPECT_EQ(about->parent()->role(), QAccessible::StatusBar);
    EXPECT_FALSE(about->state().invisible);
    Said.append(about->text(QAccessible::Name));
#endif
  }
};

}  // namespace accessible
