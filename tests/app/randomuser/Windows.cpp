// Sizes of windows, and what is done in the windows beside the main one: reports, help, those of the menu
// Learn.
#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAbstractSlider>
#include <QComboBox>
#include <array>

#include "RandomUser.h"

void RandomUser::ResizeAny(QWidget& window) {
  if (OneIn(4)) {
    window.isMaximized() ? window.showNormal() : window.showMaximized();
  } else if (OneIn(8)) {
    window.resize(50 + Below(3951), 50 + Below(3951));
  } else {
    window.resize(50 + Below(1951), 50 + Below(1951));
  }
  if (OneIn(2)) QApplication::processEvents();
}

void RandomUser::ResizeMainForm() { ResizeAny(*form_); }

void RandomUser::UseReport() {
  QWidget* report = Report();
  if (!report->isVisible()) {
    static constexpr std::array buttons = {"cmdReportCounting", "cmdReportSystemEqs", "cmdReportRREF",
                                           "cmdReportSolutions"};
    auto* button = Find<QAbstractButton>(OneOf(buttons));
    if (button->isVisible()) QTest::mouseClick(button, Qt::LeftButton);
    return;
  }
  switch (Below(6)) {
    case 0:
      ResizeAny(*report);
      break;
    case 1:
      report->close();
      break;
    default:
      for (int i = Below(4); i >= 0; --i) UseArea(*report);
      break;
  }
}

void RandomUser::UseHelp() {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->objectName() != QStringLiteral("HelpViewer") || !window->isVisible()) continue;
    for (int i = Below(3); i >= 0 && window->isVisible(); --i) UseAnything(*window);
    return;
  }
  static constexpr std::array entries = {"mnuHelpProgram", "mnuHelpTrusses", "mnuHelpMath", "mnuHelpStep"};
  Trigger(OneOf(entries));
}

// Whatever else is open: the windows of the menu Learn.
void RandomUser::UseOtherWindows() {
  QList<QPointer<QWidget>> windows;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    const bool isOther = window != form_.get() && window != Report() && window->isVisible() &&
                         window->windowType() != Qt::ToolTip && window->windowType() != Qt::Popup &&
                         !window->isModal() && window->objectName() != QStringLiteral("HelpViewer");
    if (isOther) windows.append(window);
  }
  for (const QPointer<QWidget>& window : windows) {
    for (int i = Below(4); i > 0 && window && window->isVisible(); --i) UseAnything(*window);
    if (window && OneIn(6)) ResizeAny(*window);
    if (window && OneIn(12)) window->close();
  }
}

// A button, a list, a slider, a box to type into, or any place of it.
void RandomUser::UseAnything(QWidget& window) {
  chooser_.Choice = directory_ / "saved.pdf";
  messages_.Answers = {YesOrNo()};
  if (OneIn(3)) return UseArea(window);
  QList<QWidget*> shown;
  for (QWidget* child : window.findChildren<QWidget*>()) {
    if (child->isVisible() && child->isEnabled() && child->window() == &window) shown.append(child);
  }
  if (shown.isEmpty()) return;
  QWidget* child = OneOf(shown);
  const QPoint at(Below(child->width() + 1), Below(child->height() + 1));
  if (auto* box = qobject_cast<QLineEdit*>(child)) {
    static constexpr std::array texts = {"5", "12", "3 T", "-70,7", "force", "", "x\"<", "2.5"};
    box->selectAll();
    QTest::keyClicks(box, QString::fromLatin1(OneOf(texts)));
  } else if (qobject_cast<QComboBox*>(child) != nullptr || qobject_cast<QAbstractSlider*>(child) != nullptr) {
    QTest::keyClick(child, OneIn(2) ? Qt::Key_Down : Qt::Key_Up);
  } else if (OneIn(4)) {
    QWheelEvent wheel(at, child->mapToGlobal(at), {}, {0, 120 * (Below(9) - 4)}, Qt::NoButton,
                      OneIn(2) ? Qt::ControlModifier : Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(child, &wheel);
  } else if (OneIn(3)) {
    const QPoint to(Below(child->width() + 1), Below(child->height() + 1));
    QTest::mousePress(child, Qt::LeftButton, Qt::NoModifier, at);
    QMouseEvent move(QEvent::MouseMove, QPointF(to), child->mapToGlobal(QPointF(to)), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(child, &move);
    QTest::mouseRelease(child, Qt::LeftButton, Qt::NoModifier, to);
  } else if (OneIn(4)) {
    QTest::mouseDClick(child, Qt::LeftButton, Qt::NoModifier, at);
  } else {
    QTest::mouseClick(child, Qt::LeftButton, Qt::NoModifier, at);
  }
}

// Mouse and keys in a text, a table or a list, with the keys that copy, find, zoom and close.
void RandomUser::UseArea(QWidget& window) {
  const QList<QAbstractScrollArea*> areas = window.findChildren<QAbstractScrollArea*>();
  QWidget* viewport = areas.isEmpty() ? nullptr : OneOf(areas)->viewport();
  if (viewport != nullptr && viewport->isVisible() && OneIn(3)) {
    const auto somewhere = [&] {
      return QPoint(Below(viewport->width() + 1), Below(viewport->height() + 1));
    };
    QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier, somewhere());
    QTest::mouseMove(viewport, somewhere());
    QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, somewhere());
    return;
  }
  struct Keys {
    Qt::Key Key;
    Qt::KeyboardModifiers Modifiers;
  };
  static const std::array keys = {
      Keys{Qt::Key_A, Qt::ControlModifier},   Keys{Qt::Key_C, Qt::ControlModifier},
      Keys{Qt::Key_Down, Qt::ShiftModifier},  Keys{Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier},
      Keys{Qt::Key_Right, Qt::ShiftModifier}, Keys{Qt::Key_PageDown, Qt::NoModifier},
      Keys{Qt::Key_C, Qt::AltModifier},       Keys{Qt::Key_E, Qt::AltModifier},
      Keys{Qt::Key_R, Qt::AltModifier},       Keys{Qt::Key_L, Qt::AltModifier},
      Keys{Qt::Key_Tab, Qt::NoModifier},      Keys{Qt::Key_Escape, Qt::NoModifier},
      Keys{Qt::Key_F, Qt::ControlModifier},   Keys{Qt::Key_Plus, Qt::ControlModifier},
      Keys{Qt::Key_0, Qt::ControlModifier},   Keys{Qt::Key_Left, Qt::AltModifier},
      Keys{Qt::Key_Return, Qt::NoModifier},   Keys{Qt::Key_Space, Qt::NoModifier},
      Keys{Qt::Key_F1, Qt::NoModifier},       Keys{Qt::Key_Up, Qt::NoModifier}};
  const Keys pressed = OneOf(keys);
  QTest::keyClick(window.focusWidget() != nullptr ? window.focusWidget() : &window, pressed.Key,
                  pressed.Modifiers);
}
