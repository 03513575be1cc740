// A text box for one number: whoever gives it the focus, by key or by mouse, finds its whole text selected,
// so that typing replaces it.
#pragma once

#include <QLineEdit>

class NumberBox final : public QLineEdit {
  Q_OBJECT

 public:
  using QLineEdit::QLineEdit;

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  bool focusCameByPress_ = false;  // the press that brought the focus is about to arrive
  bool keepsSelection_ = false;    // that press is being held
};
