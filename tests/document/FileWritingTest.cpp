// Whole files: that a failed write leaves the old file as it was, and what a written one keeps of it.
#include "document/FileWriting.h"

#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>

#include "document/FileBeside.h"
#include "document/SideCopy.h"
#include "support/AnotherProcess.h"
#include "support/TemporaryDirectory.h"

namespace fs = std::filesystem;
using testing::ElementsAre;

namespace {

// Which of the next calls of fsync tells that the disk has failed, and at which the process ends as a killed
// one does: 1 the next one, 0 none.
int failingSync = 0;
int killingSync = 0;
int numSyncs = 0;

}  // namespace

// Takes the place of the system's own in this program.
extern "C" int fsync(int file) {
  ++numSyncs;
  if (killingSync > 0 && --killingSync == 0) _exit(0);
  if (failingSync > 0 && --failingSync == 0) {
    errno = EIO;
    return -1;
  }
  return static_cast<int>(syscall(SYS_fsync, file));
}

namespace {

constexpr const char* NotWritten = "it is a pipe or a device, not a file";
constexpr const char* NoPermission = "there is no permission to write it";
constexpr const char* TooLarge = "the file would be larger than the system allows";
constexpr const char* AccessList = "system.posix_acl_access";

struct stat StatusOf(const std::string& path) {
  struct stat status {};
  EXPECT_EQ(stat(path.c_str(), &status), 0) << path;
  return status;
}

mode_t ModeOf(const std::string& path) { return StatusOf(path).st_mode & 07777; }

std::optional<std::string> Attribute(const std::string& path, const char* name) {
  std::string value(1000, '\0');
  const ssize_t size = getxattr(path.c_str(), name, value.data(), value.size());
  if (size < 0) return std::nullopt;
  value.resize(static_cast<std::size_t>(size));
  return value;
}

bool SetAttribute(const std::string& path, const char* name, const std::string& value) {
  return setxattr(path.c_str(), name, value.data(), value.size(), 0) == 0;
}

// As the system stores an access list: the owner, the user with this number, the group, the mask and all
// others.
std::string AccessListWith(std::uint32_t user) {
  std::string list("\x02\0\0\0", 4);
  const auto add = [&list](char tag, char permissions, std::uint32_t who) {
    list += std::string{tag, '\0', permissions, '\0'};
    for (int byte = 0; byte < 4; ++byte) list += static_cast<char>(who >> (8 * byte) & 0xFF);
  };
  constexpr std::uint32_t noOne = 0xFFFFFFFF;
  add(0x01, 6, noOne);
  add(0x02, 6, user);
  add(0x04, 4, noOne);
  add(0x10, 6, noOne);
  add(0x20, 0, noOne);
  return list;
}

// No file of this process grows beyond so many bytes, as if the disk were full.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) {
    EXPECT_EQ(getrlimit(RLIMIT_FSIZE, &before_), 0);
    const rlimit small{bytes, before_.rlim_max};
    EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;
  ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &before_); }

 private:
  rlimit before_{};
};

std::string WriteLimited(const std::string& path, const std::string& bytes, rlim_t limit) {
  const FileSizeLimit small(limit);
  return WriteWholeFile(path, bytes);
}

// What writing says for a user who may write the files of this folder but create none there. Permissions mean
// nothing to root, who becomes another user for it.
std::string WriteWhereNothingCanBeCreated(const TemporaryDirectory& directory, const std::string& path,
                                          const std::string& bytes, rlim_t limit = RLIM_INFINITY) {
  fs::permissions(directory / "", fs::perms(0555));
  const std::string why = InAnotherProcess([&]() -> std::string {
    if (geteuid() == 0 && seteuid(Nobody) != 0) return "this test could not become another user";
    return WriteLimited(path, bytes, limit);
  });
  fs::permissions(directory / "", fs::perms(0755));
  return why;
}

}  // namespace

TEST(WriteWholeFile, CreatesAFileAndNothingElse) {
  const TemporaryDirectory directory;
  EXPECT_EQ(WriteWholeFile(directory / "a", std::string("x\0\r\n", 4)), "");
  EXPECT_EQ(directory.Bytes("a"), std::string("x\0\r\n", 4));
  EXPECT_THAT(directory.Names(), ElementsAre("a"));
}

