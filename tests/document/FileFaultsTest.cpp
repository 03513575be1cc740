// What a write says and leaves when the system fails on the way, or somebody else changes the folder
// meanwhile.
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <set>
#include <string>

#include "document/FileAttributes.h"
#include "document/FileBeside.h"
#include "document/FileWriting.h"
#include "document/SideCopy.h"
#include "support/AnotherProcess.h"
#include "support/AtCall.h"
#include "support/TemporaryDirectory.h"
#include "support/WorkingDirectory.h"

namespace fs = std::filesystem;
using testing::ElementsAre;

namespace {

constexpr const char* DiskError = "the disk reports an error";
constexpr const char* MayNotWrite = "there is no permission to write it";

const std::string OldBytes(709, 'o');
const std::string NewBytes(218, 'n');

struct stat StatusAt(const std::string& path) {
  struct stat status {};
  EXPECT_EQ(stat(path.c_str(), &status), 0) << path;
  return status;
}

// A file with two names, which is written in place. Returns one of them.
std::string PutWithTwoNames(const TemporaryDirectory& directory, const std::string& bytes) {
  fs::create_hard_link(directory.Put("a", bytes), directory / "b");
  return directory / "b";
}

// No save can make its own file in the folder.
void TakeNamesOfSaves(const TemporaryDirectory& directory, int count = 100) {
  for (int i = 1; i <= count; ++i) fs::create_directory(directory / (".orvane-save-" + std::to_string(i)));
}

enum class FileKind { Alone, TwoNames, BehindALink, Missing };

std::string PutFileOf(FileKind kind, const TemporaryDirectory& directory) {
  if (kind == FileKind::Missing) return directory / "a";
  if (kind == FileKind::TwoNames) return PutWithTwoNames(directory, OldBytes);
  const std::string path = directory.Put("a", OldBytes);
  for (const char* mark : {"user.first", "user.second"}) setxattr(path.c_str(), mark, "1", 1, 0);
  if (kind == FileKind::Alone) return path;
  fs::create_symlink("a", directory / "link");
  return directory / "link";
}

}  // namespace

TEST(WriteWholeFile, WhicheverCallFailsTheFileIsTheOldOneOrTheNewOneAndItSaysWhich) {
  for (const char* call : {"fstat", "lstat", "lseek", "ftruncate", "fchmod", "flock", "rename", "readlink",
                           "read", "write", "flistxattr", "fgetxattr", "fsetxattr"}) {
    for (const FileKind kind :
         {FileKind::Alone, FileKind::TwoNames, FileKind::BehindALink, FileKind::Missing}) {
      bool hasCome = true;
      for (int passed = 0; hasCome; ++passed) {
        SCOPED_TRACE(call + std::string(" after ") + std::to_string(passed) + " others, kind of file " +
                     std::to_string(static_cast<int>(kind)));
        const TemporaryDirectory directory;
        const std::string path = PutFileOf(kind, directory);
        std::set<std::string> names = directory.Names();
        std::string why;
        {
          const AtCall failing(call, Fails(EIO), passed);
          why = WriteWholeFile(path, NewBytes);
          hasCome = failing.HasCome();
        }
        if (!hasCome || why.empty()) {
          EXPECT_EQ(why, "");
          EXPECT_EQ(directory.Bytes("a"), NewBytes);
        } else if (kind == FileKind::Missing) {
          EXPECT_THAT(directory.Names(), ElementsAre());
        } else {
          EXPECT_EQ(directory.Bytes("a"), OldBytes);
        }
        EXPECT_EQ(WriteWholeFile(path, NewBytes), "") << "the next save works";
        names.insert("a");
        EXPECT_EQ(directory.Names(), names) << "and cleans up";
      }
    }
  }
}

