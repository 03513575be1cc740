// Modal messages through the toolkit, over the window in front.
#pragma once

#include "platform/MessageBox.h"

class QtMessageBox final : public MessageBox {
 public:
  MessageAnswer Show(const Message& message) override;
};