TEST(WriteWholeFile, ReplacesTheWholeContent) {
  const TemporaryDirectory directory;
  EXPECT_EQ(WriteWholeFile(directory.Put("a", "a long text that stood there"), "short"), "");
  EXPECT_EQ(directory.Bytes("a"), "short");
  EXPECT_EQ(WriteWholeFile(directory / "a", ""), "");
  EXPECT_EQ(directory.Bytes("a"), "");
  EXPECT_THAT(directory.Names(), ElementsAre("a"));
}

TEST(WriteWholeFile, TakesAPathBeyondAscii) {
  const TemporaryDirectory directory;
  EXPECT_EQ(WriteWholeFile(directory / "Fachwerk Größe 日本.trs", "text"), "");
  EXPECT_EQ(directory.Bytes("Fachwerk Größe 日本.trs"), "text");
}

TEST(WriteWholeFile, GivesANewFileWhatNewFilesHaveHere) {
  const TemporaryDirectory directory;
  for (const mode_t mask : {0022U, 0077U, 0000U}) {
    const mode_t before = umask(mask);
    directory.Put("plain", "");
    EXPECT_EQ(WriteWholeFile(directory / "new", "text"), "");
    umask(before);
    EXPECT_EQ(ModeOf(directory / "new"), ModeOf(directory / "plain")) << mask;
    fs::remove(directory / "new");
    fs::remove(directory / "plain");
  }
}

TEST(WriteWholeFile, WritesAFileWithTheLongestNameThatThereIs) {
  const TemporaryDirectory directory;
  const std::string name(255, 'n');
  EXPECT_EQ(WriteWholeFile(directory / name, "old"), "");
  EXPECT_EQ(WriteWholeFile(directory / name, "new"), "");
  EXPECT_EQ(directory.Bytes(name), "new");
  EXPECT_THAT(directory.Names(), ElementsAre(name));
}

TEST(WriteWholeFile, RefusesAFileWithoutWritePermission) {
  const TemporaryDirectory directory;
  const std::string path = directory.Put("a", "old");
  fs::permissions(path, fs::perms::owner_read | fs::perms::group_read);
  EXPECT_EQ(WriteWholeFile(path, "new"), NoPermission);
  EXPECT_EQ(directory.Bytes("a"), "old");
  EXPECT_THAT(directory.Names(), ElementsAre("a"));
}

TEST(WriteWholeFile, RefusesADirectory) {
  const TemporaryDirectory directory;
  fs::create_directory(directory / "inner");
  EXPECT_EQ(WriteWholeFile(directory / "inner", "new"), "it is a directory, not a file");
  EXPECT_TRUE(fs::is_directory(directory / "inner"));
  EXPECT_THAT(directory.Names(), ElementsAre("inner"));
}

TEST(WriteWholeFile, RefusesADirectoryThatDoesNotExist) {
  const TemporaryDirectory directory;
  EXPECT_EQ(WriteWholeFile(directory / "missing/a", "new"), "its folder does not exist");
  EXPECT_EQ(WriteWholeFile(directory.Put("a", "") + "/b", "new"), "a part of its path is not a folder");
  EXPECT_NE(WriteWholeFile("", "new"), "");
  EXPECT_THAT(directory.Names(), ElementsAre("a"));
}

TEST(WriteWholeFile, RefusesANameThatIsTooLong) {
  const TemporaryDirectory directory;
  EXPECT_EQ(WriteWholeFile(directory / std::string(256, 'n'), "new"), "its name is too long");
  EXPECT_THAT(directory.Names(), ElementsAre());
}

TEST(WriteWholeFile, WhoStillReadsTheOldFileSeesItWhole) {
  const TemporaryDirectory directory;
  std::ifstream reader(directory.Put("a", "old"), std::ios::binary);
  EXPECT_EQ(WriteWholeFile(directory / "a", "new"), "");
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(reader), {}), "old");
}

TEST(WriteWholeFile, KeepsThePermissions) {
  const TemporaryDirectory directory;
  const std::string path = directory.Put("a", "old");
  const auto permissions = fs::perms::owner_read | fs::perms::owner_write | fs::perms::others_exec;
  fs::permissions(path, permissions);
  EXPECT_EQ(WriteWholeFile(path, "new"), "");
  EXPECT_EQ(fs::status(path).permissions(), permissions);
}

