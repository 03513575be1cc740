// Whole files: what is read, and that a failed write leaves the old file as it was.
#include "document/FileBytes.h"

#include <filesystem>
#include <fstream>
#include <sstream>

#include "support/TemporaryDirectory.h"

#ifdef __linux__
#include <sys/resource.h>

#include <csignal>
#endif

namespace fs = std::filesystem;
using testing::ElementsAre;

TEST(ReadWholeFile, GivesAllBytes) {
  const TemporaryDirectory directory;
  std::string bytes = "a\r\n\n\r";
  for (int i = 0; i < 200000; ++i) bytes += static_cast<char>(static_cast<unsigned char>(i % 256));
  const FileBytes read = ReadWholeFile(directory.Put("a", bytes));
  EXPECT_EQ(read.Problem, "");
  EXPECT_TRUE(read.Bytes == bytes);
}

TEST(ReadWholeFile, AnEmptyFileIsNoProblem) {
  const TemporaryDirectory directory;
  const FileBytes read = ReadWholeFile(directory.Put("a", ""));
  EXPECT_EQ(read.Problem, "");
  EXPECT_EQ(read.Bytes, "");
}

TEST(ReadWholeFile, TellsWhyItCannotRead) {
  const TemporaryDirectory directory;
  EXPECT_EQ(ReadWholeFile(directory / "missing").Problem, "the file cannot be opened for reading");
  EXPECT_EQ(ReadWholeFile(directory / "").Problem, "it is a directory, not a file");
  EXPECT_EQ(ReadWholeFile("").Problem, "the file cannot be opened for reading");
}

TEST(ReadWholeFile, TakesAPathBeyondAscii) {
  const TemporaryDirectory directory;
  EXPECT_TRUE(WriteWholeFile(directory / "Fachwerk Größe 日本.trs", "text"));
  EXPECT_EQ(ReadWholeFile(directory / "Fachwerk Größe 日本.trs").Bytes, "text");
  EXPECT_TRUE(FileExists(directory / "Fachwerk Größe 日本.trs"));
}

TEST(ReadWholeStream, ReadsToTheEnd) {
  std::istringstream stream("a\nb");
  EXPECT_EQ(ReadWholeStream(stream).Bytes, "a\nb");
}

TEST(FileExists, IsTrueForWhatCanBeOpened) {
  const TemporaryDirectory directory;
  EXPECT_TRUE(FileExists(directory.Put("a", "")));
  EXPECT_FALSE(FileExists(directory / "missing"));
  EXPECT_FALSE(FileExists(directory / ""));
  EXPECT_FALSE(FileExists(""));
}

TEST(WriteWholeFile, CreatesAFileAndNothingElse) {
  const TemporaryDirectory directory;
  EXPECT_TRUE(WriteWholeFile(directory / "a", std::string("x\0\r\n", 4)));
  EXPECT_EQ(directory.Bytes("a"), std::string("x\0\r\n", 4));
  EXPECT_THAT(directory.Names(), ElementsAre("a"));
}

TEST(WriteWholeFile, ReplacesTheWholeContent) {
  const TemporaryDirectory directory;
  EXPECT_TRUE(WriteWholeFile(directory.Put("a", "a long text that stood there"), "short"));
  EXPECT_EQ(directory.Bytes("a"), "short");
  EXPECT_TRUE(WriteWholeFile(directory / "a", ""));
  EXPECT_EQ(directory.Bytes("a"), "");
  EXPECT_THAT(directory.Names(), ElementsAre("a"));
}

TEST(WriteWholeFile, LeavesAloneWhatHasTheNameOfItsWorkFile) {
  const TemporaryDirectory directory;
  directory.Put("a.new1", "somebody else's");
  EXPECT_TRUE(WriteWholeFile(directory / "a", "text"));
  EXPECT_EQ(directory.Bytes("a"), "text");
  EXPECT_EQ(directory.Bytes("a.new1"), "somebody else's");
  EXPECT_THAT(directory.Names(), ElementsAre("a", "a.new1"));
}

TEST(WriteWholeFile, WritesAFileWithTheLongestNameThatThereIs) {
  const TemporaryDirectory directory;
  const std::string name(255, 'n');
  EXPECT_TRUE(WriteWholeFile(directory / name, "old"));
  EXPECT_TRUE(WriteWholeFile(directory / name, "new"));
  EXPECT_EQ(directory.Bytes(name), "new");
  EXPECT_THAT(directory.Names(), ElementsAre(name));
}

