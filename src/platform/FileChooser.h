// Asks the user for a file, to open or to save.
#pragma once

#include <optional>
#include <string>

struct FileChooserRequest {
  /// Descriptions and patterns by turns, separated by "|": "All Files (*.*)|*.*|Truss Files (*.trs)|*.trs".
  std::string Filter;
  int FilterIndex = 1;           ///< the preselected filter, counted from 1
  std::string InitialDirectory;  ///< UTF-8; where the chooser opens
  /// UTF-8; for saving, the file name that stands in the chooser at first; may be empty.
  std::string ProposedName = {};

  friend bool operator==(const FileChooserRequest&, const FileChooserRequest&) = default;
};

/// Both calls return the chosen path in UTF-8, nothing when the user cancels, and throw std::runtime_error
/// when the chooser cannot be shown.
class FileChooser {
 public:
  virtual ~FileChooser() = default;

  virtual std::optional<std::string> ChooseForOpening(const FileChooserRequest& request) = 0;

  /// Asks before a file that exists is chosen, because saving replaces it.
  virtual std::optional<std::string> ChooseForSaving(const FileChooserRequest& request) = 0;
};
