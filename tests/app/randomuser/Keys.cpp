// Keys, shortcuts and typed numbers, wherever the keyboard is.
#include <array>

#include "RandomUser.h"

void RandomUser::PressKey() {
  static constexpr std::array keys = {
      Qt::Key_1,      Qt::Key_2,      Qt::Key_3,    Qt::Key_4,       Qt::Key_5,      Qt::Key_6,
      Qt::Key_7,      Qt::Key_8,      Qt::Key_Left, Qt::Key_Up,      Qt::Key_Down,   Qt::Key_Right,
      Qt::Key_Space,  Qt::Key_Return, Qt::Key_Tab,  Qt::Key_Backtab, Qt::Key_Escape, Qt::Key_9,
      Qt::Key_Period, Qt::Key_Minus,  Qt::Key_E,    Qt::Key_Delete,  Qt::Key_Home,   Qt::Key_End,
      Qt::Key_Menu,   Qt::Key_Comma};
  const Qt::Key key = OneOf(keys);
  QWidget* target = QApplication::focusWidget();
  const bool onCanvas = target == nullptr || target->window() != form_.get() || OneIn(3);
  QTest::keyClick(onCanvas ? Canvas() : target, key, OneIn(6) ? Qt::ShiftModifier : Qt::NoModifier);
}

// Those of the menus, of the steps, of the access keys, and some that mean nothing.
void RandomUser::PressShortcut() {
  static constexpr std::array letters = {
      Qt::Key_A, Qt::Key_B,  Qt::Key_C,  Qt::Key_E,    Qt::Key_F,     Qt::Key_H,    Qt::Key_L, Qt::Key_N,
      Qt::Key_O, Qt::Key_P,  Qt::Key_Q,  Qt::Key_R,    Qt::Key_S,     Qt::Key_T,    Qt::Key_W, Qt::Key_X,
      Qt::Key_Z, Qt::Key_F1, Qt::Key_F4, Qt::Key_Left, Qt::Key_Right, Qt::Key_Plus, Qt::Key_0};
  static constexpr std::array<Qt::KeyboardModifiers, 5> modifiers = {
      Qt::ControlModifier, Qt::AltModifier, Qt::NoModifier, Qt::ControlModifier | Qt::ShiftModifier,
      Qt::ControlModifier};
  chooser_.Choice = SomeFile();
  messages_.Answers = {YesOrNo(), YesOrNo()};
  QWidget* target = QApplication::focusWidget();
  QTest::keyClick(target != nullptr && !OneIn(4) ? target : Canvas(), OneOf(letters), OneOf(modifiers));
}

// Into the boxes of the value editor, when it is open.
void RandomUser::TypeNumber() {
  static constexpr std::array texts = {"3",  "-2.5", "2,5", "1e3", "45",  "",        "0",     "x",
                                       "7 ", "1e39", "-0",  ".5",  "180", "9999999", "1e-30", "--1"};
  QList<QLineEdit*> boxes;
  for (QLineEdit* box : form_->findChildren<QLineEdit*>()) {
    if (box->isVisible() && !box->isReadOnly()) boxes.append(box);
  }
  if (boxes.isEmpty()) return;
  QLineEdit* box = OneOf(boxes);
  box->setFocus();
  if (!OneIn(4)) box->selectAll();
  QTest::keyClicks(box, QString::fromLatin1(OneOf(texts)));
  if (OneIn(2)) QTest::keyClick(box, Qt::Key_Return);
}
