// Which entries of the File menu are enabled in which step, and what they are called.
#include "app/FileMenu.h"

namespace {

constexpr const char* Named = "bridge.trs";
constexpr const char* Untitled = "";

TEST(FileMenu, InStep1NothingCanBeSavedOrPrinted) {
  for (const char* fileName : {Untitled, Named}) {
    const FileMenu menu = FileMenuState(1, fileName);
    EXPECT_FALSE(menu.SaveAs.Enabled);
    EXPECT_FALSE(menu.Save.Enabled);
    EXPECT_FALSE(menu.PrintEnabled);
    EXPECT_EQ(menu.SaveAs.Caption, "Save the truss &as ... (is enabled in Step 2)");
    EXPECT_EQ(menu.Save.Caption, "&Save the  truss");
  }
}

TEST(FileMenu, InStep2AnUntitledTrussCanOnlyBeSavedUnderANewName) {
  const FileMenu menu = FileMenuState(2, Untitled);
  EXPECT_TRUE(menu.SaveAs.Enabled);
  EXPECT_FALSE(menu.Save.Enabled);
  EXPECT_FALSE(menu.PrintEnabled);
  EXPECT_EQ(menu.SaveAs.Caption, "Save the truss &as ...");
  EXPECT_EQ(menu.Save.Caption, "&Save the  truss");
}

TEST(FileMenu, InStep2ANamedTrussCanBeSaved) {
  EXPECT_TRUE(FileMenuState(2, Named).SaveAs.Enabled);
  EXPECT_TRUE(FileMenuState(2, Named).Save.Enabled);
  EXPECT_FALSE(FileMenuState(2, Named).PrintEnabled);
}

TEST(FileMenu, InStep3TheReportCanBePrintedToo) {
  EXPECT_TRUE(FileMenuState(3, Untitled).PrintEnabled);
  EXPECT_TRUE(FileMenuState(3, Untitled).SaveAs.Enabled);
  EXPECT_FALSE(FileMenuState(3, Untitled).Save.Enabled);
  EXPECT_TRUE(FileMenuState(3, Named).Save.Enabled);
  EXPECT_EQ(FileMenuState(3, Named).SaveAs.Caption, "Save the truss &as ...");
  EXPECT_EQ(FileMenuState(3, Named).Save.Caption, "&Save the  truss");
}

TEST(SaveKey, DoesWhatTheMenuOffers) {
  for (const int step : {2, 3}) {
    EXPECT_EQ(SaveKeyCommand(step, Named, false), SaveKey::Save);
    EXPECT_EQ(SaveKeyCommand(step, Untitled, false), SaveKey::SaveAs) << "only Save As is offered";
  }
  for (const char* fileName : {Untitled, Named}) {
    EXPECT_EQ(SaveKeyCommand(1, fileName, false), SaveKey::Refused);
    EXPECT_EQ(SaveKeyCommand(1, fileName, true), SaveKey::Refused);
  }
}

TEST(SaveKey, WhereItIsRefusedTheStatusBarSaysInWhichStepItIsNot) {
  EXPECT_STREQ(SaveRefusedText(false),
               " This is Step 1.  Saving is enabled in Step 2: press Next, then save. ");
  EXPECT_STREQ(SaveRefusedText(true),
               " These are the instructions before Step 1.  Saving is enabled in Step 2. ");
}

TEST(FileMenu, TheStatusBarExplainsTheOpenMenu) {
  EXPECT_STREQ(FileMenuStatusText,
               " Start a new truss, open or save an existing truss, or exit the program ");
}

}  // namespace