TEST(WriteWholeFile, FollowsSymbolicLinks) {
  const TemporaryDirectory directory;
  fs::create_directory(directory / "inner");
  directory.Put("inner/a", "old");
  fs::create_symlink("inner/a", directory / "link");
  fs::create_symlink("link", directory / "link to link");
  EXPECT_EQ(WriteWholeFile(directory / "link to link", "new"), "");
  EXPECT_EQ(directory.Bytes("inner/a"), "new");
  EXPECT_TRUE(fs::is_symlink(directory / "link"));
  EXPECT_TRUE(fs::is_symlink(directory / "link to link"));
  EXPECT_THAT(directory.Names(), ElementsAre("inner", "link", "link to link"));
}

TEST(WriteWholeFile, CreatesTheFileThatALinkPointsTo) {
  const TemporaryDirectory directory;
  fs::create_symlink("a", directory / "link");
  EXPECT_EQ(WriteWholeFile(directory / "link", "new"), "");
  EXPECT_EQ(directory.Bytes("a"), "new");
  EXPECT_TRUE(fs::is_symlink(directory / "link"));
}

TEST(WriteWholeFile, RefusesLinksThatGoRound) {
  const TemporaryDirectory directory;
  fs::create_symlink("b", directory / "a");
  fs::create_symlink("a", directory / "b");
  EXPECT_EQ(WriteWholeFile(directory / "a", "new"), "its symbolic links go round");
  EXPECT_TRUE(fs::is_symlink(directory / "a"));
}

// A pipe without a reader would keep the writer waiting for ever.
TEST(WriteWholeFile, RefusesPipesAndDevicesAtOnce) {
  const TemporaryDirectory directory;
  ASSERT_EQ(mkfifo((directory / "pipe").c_str(), 0600), 0);
  EXPECT_EQ(WriteWholeFile(directory / "pipe", "text"), NotWritten);
  EXPECT_EQ(WriteWholeFile("/dev/null", "text"), NotWritten);
}

TEST(WriteWholeFile, WritesIntoADeviceWhenItMay) {
  const TemporaryDirectory directory;
  fs::create_symlink("/dev/null", directory / "link");
  EXPECT_EQ(WriteWholeFile(directory / "link", "gone", PipesAndDevices::Taken), "");
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
  EXPECT_EQ(WriteWholeFile("/dev/full", "new", PipesAndDevices::Taken), "there is no space left on the disk");
}

// --- a write that fails

TEST(WriteWholeFile, AWriteThatFailsHalfwayLeavesTheOldFileAndNoOther) {
  const TemporaryDirectory directory;
  const std::string large(100000, 'x');
  EXPECT_EQ(WriteLimited(directory.Put("a", "old"), large, 1000), TooLarge);
  EXPECT_EQ(WriteLimited(directory / "b", large, 1000), TooLarge);
  EXPECT_EQ(directory.Bytes("a"), "old");
  EXPECT_THAT(directory.Names(), ElementsAre("a"));
}

// The system answers a file that grows too large with a signal whose usual effect is the end of the process.
TEST(WriteWholeFile, AFileThatGrowsTooLargeDoesNotEndTheProgram) {
  const TemporaryDirectory directory;
  EXPECT_EQ(InAnotherProcess([&] {
              std::signal(SIGXFSZ, SIG_DFL);
              const std::string why = WriteLimited(directory / "a", std::string(100000, 'x'), 1000);
              sigset_t pending{};
              sigpending(&pending);
              return sigismember(&pending, SIGXFSZ) == 0 ? why : "the signal is still to come";
            }),
            TooLarge);
  EXPECT_THAT(directory.Names(), ElementsAre());
}

// --- what a killed save leaves, and what belongs to others

TEST(WriteWholeFile, RemovesWhatAKilledSaveLeft) {
  const TemporaryDirectory directory;
  InAnotherProcess([&] {
    const FileBeside first(directory / "", 0600);
    const FileBeside second(directory / "", 0600);
    std::size_t written = 0;
    first.File().Write("half", written);
    _exit(0);
    return "";
  });
  ASSERT_THAT(directory.Names(), ElementsAre(".orvane-save-1", ".orvane-save-2"));
  EXPECT_EQ(ModeOf(directory / ".orvane-save-1"), 0600U);
  EXPECT_EQ(WriteWholeFile(directory / "a", "text"), "");
  EXPECT_EQ(directory.Bytes("a"), "text");
  EXPECT_THAT(directory.Names(), ElementsAre("a"));
}

