// Choosing a file with the dialog of the toolkit or, where there is one, of the desktop.
#pragma once

#include "platform/FileChooser.h"

/// A name typed for saving without an extension gets the one of the chosen filter ("*.*" has none), and the
/// question whether a file may be replaced is asked for the name with its extension.
class QtFileChooser final : public FileChooser {
 public:
  std::optional<std::string> ChooseForOpening(const FileChooserRequest& request) override;
  std::optional<std::string> ChooseForSaving(const FileChooserRequest& request) override;
};
