// A message box that answers by itself and remembers what it was asked to show.
#pragma once

#include <deque>
#include <functional>
#include <vector>

#include "platform/MessageBox.h"

class FakeMessageBox : public MessageBox {
 public:
  MessageAnswer Show(const Message& message) override {
    Shown.push_back(message);
    if (WhenShown) WhenShown(message);
    if (message.Buttons == MessageButtons::Ok) return MessageAnswer::Ok;
    if (Answers.empty()) return MessageAnswer::No;
    const MessageAnswer answer = Answers.front();
    Answers.pop_front();
    return answer;
  }

  std::vector<Message> Shown;

  /// The answers to coming Yes/No questions; No when there are none left.
  std::deque<MessageAnswer> Answers;

  /// Called while a message is up, before it is answered.
  std::function<void(const Message&)> WhenShown;
};
