// The eight tools of Step 1: which one is selected, and the hint that the status bar shows for each.
#pragma once

#include <array>
#include <optional>
#include <string>

/// The tools by palette index; None is the state at start and after the document was emptied.
enum class Tool {
  None = 0,
  TrussMember = 1,
  Clamp = 2,
  Roller = 3,
  Force = 4,
  NumericalValue = 5,
  ReOrientation = 6,
  Move = 7,
  Erase = 8,
};

inline constexpr int NumTools = 8;

/// The name of tool 1 .. 8, e.g. "Truss Member".
const char* ToolName(int tool);

/// The status-bar text of tool 1 .. 8, with its leading and trailing blank.
const char* ToolHint(int tool);

class ToolPalette {
 public:
  Tool Selected() const { return selected_; }

  /// Selects tool 1 .. 8. A tool that is selected stays selected.
  void Select(int tool) { selected_ = static_cast<Tool>(tool); }

  /// No tool is selected, as at the start.
  void Clear() { selected_ = Tool::None; }

  /// Whether button 1 .. 8 has its pressed look.
  bool IsDown(int tool) const { return selected_ == static_cast<Tool>(tool); }

  /// The mouse moves over button 1 .. 8: the hint to show, or nothing when that tool's hint was shown last,
  /// so that moving within one button sets the text once.
  std::optional<std::string> MouseMove(int tool);

  /// The mouse has left the buttons, and the hint with it: over any of them it is shown again.
  void MouseLeft() { hintShownLast_ = 0; }

 private:
  Tool selected_ = Tool::None;
  int hintShownLast_ = 0;
};