TEST(WriteWholeFile, LeavesTheFileOfARunningSaveAlone) {
  const TemporaryDirectory directory;
  FileBeside running(directory / "", 0600);
  std::size_t written = 0;
  running.File().Write("hers", written);
  EXPECT_EQ(WriteWholeFile(directory / "a", "mine"), "");
  EXPECT_EQ(InAnotherProcess([&] { return WriteWholeFile(directory / "b", "mine, too"); }), "");
  EXPECT_EQ(running.TakePlaceOf(directory / "c"), 0);
  EXPECT_EQ(directory.Bytes("c"), "hers");
  EXPECT_THAT(directory.Names(), ElementsAre("a", "b", "c"));
}

TEST(WriteWholeFile, LeavesAloneWhatOnlyHasTheNameOfASave) {
  const TemporaryDirectory directory;
  directory.Put("mine", "mine");
  fs::create_hard_link(directory / "mine", directory / ".orvane-save-1");
  fs::create_symlink("mine", directory / ".orvane-save-2");
  ASSERT_EQ(mkfifo((directory / ".orvane-save-3").c_str(), 0600), 0);
  fs::create_directory(directory / ".orvane-save-4");
  EXPECT_EQ(WriteWholeFile(directory / "a", "text"), "");
  EXPECT_EQ(directory.Bytes("mine"), "mine");
  EXPECT_THAT(directory.Names(), ElementsAre(".orvane-save-1", ".orvane-save-2", ".orvane-save-3",
                                             ".orvane-save-4", "a", "mine"));
}

// --- what a file keeps

TEST(WriteWholeFile, KeepsOwnerAndGroup) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can give a file to another user";
  const TemporaryDirectory directory;
  const std::string path = directory.Put("a", "old");
  ASSERT_EQ(chown(path.c_str(), 1234, 2345), 0);
  ASSERT_EQ(chmod(path.c_str(), 02640), 0);
  EXPECT_EQ(WriteWholeFile(path, "new"), "");
  EXPECT_EQ(StatusOf(path).st_uid, 1234U);
  EXPECT_EQ(StatusOf(path).st_gid, 2345U);
  EXPECT_EQ(ModeOf(path), 02640U);
}

// A file that cannot be given to its owner again is written in place.
TEST(WriteWholeFile, LeavesTheFileOfAnotherUserHis) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can become two other users";
  const TemporaryDirectory directory;
  const std::string path = directory.Put("a", "old");
  ASSERT_EQ(chown(path.c_str(), 1234, 2345), 0);
  ASSERT_EQ(chmod(path.c_str(), 0666), 0);
  fs::permissions(directory / "", fs::perms(0777));
  EXPECT_EQ(InAnotherProcess([&]() -> std::string {
              if (seteuid(Nobody) != 0) return "this test could not become another user";
              return WriteWholeFile(path, "new");
            }),
            "");
  EXPECT_EQ(directory.Bytes("a"), "new");
  EXPECT_EQ(StatusOf(path).st_uid, 1234U);
  EXPECT_EQ(StatusOf(path).st_gid, 2345U);
  EXPECT_THAT(directory.Names(), ElementsAre("a"));
}

TEST(WriteWholeFile, KeepsExtendedAttributes) {
  const TemporaryDirectory directory;
  const std::string path = directory.Put("a", "old");
  if (!SetAttribute(path, "user.mark", std::string("9\0of 10", 7)) || !SetAttribute(path, "user.none", "")) {
    GTEST_SKIP() << "this file system has no extended attributes";
  }
  EXPECT_EQ(WriteWholeFile(path, "new"), "");
  EXPECT_EQ(Attribute(path, "user.mark"), std::string("9\0of 10", 7));
  EXPECT_EQ(Attribute(path, "user.none"), "");
}

TEST(WriteWholeFile, KeepsTheAccessList) {
  const TemporaryDirectory directory;
  const std::string path = directory.Put("a", "old");
  if (!SetAttribute(path, AccessList, AccessListWith(1234))) {
    GTEST_SKIP() << "this file system has no access lists";
  }
  EXPECT_EQ(WriteWholeFile(path, "new"), "");
  EXPECT_EQ(Attribute(path, AccessList), AccessListWith(1234));
}

