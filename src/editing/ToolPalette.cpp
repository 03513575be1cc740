#include "editing/ToolPalette.h"

namespace {

struct ToolTexts {
  const char* Name;
  const char* Hint;
};

constexpr std::array<ToolTexts, NumTools> Texts = {{
    {"Truss Member",
     " When the Truss Member Tool is selected, click and drag the mouse to create a new truss member "},
    {"Clamp", " When the Clamp Tool is selected, click to place a new clamp "},
    {"Roller", " When the Roller Tool is selected, click to place a new roller "},
    {"Force", " When the Force Tool is selected, click on a joint and drag in the direction of the force "},
    {"Numerical Value",
     " When the Numerical Value Tool is selected, click on a truss member or a force to change its value "},
    {"Re-orientation",
     " When the Re-orientation Tool is selected, click on a roller or clamp to change its orientation "},
    {"Move", " When the Move Tool is selected, click on an object to move it "},
    {"Erase", " When the Erase Tool is selected, click on an object to erase it "},
}};

const ToolTexts& TextsOf(int tool) { return Texts.at(static_cast<std::size_t>(tool - 1)); }

}  // namespace

const char* ToolName(int tool) { return TextsOf(tool).Name; }
const char* ToolHint(int tool) { return TextsOf(tool).Hint; }

std::optional<std::string> ToolPalette::MouseMove(int tool) {
  if (tool == hintShownLast_) return std::nullopt;
  hintShownLast_ = tool;
  return ToolHint(tool);
}

std::string ToolPalette::HintOfChosen(int tool) {
  hintShownLast_ = tool;
  return ToolHint(tool);
}