// The folder binds the file to its place, so it keeps its number there.
TEST(WriteWholeFile, AFileThatCannotBeReplacedIsWrittenInPlace) {
  for (const int error : {EACCES, EPERM, EROFS, EBUSY}) {
    const TemporaryDirectory directory;
    const std::string path = directory.Put("a", OldBytes);
    const struct stat before = StatusAt(path);
    const AtCall failing("rename", Fails(error));
    EXPECT_EQ(WriteWholeFile(path, NewBytes), "");
    EXPECT_TRUE(failing.HasCome());
    EXPECT_EQ(directory.Bytes("a"), NewBytes);
    EXPECT_TRUE(IsSameFile(StatusAt(path), before)) << error;
    EXPECT_THAT(directory.Names(), ElementsAre("a"));
  }
}

TEST(WriteWholeFile, AnotherErrorOfReplacingIsTold) {
  const TemporaryDirectory directory;
  const std::string path = directory.Put("a", OldBytes);
  const AtCall failing("rename", Fails(EIO));
  EXPECT_EQ(WriteWholeFile(path, NewBytes), DiskError);
  EXPECT_EQ(directory.Bytes("a"), OldBytes);
  EXPECT_THAT(directory.Names(), ElementsAre("a"));
}

// --- two failures: nothing can put the old bytes back

TEST(WriteWholeFile, TellsWhereTheOldBytesAreKeptWhenTheyCannotBePutBack) {
  struct SecondFault {
    const char* Call;
    int Passed;  // by the writing
  };
  for (const SecondFault& second : {SecondFault{"lseek", 1}, {"write", 2}, {"ftruncate", 1}}) {
    SCOPED_TRACE(second.Call);
    const TemporaryDirectory directory;
    const std::string path = PutWithTwoNames(directory, OldBytes);
    std::string why;  // of bytes that are more than the old ones, so that there is something to cut off
    {
      const AtCall secondFailing(second.Call, Fails(EIO), second.Passed);
      const AtCall failing("ftruncate", Fails(EIO));
      why = WriteWholeFile(path, NewBytes + OldBytes);
      EXPECT_TRUE(failing.HasCome() && secondFailing.HasCome());
    }
    const std::string copy = LeftCopyOf(path);
    EXPECT_EQ(why, std::string(DiskError) +
                       ", and what the file held before could not be put back; it is kept in " + copy);
    EXPECT_EQ(PutLeftCopyBack(path), "");
    EXPECT_EQ(directory.Bytes("a"), OldBytes);
    EXPECT_THAT(directory.Names(), ElementsAre("a", "b"));
  }
}

TEST(WriteWholeFile, KeepsNoCopyOfAnEmptyFile) {
  const TemporaryDirectory directory;
  const std::string path = PutWithTwoNames(directory, "");
  const AtCall seekFailing("lseek", Fails(EIO), 1);
  const AtCall failing("ftruncate", Fails(EIO));
  EXPECT_EQ(WriteWholeFile(path, NewBytes),
            std::string(DiskError) + ", and what the file held before could not be put back");
  EXPECT_THAT(directory.Names(), ElementsAre("a", "b"));
}

TEST(WriteWholeFile, TellsOfACopyThatCannotBeRemoved) {
  for (const bool isWritten : {true, false}) {
    const TemporaryDirectory directory;
    const std::string path = PutWithTwoNames(directory, OldBytes);
    const AtCall truncateFailing("ftruncate", Fails(isWritten ? 0 : EIO));
    const AtCall failing("unlink", Fails(EPERM));
    std::string doubt;
    const std::string why = WriteWholeFile(path, NewBytes, PipesAndDevices::Refused, &doubt);
    std::string copy;
    for (const std::string& name : directory.Names()) {
      if (name.starts_with("orvane-copy-")) copy = directory / name;
    }
    ASSERT_NE(copy, "");
    const std::string kept = "what it held before is still kept in " + copy;
    EXPECT_EQ(why, isWritten ? "" : DiskError + ("; " + kept));
    EXPECT_EQ(doubt, isWritten ? kept : "");
    EXPECT_EQ(directory.Bytes("a"), isWritten ? NewBytes : OldBytes);
  }
}

// --- what cannot be put back must not be touched

