#include "reports/SavingAs.h"

#include <exception>

#include "document/FileWriting.h"
#include "platform/FileBytes.h"
#include "text/Sentence.h"

std::optional<std::string> ChoosePath(const SavingAs& saving, FileChooser& chooser, MessageBox& messages) {
  std::optional<std::string> path;
  try {
    path = chooser.ChooseForSaving(saving.Request);
  } catch (const std::exception&) {
    messages.Show({.Text = saving.What + " cannot be saved: no file can be chosen on this desktop.",
                   .Icon = MessageIcon::Exclamation});
  }
  if (!path || saving.HasEnding(*path)) return path;
  // The chooser has not asked about the file with this ending.
  *path += saving.UsualEnding;
  const Message question{.Text = *path + " already exists.\nDo you want to replace it?",
                         .Buttons = MessageButtons::YesNo,
                         .Icon = MessageIcon::Exclamation};
  if (FileExists(*path) && messages.Show(question) != MessageAnswer::Yes) return std::nullopt;
  return path;
}

void SaveBytes(const std::string& path, std::string_view bytes, const SavingAs& saving,
               MessageBox& messages) {
  std::string why;
  if (!bytes.empty()) {
    why = WriteWholeFile(path, bytes);
    if (why.empty()) return;
  }
  messages.Show({.Text = saving.What + " could not be saved as " + path + ".",
                 .Icon = MessageIcon::Exclamation,
                 .Details = AsSentence(why)});
}
