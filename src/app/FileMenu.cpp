#include "app/FileMenu.h"

FileMenu FileMenuState(int step, const std::string& fileName) {
  const bool canSave = step > 1;
  FileMenu menu;
  menu.SaveAs = {canSave, canSave ? SaveAsCaption : SaveAsCaptionStep1};
  menu.Save = {canSave && !fileName.empty(), SaveCaption};
  menu.PrintEnabled = step == 3;
  return menu;
}

SaveKey SaveKeyCommand(int step, const std::string& fileName, bool instructed) {
  const FileMenu menu = FileMenuState(step, fileName);
  if (instructed || !menu.SaveAs.Enabled) return SaveKey::Refused;
  return menu.Save.Enabled ? SaveKey::Save : SaveKey::SaveAs;
}

const char* SaveRefusedText(bool instructed) {
  return instructed ? " These are the instructions before Step 1.  Saving is enabled in Step 2. "
                    : " This is Step 1.  Saving is enabled in Step 2: press Next, then save. ";
}
