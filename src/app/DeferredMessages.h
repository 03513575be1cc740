// Messages that come up while something is being painted wait here until the painter is done; a message box
// runs an event loop, and painting must not go on inside another painting.
#pragma once

#include <utility>
#include <vector>

#include "platform/MessageBox.h"

class DeferredMessages final : public MessageBox {
 public:
  /// Keeps the message. The answer is that of a box with one button.
  MessageAnswer Show(const Message& message) override {
    kept_.push_back(message);
    return MessageAnswer::Ok;
  }

  void ShowOn(MessageBox& messages) {
    for (const Message& message : std::exchange(kept_, {})) messages.Show(message);
  }

 private:
  std::vector<Message> kept_;
};