TEST(WriteWholeFile, AFileThatCannotBeReadIsNotWrittenInPlace) {
  const TemporaryDirectory directory;
  const std::string path = PutWithTwoNames(directory, OldBytes);
  const AtCall failing("read", Fails(EIO));
  EXPECT_EQ(WriteWholeFile(path, NewBytes),
            "it could not be put back if writing failed: the file could not be read to its end");
  EXPECT_EQ(directory.Bytes("a"), OldBytes);
}

TEST(WriteWholeFile, AFileThatMayNotBeReadIsNotWrittenInPlace) {
  const TemporaryDirectory directory;
  const std::string path = PutWithTwoNames(directory, OldBytes);
  fs::permissions(path, fs::perms(0222));
  EXPECT_EQ(InAnotherProcess([&]() -> std::string {
              if (geteuid() == 0 && seteuid(Nobody) != 0) return "this test could not become another user";
              return WriteWholeFile(path, NewBytes);
            }),
            MayNotWrite);
  fs::permissions(path, fs::perms(0644));
  EXPECT_EQ(directory.Bytes("a"), OldBytes);
}

// --- the names of running saves

TEST(WriteWholeFile, OnlyAHundredSavesAtOnceFindANameInAFolder) {
  const TemporaryDirectory directory;
  TakeNamesOfSaves(directory, 99);
  EXPECT_EQ(WriteWholeFile(directory / "a", OldBytes), "");
  TakeNamesOfSaves(directory);
  for (const char* name : {"a", "b"}) {
    EXPECT_EQ(WriteWholeFile(directory / name, NewBytes),
              "too many other files are being saved in its folder");
  }
  EXPECT_EQ(directory.Bytes("a"), OldBytes);
  EXPECT_EQ(directory.Names().size(), 101U);
}

TEST(WriteWholeFile, AnotherSaveMayTakeItsNewFileForALeftOne) {
  const TemporaryDirectory directory;
  const AtCall lockedByTheOther("flock", Fails(EWOULDBLOCK));
  EXPECT_EQ(WriteWholeFile(directory / "a", NewBytes), "");
  EXPECT_EQ(directory.Bytes("a"), NewBytes);
  EXPECT_THAT(directory.Names(), ElementsAre(".orvane-save-1", "a")) << "the other one removes it";
}

TEST(WriteWholeFile, WritesWhereThereAreNoLocks) {
  const TemporaryDirectory directory;
  const AtCall noLocks("flock", Fails(ENOLCK));
  EXPECT_EQ(WriteWholeFile(directory / "a", NewBytes), "");
  EXPECT_TRUE(noLocks.HasCome());
  EXPECT_EQ(directory.Bytes("a"), NewBytes);
  EXPECT_THAT(directory.Names(), ElementsAre("a"));
}

TEST(WriteWholeFile, LeavesAloneWhatHasTakenItsNameMeanwhile) {
  const TemporaryDirectory directory;
  for (const bool isLeftOver : {true, false}) {
    directory.Put("hers", "hers");
    if (isLeftOver) directory.Put(".orvane-save-1", "left");
    const AtCall meanwhile("flock", [&] {
      fs::rename(directory / "hers", directory / ".orvane-save-1");
      return 0;
    });
    EXPECT_EQ(WriteWholeFile(directory / "a", NewBytes), "");
    EXPECT_TRUE(meanwhile.HasCome());
    EXPECT_EQ(directory.Bytes("a"), NewBytes);
    EXPECT_EQ(directory.Bytes(".orvane-save-1"), "hers") << isLeftOver;
    fs::remove(directory / ".orvane-save-1");
  }
}

TEST(WriteWholeFile, TakesAnotherNameWhenItsNewFileIsGone) {
  const TemporaryDirectory directory;
  const AtCall meanwhile("flock", [&] {
    fs::remove(directory / ".orvane-save-1");
    return 0;
  });
  EXPECT_EQ(WriteWholeFile(directory / "a", NewBytes), "");
  EXPECT_TRUE(meanwhile.HasCome());
  EXPECT_THAT(directory.Names(), ElementsAre("a"));
}