TEST(WriteWholeFile, LetsNobodyInWhomTheOldFileKeptOut) {
  const TemporaryDirectory directory;
  const std::string path = directory.Put("a", "old");
  fs::permissions(path, fs::perms(0640));
  if (!SetAttribute(directory / "", "system.posix_acl_default", AccessListWith(1234))) {
    GTEST_SKIP() << "this file system has no access lists";
  }
  EXPECT_EQ(WriteWholeFile(path, "new"), "");
  EXPECT_EQ(Attribute(path, AccessList), std::nullopt);
  EXPECT_EQ(ModeOf(path), 0640U);
  EXPECT_EQ(WriteWholeFile(directory / "b", "new"), "");
  EXPECT_EQ(Attribute(directory / "b", AccessList), AccessListWith(1234))
      << "a new file gets what its folder gives";
}

// --- written in place

TEST(WriteWholeFile, AFileWithSeveralNamesKeepsThemAll) {
  const TemporaryDirectory directory;
  fs::create_hard_link(directory.Put("a", "a long text that stood there"), directory / "b");
  for (const char* text : {"new", "a longer text than the one that stood there", ""}) {
    EXPECT_EQ(WriteWholeFile(directory / "b", text), "");
    EXPECT_EQ(directory.Bytes("a"), text);
  }
  EXPECT_EQ(fs::hard_link_count(directory / "a"), 2U);
  EXPECT_THAT(directory.Names(), ElementsAre("a", "b"));
}

TEST(WriteWholeFile, AFileWithSeveralNamesGetsItsOldBytesBackWhenWritingFails) {
  const TemporaryDirectory directory;
  const std::string large(100000, 'x');
  for (const std::string& old :
       {std::string("old"), std::string(1000, 'o'), std::string(2500, 'o'), std::string()}) {
    fs::create_hard_link(directory.Put("a", old), directory / "b");
    EXPECT_EQ(WriteLimited(directory / "b", large, 1000), TooLarge);
    EXPECT_TRUE(directory.Bytes("a") == old) << old.size();
    fs::remove(directory / "b");
  }
}

TEST(WriteWholeFile, AFileWithSeveralNamesIsTheOldOneOrTheNewOneWhenTheDiskFails) {
  const std::string changed(218, 'n');
  for (const std::string& old : {std::string(709, 'o'), std::string("o"), std::string()}) {
    bool failed = false;
    int syncs = 1;
    for (int sync = 1; sync <= syncs; ++sync) {
      const TemporaryDirectory directory;
      fs::create_hard_link(directory.Put("a", old), directory / "b");
      failingSync = sync;
      numSyncs = 0;
      const std::string why = WriteWholeFile(directory / "b", changed);
      syncs = std::max(syncs, numSyncs);
      failingSync = 0;
      EXPECT_TRUE(directory.Bytes("a") == (why.empty() ? changed : old)) << sync << ", " << old.size();
      EXPECT_THAT(directory.Names(), ElementsAre("a", "b")) << sync;
      failed = failed || !why.empty();
    }
    EXPECT_TRUE(failed) << old.size();
  }
}

// Whenever it is killed, the old file or the new one still stands whole somewhere; and the next save does not
// write over the only copy of it.
TEST(WriteWholeFile, ASaveInPlaceThatIsKilledLosesNeitherTheOldFileNorTheNewOne) {
  const std::string old(709, 'o');
  const std::string changed(218, 'n');
  bool left = false;
  for (int sync = 1; sync < 20; ++sync) {
    const TemporaryDirectory directory;
    const std::string path = directory / "b.trs";
    fs::create_hard_link(directory.Put("a", old), path);
    const bool ended = InAnotherProcess([&]() -> std::string {
                         killingSync = sync;
                         return WriteWholeFile(path, changed) + "ended";
                       }) == "ended";
    const std::string copy = LeftCopyOf(path);
    const bool isWhole = directory.Bytes("a") == old || directory.Bytes("a") == changed;
    EXPECT_TRUE(isWhole || !copy.empty()) << sync;
    if (!copy.empty()) {
      left = true;
      EXPECT_TRUE(copy.ends_with("b.trs")) << copy;
      EXPECT_EQ(ModeOf(copy), 0600U);
      EXPECT_THAT(WriteWholeFile(path, "another"), testing::HasSubstr("is kept in " + copy));
      EXPECT_EQ(PutLeftCopyBack(path), "");
      EXPECT_TRUE(directory.Bytes("a") == old);
      EXPECT_EQ(LeftCopyOf(path), "");
    }
    EXPECT_EQ(WriteWholeFile(path, "another"), "");
    EXPECT_EQ(directory.Bytes("a"), "another");
    EXPECT_THAT(directory.Names(), ElementsAre("a", "b.trs")) << sync;
    if (ended) break;
  }
  EXPECT_TRUE(left);
}

