// The four recent files: their order, what is shown, and what is stored.
#include "document/RecentFiles.h"

#include "support/MemorySettingsStore.h"

namespace {

using testing::ElementsAre;

std::vector<std::string> Captions(const RecentFiles& files) {
  return {files.Caption(1), files.Caption(2), files.Caption(3), files.Caption(4)};
}

// Which of the separator and the four entries are shown.
std::vector<bool> Shown(const RecentFiles& files) {
  return {files.IsShown(0), files.IsShown(1), files.IsShown(2), files.IsShown(3), files.IsShown(4)};
}

class RecentFilesTest : public testing::Test {
 protected:
  RecentFilesTest() : files_(store_) {}

  void Fill(const std::vector<std::string>& paths) {
    for (auto path = paths.rbegin(); path != paths.rend(); ++path) files_.AddRecent(*path);
  }

  MemorySettingsStore store_;
  RecentFiles files_;
};

}  // namespace

TEST_F(RecentFilesTest, AFirstFileShowsTheSeparatorAndEntryOne) {
  files_.Load();
  EXPECT_THAT(Shown(files_), ElementsAre(false, false, false, false, false));
  files_.AddRecent("a");
  EXPECT_THAT(Captions(files_), ElementsAre("a", "", "", ""));
  EXPECT_THAT(Shown(files_), ElementsAre(true, true, false, false, false));
}

TEST_F(RecentFilesTest, ANewPathPushesTheOthersDown) {
  Fill({"c", "b", "a"});
  EXPECT_THAT(Captions(files_), ElementsAre("c", "b", "a", ""));
  EXPECT_THAT(Shown(files_), ElementsAre(true, true, true, true, false));
}

TEST_F(RecentFilesTest, AFifthPathDropsTheOldest) {
  Fill({"e", "d", "c", "b", "a"});
  EXPECT_THAT(Captions(files_), ElementsAre("e", "d", "c", "b"));
}

TEST_F(RecentFilesTest, EntryFourComesToTheHead) {
  Fill({"a", "b", "c", "d"});
  files_.AddRecent("d");
  EXPECT_THAT(Captions(files_), ElementsAre("d", "a", "b", "c"));
}

TEST_F(RecentFilesTest, EntryThreeComesToTheHeadAndEntryFourStays) {
  Fill({"a", "b", "c", "d"});
  files_.AddRecent("c");
  EXPECT_THAT(Captions(files_), ElementsAre("c", "a", "b", "d"));
}

TEST_F(RecentFilesTest, EntryTwoComesToTheHead) {
  Fill({"a", "b", "c", "d"});
  files_.AddRecent("b");
  EXPECT_THAT(Captions(files_), ElementsAre("b", "a", "c", "d"));
}

TEST_F(RecentFilesTest, EntryOneStays) {
  Fill({"a", "b", "c", "d"});
  files_.AddRecent("a");
  EXPECT_THAT(Captions(files_), ElementsAre("a", "b", "c", "d"));
}

TEST_F(RecentFilesTest, LetterCaseTellsPathsApart) {
  Fill({"/A.trs", "/a.trs"});
  EXPECT_THAT(Captions(files_), ElementsAre("/A.trs", "/a.trs", "", ""));
}

TEST_F(RecentFilesTest, AreStoredUnderTheirFourKeys) {
  Fill({"b", "a"});
  EXPECT_THAT(store_.Texts, ElementsAre(std::pair("Orvane/Recent Files/RecentFile1", "b"),
                                        std::pair("Orvane/Recent Files/RecentFile2", "a"),
                                        std::pair("Orvane/Recent Files/RecentFile3", ""),
                                        std::pair("Orvane/Recent Files/RecentFile4", "")));
}

TEST_F(RecentFilesTest, AreLoadedAtStartUpWithEmptyEntriesHidden) {
  Fill({"b", "a"});
  RecentFiles later(store_);
  EXPECT_THAT(Captions(later), ElementsAre("", "", "", ""));
  later.Load();
  EXPECT_THAT(Captions(later), ElementsAre("b", "a", "", ""));
  EXPECT_THAT(Shown(later), ElementsAre(true, true, true, false, false));
}

TEST_F(RecentFilesTest, APathThatNoStoreGivesBackAsItIsIsLeftOut) {
  Fill({"b", "a"});
  files_.AddRecent("/home/\xE4.trs");
  EXPECT_THAT(Captions(files_), ElementsAre("b", "a", "", ""));
  files_.AddRecent("/home/\xC3\xA4.trs");
  EXPECT_THAT(Captions(files_), ElementsAre("/home/\xC3\xA4.trs", "b", "a", ""));
}

TEST_F(RecentFilesTest, AddingStartsFromWhatIsStored) {
  Fill({"b", "a"});
  RecentFiles other(store_);
  other.AddRecent("c");
  files_.AddRecent("a");
  EXPECT_THAT(Captions(files_), ElementsAre("a", "c", "b", ""));
}