// --- paths

TEST(WriteWholeFile, FollowsAsManyLinksAsTheSystemDoes) {
  const TemporaryDirectory directory;
  directory.Put("0", OldBytes);
  constexpr int mostLinks = 40;
  for (int i = 1; i <= mostLinks + 1; ++i)
    fs::create_symlink(std::to_string(i - 1), directory / std::to_string(i));
  EXPECT_EQ(WriteWholeFile(directory / std::to_string(mostLinks), NewBytes), "");
  EXPECT_EQ(directory.Bytes("0"), NewBytes);
  EXPECT_TRUE(fs::is_symlink(directory / std::to_string(mostLinks)));
  EXPECT_EQ(WriteWholeFile(directory / std::to_string(mostLinks + 1), "newer"),
            "its symbolic links go round");
  EXPECT_EQ(directory.Bytes("0"), NewBytes);
}

// Another program replaces it between two calls; it keeps what it is.
TEST(WriteWholeFile, WritesInPlaceWhatItsLinkLeadsToByNow) {
  const TemporaryDirectory directory;
  directory.Put("a", OldBytes);
  const struct stat hers = StatusAt(directory.Put("hers", "hers"));
  fs::create_symlink("a", directory / "link");
  const AtCall meanwhile("readlink", [&] {
    fs::rename(directory / "hers", directory / "a");
    return 0;
  });
  EXPECT_EQ(WriteWholeFile(directory / "link", NewBytes), "");
  EXPECT_TRUE(meanwhile.HasCome());
  EXPECT_EQ(directory.Bytes("a"), NewBytes);
  EXPECT_TRUE(IsSameFile(StatusAt(directory / "a"), hers));
  EXPECT_THAT(directory.Names(), ElementsAre("a", "link"));
}

TEST(WriteWholeFile, TakesAPathFromTheCurrentFolderOn) {
  const TemporaryDirectory directory;
  const WorkingDirectory here(directory / "");
  for (const std::string& bytes : {OldBytes, NewBytes}) {
    EXPECT_EQ(WriteWholeFile("a", bytes), "");
    EXPECT_EQ(directory.Bytes("a"), bytes);
  }
  EXPECT_THAT(directory.Names(), ElementsAre("a"));
}

TEST(WriteWholeFile, TellsOfADeviceThatCannotBeOpened) {
  const TemporaryDirectory directory;
  ASSERT_EQ(mknod((directory / "socket").c_str(), S_IFSOCK | 0600, 0), 0);
  EXPECT_EQ(WriteWholeFile(directory / "socket", NewBytes, PipesAndDevices::Taken),
            "the system refuses it (error " + std::to_string(ENXIO) + ")");
}

// --- what a file keeps

TEST(WriteWholeFile, KeepsAGroupThatIsNotTheUsersOwn) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can give a file to any group";
  const TemporaryDirectory directory;
  const std::string path = directory.Put("a", OldBytes);
  ASSERT_EQ(chown(path.c_str(), geteuid(), 2345), 0);
  EXPECT_EQ(WriteWholeFile(path, NewBytes), "");
  EXPECT_EQ(StatusAt(path).st_uid, geteuid());
  EXPECT_EQ(StatusAt(path).st_gid, 2345U);
}

TEST(WriteWholeFile, DropsWhatSpokeOfTheOldBytes) {
  const TemporaryDirectory directory;
  const std::string path = directory.Put("a", OldBytes);
  const std::string capability("\x01\0\0\x02\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0", 20);
  if (setxattr(path.c_str(), "security.capability", capability.data(), capability.size(), 0) != 0 ||
      setxattr(path.c_str(), "user.mark", "9", 1, 0) != 0) {
    GTEST_SKIP() << "this user or this file system cannot";
  }
  EXPECT_EQ(WriteWholeFile(path, NewBytes), "");
  EXPECT_EQ(getxattr(path.c_str(), "user.mark", nullptr, 0), 1);
  EXPECT_LT(getxattr(path.c_str(), "security.capability", nullptr, 0), 0);
}

