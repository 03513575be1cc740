// Which copy is taken for the one that an interrupted save has left.
#include "document/SideCopy.h"

#include <unistd.h>

#include <filesystem>

#include "support/AnotherProcess.h"
#include "support/TemporaryDirectory.h"

namespace fs = std::filesystem;
using testing::ElementsAre;

TEST(SideCopy, OfARunningSaveIsNoLeftOne) {
  const TemporaryDirectory directory;
  const std::string path = directory.Put("a", "old");
  SideCopy copy(path, "old");
  directory.Put("a", "half");
  EXPECT_EQ(InAnotherProcess([&] { return LeftCopyOf(path); }), "");
  EXPECT_TRUE(copy.Remove());
  EXPECT_THAT(directory.Names(), ElementsAre("a"));
}

TEST(SideCopy, ThatHoldsWhatTheFileHoldsIsRemovedWithoutAWord) {
  const TemporaryDirectory directory;
  const std::string path = directory.Put("a", "old");
  { const SideCopy copy(path, "old"); }
  EXPECT_EQ(directory.Names().size(), 2U);
  EXPECT_EQ(LeftCopyOf(path), "");
  EXPECT_THAT(directory.Names(), ElementsAre("a"));
}

TEST(SideCopy, IsNotTakenFromSomebodyElse) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can become another user";
  const TemporaryDirectory directory;
  const std::string path = directory.Put("a", "old");
  { const SideCopy copy(path, "planted"); }
  const std::string planted = LeftCopyOf(path);
  fs::permissions(planted, fs::perms(0644));
  fs::permissions(directory / "", fs::perms(0777));
  EXPECT_EQ(InAnotherProcess([&]() -> std::string {
              if (seteuid(Nobody) != 0) return "this test could not become another user";
              return LeftCopyOf(path);
            }),
            "");
  fs::remove(planted);
  fs::create_symlink(directory.Put("trap", "planted"), planted);
  EXPECT_EQ(LeftCopyOf(path), "") << "nor is a link followed";
}

TEST(SideCopy, OfAFileWithTheLongestNameThatThereIs) {
  const TemporaryDirectory directory;
  std::string name(251, 'n');
  name += ".trs";
  const std::string path = directory.Put(name, "old");
  const SideCopy copy(path, "old");
  EXPECT_TRUE(copy.Path().ends_with("n.trs"));
  EXPECT_EQ(copy.Path().find(directory / ""), 0U);
}
