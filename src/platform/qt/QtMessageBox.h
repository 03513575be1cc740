// Modal messages through the toolkit.
#pragma once

#include "platform/MessageBox.h"

class QWidget;

class QtMessageBox final : public MessageBox {
 public:
  /// `parent` must outlive the box. A message appears over the dialog that is open, else over `parent`.
  explicit QtMessageBox(QWidget* parent) : parent_(parent) {}

  MessageAnswer Show(const Message& message) override;

 private:
  QWidget* parent_;
};
