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

/// Whether a press with the tool draws something new at a point.
constexpr bool IsDrawingTool(Tool tool) {
  return tool == Tool::TrussMember || tool == Tool::Clamp || tool == Tool::Roller || tool == Tool::Force;
}

/// Whether a press with the tool does something to the member or force under it.
constexpr bool ActsOnLines(Tool tool) {
  return tool == Tool::NumericalValue || tool == Tool::Move || tool == Tool::Erase;
}

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
  void Clear() {
    selected_ = Tool::None;
    hintShownLast_ = 0;
  }

  /// Whether button 1 .. 8 has its pressed look.
  bool IsDown(int tool) const { return selected_ == static_cast<Tool>(tool); }

  /// The mouse moves over button 1 .. 8: the hint to show, or nothing when that tool's hint was shown last,
  /// so that moving within one button sets the text once.
  std::optional<std::string> MouseMove(int tool);

  /// The hint of tool 1 .. 8, which is shown because the tool was chosen without the mouse being on it.
  std::string HintOfChosen(int tool);

  /// The mouse leaves the buttons: the selected tool's hint is shown from now on, or none when no tool is
  /// selected.
  void MouseLeave() { hintShownLast_ = static_cast<int>(selected_); }

 private:
  Tool selected_ = Tool::None;
  int hintShownLast_ = 0;
};
