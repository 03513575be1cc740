// Full paths, and paths that lead to one file.
#include "document/FilePaths.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/TemporaryDirectory.h"
#include "support/WorkingDirectory.h"

namespace {

TEST(AbsolutePath, PutsTheWorkingDirectoryInFront) {
  const TemporaryDirectory directory;
  const WorkingDirectory inDirectory(directory / ".");
  EXPECT_EQ(AbsolutePath("a.trs"), directory / "a.trs");
  EXPECT_EQ(AbsolutePath("./a.trs"), directory / "a.trs");
  EXPECT_EQ(AbsolutePath("b/./../a.trs"), directory / "a.trs");
  EXPECT_EQ(AbsolutePath("-"), directory / "-");
}

TEST(AbsolutePath, LeavesAFullPathAsItIs) {
  EXPECT_EQ(AbsolutePath("/home/ada/a b.trs"), "/home/ada/a b.trs");
  EXPECT_EQ(AbsolutePath("/home/ada/\xC3\xA9\xFF.trs"), "/home/ada/\xC3\xA9\xFF.trs");
  EXPECT_EQ(AbsolutePath("/"), "/");
  EXPECT_EQ(AbsolutePath(""), "");
}

TEST(AbsolutePath, TakesDotsAndDoubleSeparatorsOut) {
  EXPECT_EQ(AbsolutePath("/no/./such//folder/../a.trs"), "/no/such/a.trs");
  EXPECT_EQ(AbsolutePath("/../../a.trs"), "/a.trs");
  EXPECT_EQ(AbsolutePath("/a/..trs"), "/a/..trs");
}

TEST(AbsolutePath, KeepsSymbolicLinksAsTheyAreNamed) {
  const TemporaryDirectory directory;
  std::filesystem::create_directories(directory / "one/two");
  std::filesystem::create_directory_symlink(directory / "one/two", directory / "link");
  directory.Put("one/a.trs", "x");
  std::filesystem::create_symlink(directory / "one/a.trs", directory / "a.trs");
  EXPECT_EQ(AbsolutePath(directory / "./a.trs"), directory / "a.trs");
  EXPECT_EQ(AbsolutePath(directory / "link/b.trs"), directory / "link/b.trs");
  const std::string beside = AbsolutePath(directory / "link/../a.trs");
  EXPECT_TRUE(std::filesystem::equivalent(beside, directory / "one/a.trs"))
      << beside << ": out of a link the way leads to where it points";
}

TEST(AbsolutePath, TakesALinkThatLeadsNowhereForAFolder) {
  const TemporaryDirectory directory;
  std::filesystem::create_symlink("missing", directory / "link");
  EXPECT_EQ(AbsolutePath(directory / "link/../a.trs"), directory / "a.trs");
}

TEST(AbsolutePath, SurvivesAWorkingDirectoryThatIsGone) {
  const TemporaryDirectory directory;
  std::filesystem::create_directory(directory / "gone");
  const WorkingDirectory inDirectory(directory / "gone");
  std::filesystem::remove(directory / "gone");
  EXPECT_EQ(AbsolutePath("a.trs"), "a.trs");
}

TEST(FileNameOf, IsWhatStandsBehindTheLastSeparator) {
  EXPECT_EQ(FileNameOf("/home/ada/a b.trs"), "a b.trs");
  EXPECT_EQ(FileNameOf("a.trs"), "a.trs");
  EXPECT_EQ(FileNameOf("/"), "");
}

TEST(LeadToOneFile, FollowsLinks) {
  const TemporaryDirectory directory;
  directory.Put("a.trs", "x");
  directory.Put("b.trs", "x");
  std::filesystem::create_symlink("a.trs", directory / "soft.trs");
  std::filesystem::create_hard_link(directory / "a.trs", directory / "hard.trs");
  EXPECT_TRUE(LeadToOneFile(directory / "a.trs", directory / "a.trs"));
  EXPECT_TRUE(LeadToOneFile(directory / "a.trs", directory / "soft.trs"));
  EXPECT_TRUE(LeadToOneFile(directory / "hard.trs", directory / "a.trs"));
  EXPECT_FALSE(LeadToOneFile(directory / "a.trs", directory / "b.trs"));
  EXPECT_TRUE(LeadToOneFile("/gone.trs", "/gone.trs"));
  EXPECT_FALSE(LeadToOneFile("/gone.trs", "/lost.trs"));
}

TEST(PathOfAddress, IsThePathWithItsEscapesTakenOut) {
  EXPECT_EQ(PathOfAddress("file:///home/ann/a.trs"), "/home/ann/a.trs");
  EXPECT_EQ(PathOfAddress("file://localhost/a.trs"), "/a.trs");
  EXPECT_EQ(PathOfAddress("file:/a.trs"), "/a.trs");
  EXPECT_EQ(PathOfAddress("file:///a%20b/%C3%A4.trs"), "/a b/\xC3\xA4.trs");
  EXPECT_EQ(PathOfAddress("file:///a%2525"), "/a%25") << "each escape once";
}

TEST(PathOfAddress, KeepsWhatIsNoEscape) {
  EXPECT_EQ(PathOfAddress("file:///100%"), "/100%");
  EXPECT_EQ(PathOfAddress("file:///%zz%4"), "/%zz%4");
  EXPECT_EQ(PathOfAddress("file:///%4g%g4"), "/%4g%g4");
  EXPECT_EQ(PathOfAddress("file:///a%00b"), "/a%00b") << "no path holds a zero byte";
}

TEST(PathOfAddress, KeepsWhatIsAPathAlready) {
  for (const char* path : {"", "-", "a.trs", "/home/ann/100%25.trs", "file.trs", "file", "http://host/a.trs",
                           "file://elsewhere/a.trs"}) {
    EXPECT_EQ(PathOfAddress(path), path);
  }
}

}  // namespace