TEST(WriteWholeFile, TheCopyStandsElsewhereWhereNothingCanBeCreatedBesideTheFile) {
  const TemporaryDirectory directory;
  const TemporaryDirectory state;
  fs::permissions(state / "", fs::perms(0777));
  const std::string path = directory.Put("a.trs", std::string(709, 'o'));
  fs::permissions(path, fs::perms(0666));
  const char* before = std::getenv("XDG_STATE_HOME");
  const std::string home = before != nullptr ? before : "";
  setenv("XDG_STATE_HOME", (state / "").c_str(), 1);
  killingSync = 3;  // the copy and its folder come first
  WriteWhereNothingCanBeCreated(directory, path, "new");
  killingSync = 0;
  EXPECT_TRUE(directory.Bytes("a.trs") != std::string(709, 'o'));
  const std::string copy = LeftCopyOf(path);
  EXPECT_TRUE(copy.starts_with(state / "")) << copy;
  EXPECT_EQ(PutLeftCopyBack(path), "");
  EXPECT_EQ(directory.Bytes("a.trs"), std::string(709, 'o'));
  EXPECT_EQ(LeftCopyOf(path), "");
  if (before != nullptr) {
    setenv("XDG_STATE_HOME", home.c_str(), 1);
  } else {
    unsetenv("XDG_STATE_HOME");
  }
}

// --- a folder that does not keep the change

TEST(WriteWholeFile, IsToldTheTruthWhenOnlyTheFolderCouldNotBeKept) {
  const TemporaryDirectory directory;
  directory.Put("a", "old");
  for (const char* name : {"a", "b"}) {
    std::string doubt;
    failingSync = 2;  // the file comes before its folder
    EXPECT_EQ(WriteWholeFile(directory / name, "new", PipesAndDevices::Refused, &doubt), "") << name;
    failingSync = 0;
    EXPECT_EQ(doubt, "the disk reports an error: after a power failure the old file may be back");
    EXPECT_EQ(directory.Bytes(name), "new");
    EXPECT_EQ(WriteWholeFile(directory / name, "newer", PipesAndDevices::Refused, &doubt), "");
    EXPECT_EQ(doubt, "");
  }
  EXPECT_THAT(directory.Names(), ElementsAre("a", "b"));
}

TEST(WriteWholeFile, WritesInPlaceWhereNothingCanBeCreated) {
  const TemporaryDirectory directory;
  const std::string path = directory.Put("a", "a long text that stood there");
  fs::permissions(path, fs::perms(0666));
  const ino_t file = StatusOf(path).st_ino;
  EXPECT_EQ(WriteWhereNothingCanBeCreated(directory, path, "new"), "");
  EXPECT_EQ(directory.Bytes("a"), "new");
  EXPECT_EQ(StatusOf(path).st_ino, file);
  EXPECT_EQ(WriteWhereNothingCanBeCreated(directory, path, std::string(100000, 'x'), 1000), TooLarge);
  EXPECT_EQ(directory.Bytes("a"), "new");
  EXPECT_EQ(WriteWhereNothingCanBeCreated(directory, directory / "b", "new"), NoPermission);
  EXPECT_THAT(directory.Names(), ElementsAre("a"));
}

TEST(WriteWholeFile, RefusesAFileThatThisUserMayNotWrite) {
  const TemporaryDirectory directory;
  const std::string path = directory.Put("a", "old");
  fs::permissions(path, fs::perms(geteuid() == 0 ? 0644 : 0444));
  EXPECT_EQ(WriteWhereNothingCanBeCreated(directory, path, "new"), NoPermission);
  EXPECT_EQ(directory.Bytes("a"), "old");
}
