// A modal message: a text, an icon and one or two buttons.
#pragma once

#include <string>

enum class MessageButtons { Ok, YesNo };
enum class MessageIcon { None, Information, Exclamation, Critical };
enum class MessageAnswer { Ok, Yes, No };

/// The title of every message of the program.
inline constexpr const char* MessageTitle = "Orvane";

/// Texts are UTF-8 and plain: whatever they hold is shown as it is, never as markup.
struct Message {
  std::string Text;
  std::string Title = MessageTitle;
  MessageButtons Buttons = MessageButtons::Ok;
  MessageIcon Icon = MessageIcon::None;
  MessageAnswer Default = MessageAnswer::Yes;  ///< of two buttons the one that Return presses

  /// Whether Esc and the title bar's X close the box. Where two buttons have no way out beside them, only
  /// they answer.
  bool HasWayOut = true;

  friend bool operator==(const Message&, const Message&) = default;
};

class MessageBox {
 public:
  virtual ~MessageBox() = default;

  /// Returns when the user has answered. Closing the box otherwise, where it can be closed, is Ok, or No
  /// where there are two buttons.
  virtual MessageAnswer Show(const Message& message) = 0;
};
