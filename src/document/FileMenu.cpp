// See the header.
#include "document/FileMenu.h"

FileMenu FileMenuState(int step, const std::string& fileName) {
  const bool canSave = step > 1;
  FileMenu menu;
  menu.SaveAs = {canSave, canSave ? SaveAsCaption : SaveAsCaptionStep1};
  menu.Save = {canSave && !fileName.empty(), SaveCaption};
  menu.PrintEnabled = step == 3;
  return menu;
}
