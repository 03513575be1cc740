// Which text the first panel of the status bar shows. A step's text stands there; a note covers it until the
// next step or file; a hint covers both, but only for as long as it is meant, so that no hint wipes out a
// note.
#pragma once

#include <array>
#include <cstddef>
#include <string>

/// What a note is about. There is one note on each; they are shown one after the other, in this order.
enum class StatusNote {
  File,     ///< how a file was read or written
  Drawing,  ///< what is odd about the truss as it is drawn now
  Step,     ///< why the step could not be left, or what was found on entering it
};

/// Where a hint comes from.
enum class StatusHint {
  Tool,  ///< a tool under the mouse, or chosen with a key
  Menu,  ///< an open menu
  Key,   ///< a key that does nothing here
};

/// All texts are UTF-8 and have a blank at both ends.
class StatusTexts {
 public:
  /// A step has been entered, or another document: its text stands, and all notes and hints end.
  void EnterStep(const std::string& text);

  /// The text of the present step has changed; notes and hints stay.
  void RenewStep(const std::string& text) { standing_ = text; }

  /// Notes something until the next step, in place of the former note on the same; an empty text withdraws
  /// it.
  void Note(StatusNote about, const std::string& text);

  /// Shows a hint in front of everything until its end, the next hint, or the next step.
  void ShowHint(StatusHint from, const std::string& text);

  /// The hint of this kind, if it is the one that is shown, ends; what it covered is shown again.
  void EndHint(StatusHint from);

  /// The hint of the chosen tool: it takes the place of the step's text until the next step.
  void ChooseTool(const std::string& hint);

  /// What the panel shows now.
  std::string Shown() const;

 private:
  static constexpr std::size_t NumNotes = 3;

  std::string standing_;
  std::array<std::string, NumNotes> notes_;
  std::string hint_;
  StatusHint hintFrom_{};
};
