// Saving what was made of a truss as a file that the user chooses.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "platform/FileChooser.h"
#include "platform/MessageBox.h"

struct SavingAs {
  std::string What;  ///< "The report", as a sentence begins
  FileChooserRequest Request;
  std::function<bool(const std::string& path)> HasEnding;  ///< whether a path's ending says a format
  std::string UsualEnding;                                 ///< ".rtf"; appended to a path without any
};

/// The path that the user has chosen, with an ending; the user is asked before a file is replaced. Nothing
/// when he cancels, or, after a message, when no file can be chosen.
std::optional<std::string> ChoosePath(const SavingAs& saving, FileChooser& chooser, MessageBox& messages);

/// Writes the file, complete or not at all; a message says why it cannot be written. Without bytes it cannot.
void SaveBytes(const std::string& path, std::string_view bytes, const SavingAs& saving, MessageBox& messages);