// Who may use the file must stay the same: then it is written in place. A mark may get lost.
TEST(WriteWholeFile, AnAccessListThatCannotBeGivenToTheNewFileKeepsTheOldOne) {
  const TemporaryDirectory directory;
  const std::string path = directory.Put("a", OldBytes);
  const std::string list(
      "\x02\0\0\0\x01\0\x06\0\xFF\xFF\xFF\xFF\x02\0\x06\0\xD2\x04\0\0\x04\0\x04\0\xFF\xFF\xFF\xFF"
      "\x10\0\x06\0\xFF\xFF\xFF\xFF\x20\0\0\0\xFF\xFF\xFF\xFF",
      44);
  if (setxattr(path.c_str(), "system.posix_acl_access", list.data(), list.size(), 0) != 0) {
    GTEST_SKIP() << "this file system has no access lists";
  }
  for (const int attribute : {0, 1}) {
    ASSERT_EQ(setxattr(path.c_str(), "user.mark", "9", 1, 0), 0);
    const struct stat before = StatusAt(path);
    const AtCall failing("fsetxattr", Fails(EIO), attribute);
    EXPECT_EQ(WriteWholeFile(path, NewBytes), "");
    EXPECT_TRUE(failing.HasCome());
    EXPECT_EQ(getxattr(path.c_str(), "system.posix_acl_access", nullptr, 0), 44);
    const bool hasMark = getxattr(path.c_str(), "user.mark", nullptr, 0) == 1;
    EXPECT_EQ(IsSameFile(StatusAt(path), before), hasMark) << "attribute " << attribute;
  }
}

TEST(KeepAttributes, OfAFileThatIsNotOpenAreNotKept) {
  const TemporaryDirectory directory;
  const std::string path = directory.Put("a", OldBytes);
  const SystemFile from(path, O_RDONLY);
  EXPECT_FALSE(KeepAttributes(from.Descriptor(), StatusAt(path), -1));
}

// --- the signal of a file that grows too large

TEST(WriteWholeFile, LeavesTheSignalHeldThatItsCallerHolds) {
  const TemporaryDirectory directory;
  EXPECT_EQ(InAnotherProcess([&]() -> std::string {
              sigset_t set{};
              sigemptyset(&set);
              sigaddset(&set, SIGXFSZ);
              sigprocmask(SIG_BLOCK, &set, nullptr);
              rlimit limit{};
              getrlimit(RLIMIT_FSIZE, &limit);
              limit.rlim_cur = 100;
              setrlimit(RLIMIT_FSIZE, &limit);
              const std::string why = WriteWholeFile(directory / "a", OldBytes);
              sigpending(&set);
              return why + (sigismember(&set, SIGXFSZ) != 0 ? "; still held" : "; gone");
            }),
            "the file would be larger than the system allows; still held");
}

// --- putting a copy back

TEST(PutLeftCopyBack, SaysThatThereIsNone) {
  const TemporaryDirectory directory;
  EXPECT_EQ(PutLeftCopyBack(directory.Put("a", OldBytes)), "the file cannot be opened for reading");
  EXPECT_EQ(directory.Bytes("a"), OldBytes);
}

TEST(PutLeftCopyBack, LeavesTheCopyWhereItIsWhenItFails) {
  const TemporaryDirectory directory;
  const std::string path = directory.Put("a", OldBytes);
  { const SideCopy left(path, OldBytes); }
  directory.Put("a", NewBytes);
  const std::string copy = LeftCopyOf(path);
  ASSERT_NE(copy, "");
  {
    const AtCall failing("lseek", Fails(EIO));
    EXPECT_EQ(PutLeftCopyBack(path), DiskError);
  }
  EXPECT_EQ(LeftCopyOf(path), copy);
  EXPECT_EQ(directory.Bytes("a"), NewBytes);

  fs::remove(path);
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
  EXPECT_EQ(PutLeftCopyBack(path), MayNotWrite) << "a pipe has taken the file's name";
  EXPECT_EQ(LeftCopyOf(path), copy);
}