TEST(WriteWholeFile, RefusesAFileWithoutWritePermission) {
  const TemporaryDirectory directory;
  const std::string path = directory.Put("a", "old");
  fs::permissions(path, fs::perms::owner_read | fs::perms::group_read);
  EXPECT_FALSE(WriteWholeFile(path, "new"));
  EXPECT_EQ(directory.Bytes("a"), "old");
  EXPECT_THAT(directory.Names(), ElementsAre("a"));
}

TEST(WriteWholeFile, RefusesADirectory) {
  const TemporaryDirectory directory;
  fs::create_directory(directory / "inner");
  EXPECT_FALSE(WriteWholeFile(directory / "inner", "new"));
  EXPECT_TRUE(fs::is_directory(directory / "inner"));
  EXPECT_THAT(directory.Names(), ElementsAre("inner"));
}

TEST(WriteWholeFile, RefusesADirectoryThatDoesNotExist) {
  const TemporaryDirectory directory;
  EXPECT_FALSE(WriteWholeFile(directory / "missing/a", "new"));
  EXPECT_FALSE(WriteWholeFile("", "new"));
  EXPECT_THAT(directory.Names(), ElementsAre());
}

#ifdef __linux__

TEST(WriteWholeFile, WhoStillReadsTheOldFileSeesItWhole) {
  const TemporaryDirectory directory;
  std::ifstream reader(directory.Put("a", "old"), std::ios::binary);
  EXPECT_TRUE(WriteWholeFile(directory / "a", "new"));
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(reader), {}), "old");
}

TEST(WriteWholeFile, KeepsThePermissions) {
  const TemporaryDirectory directory;
  const std::string path = directory.Put("a", "old");
  const auto permissions = fs::perms::owner_read | fs::perms::owner_write | fs::perms::others_exec;
  fs::permissions(path, permissions);
  EXPECT_TRUE(WriteWholeFile(path, "new"));
  EXPECT_EQ(fs::status(path).permissions(), permissions);
}

TEST(WriteWholeFile, FollowsSymbolicLinks) {
  const TemporaryDirectory directory;
  fs::create_directory(directory / "inner");
  directory.Put("inner/a", "old");
  fs::create_symlink("inner/a", directory / "link");
  fs::create_symlink("link", directory / "link to link");
  EXPECT_TRUE(WriteWholeFile(directory / "link to link", "new"));
  EXPECT_EQ(directory.Bytes("inner/a"), "new");
  EXPECT_TRUE(fs::is_symlink(directory / "link"));
  EXPECT_TRUE(fs::is_symlink(directory / "link to link"));
  EXPECT_THAT(directory.Names(), ElementsAre("inner", "link", "link to link"));
}

TEST(WriteWholeFile, CreatesTheFileThatALinkPointsTo) {
  const TemporaryDirectory directory;
  fs::create_symlink("a", directory / "link");
  EXPECT_TRUE(WriteWholeFile(directory / "link", "new"));
  EXPECT_EQ(directory.Bytes("a"), "new");
  EXPECT_TRUE(fs::is_symlink(directory / "link"));
}

TEST(WriteWholeFile, RefusesLinksThatGoRound) {
  const TemporaryDirectory directory;
  fs::create_symlink("b", directory / "a");
  fs::create_symlink("a", directory / "b");
  EXPECT_FALSE(WriteWholeFile(directory / "a", "new"));
  EXPECT_TRUE(fs::is_symlink(directory / "a"));
}

TEST(WriteWholeFile, WritesIntoADeviceWithoutReplacingIt) {
  const TemporaryDirectory directory;
  fs::create_symlink("/dev/null", directory / "link");
  EXPECT_TRUE(WriteWholeFile(directory / "link", "gone"));
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST(WriteWholeFile, TellsWhenTheDeviceIsFull) { EXPECT_FALSE(WriteWholeFile("/dev/full", "new")); }

TEST(WriteWholeFile, AWriteThatFailsHalfwayLeavesTheOldFileAndNoOther) {
  const TemporaryDirectory directory;
  const std::string path = directory.Put("a", "old");
  const std::string large(100000, 'x');

  rlimit limit{};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &limit), 0);
  const rlimit small{1000, limit.rlim_max};
  const auto before = std::signal(SIGXFSZ, SIG_IGN);
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
  const bool written = WriteWholeFile(path, large);
  const bool created = WriteWholeFile(directory / "b", large);
  setrlimit(RLIMIT_FSIZE, &limit);
  std::signal(SIGXFSZ, before);

  EXPECT_FALSE(written);
  EXPECT_FALSE(created);
  EXPECT_EQ(directory.Bytes("a"), "old");
  EXPECT_THAT(directory.Names(), ElementsAre("a"));
}

#endif
