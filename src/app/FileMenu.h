// What the File menu shows each time it opens.
#pragma once

#include <string>

/// The status bar while the menu is open.
inline constexpr const char* FileMenuStatusText =
    " Start a new truss, open or save an existing truss, or exit the program ";

/// "&" marks the access key. Both blanks of "the  truss" belong to it.
inline constexpr const char* SaveCaption = "&Save the  truss";
inline constexpr const char* SaveAsCaption = "Save the truss &as ...";

/// In Step 1 the joints have no names yet; the caption says where saving is possible.
inline constexpr const char* SaveAsCaptionStep1 = "Save the truss &as ... (is enabled in Step 2)";

struct MenuEntryState {
  bool Enabled = false;
  std::string Caption;
};

struct FileMenu {
  MenuEntryState SaveAs;
  MenuEntryState Save;
  bool PrintEnabled = false;
};

/// What the key of Save does. It never does nothing without a word.
enum class SaveKey { Save, SaveAs, Refused };

/// Where only Save As is offered, the key opens that. `step` is 1, 2 or 3; `instructed` while the
/// instructions before Step 1 are shown.
SaveKey SaveKeyCommand(int step, const std::string& fileName, bool instructed);

/// What the status bar says where the key is refused.
const char* SaveRefusedText(bool instructed);

/// `step` is 1, 2 or 3; an empty file name means that the truss is untitled.
FileMenu FileMenuState(int step, const std::string& fileName);
