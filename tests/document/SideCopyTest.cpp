// Which copy is taken for the one that an interrupted save has left.
#include "document/SideCopy.h"

#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>

#include "support/AnotherProcess.h"
#include "support/AtCall.h"
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

namespace {

// An environment variable that is another for a while; nullptr: not there at all.
class Environment {
 public:
  Environment(const char* name, const char* value) : name_(name) {
    if (const char* before = std::getenv(name)) before_ = before;
    Set(value);
  }
  Environment(const Environment&) = delete;
  Environment& operator=(const Environment&) = delete;
  ~Environment() { Set(before_ ? before_->c_str() : nullptr); }

 private:
  void Set(const char* value) const {
    if (value != nullptr) {
      setenv(name_, value, 1);
    } else {
      unsetenv(name_);
    }
  }

  const char* name_;
  std::optional<std::string> before_;
};

// Nothing can be kept in this folder: all names that a save may take are taken.
std::string PutAmongManySaves(const TemporaryDirectory& directory) {
  for (int i = 1; i <= 100; ++i) fs::create_directory(directory / (".orvane-save-" + std::to_string(i)));
  return directory.Put("a", "old");
}

std::string FolderOfCopy(const std::string& path) {
  const SideCopy copy(path, "before");
  return copy.Path().substr(0, copy.Path().rfind('/') + 1);
}

}  // namespace

TEST(SideCopy, StandsWhereTheProgramKeepsItsStateWhenItsFolderTakesNone) {
  const TemporaryDirectory directory;
  const TemporaryDirectory state;
  const TemporaryDirectory home;
  const std::string path = PutAmongManySaves(directory);
  const Environment itsHome("HOME", (home / "of me").c_str());
  {
    const Environment itsState("XDG_STATE_HOME", (state / "state").c_str());
    EXPECT_EQ(FolderOfCopy(path), state / "state/orvane/");
  }
  for (const char* noFolder : {"", "state", static_cast<const char*>(nullptr)}) {
    const Environment itsState("XDG_STATE_HOME", noFolder);
    EXPECT_EQ(FolderOfCopy(path), home / "of me/.local/state/orvane/");
  }
}

TEST(SideCopy, StandsAmongTheTemporaryFilesWhenThereIsNoPlaceForState) {
  const TemporaryDirectory directory;
  const TemporaryDirectory temporary;
  const std::string path = PutAmongManySaves(directory);
  const Environment noState("XDG_STATE_HOME", nullptr);
  for (const char* noFolder : {"", "me", static_cast<const char*>(nullptr)}) {
    const Environment noHome("HOME", noFolder);
    {
      const Environment temporaryFiles("TMPDIR", (temporary / "").c_str());
      EXPECT_TRUE(fs::equivalent(FolderOfCopy(path), temporary / ""));
    }
    const Environment nowhere("TMPDIR", (temporary / "missing").c_str());
    EXPECT_EQ(FolderOfCopy(path), "");
    EXPECT_EQ(LeftCopyOf(path), "");
  }
}

TEST(SideCopy, OfAFileThatIsNotThereIsNone) {
  const TemporaryDirectory directory;
  SideCopy copy(directory / "a", "old");
  EXPECT_EQ(copy.Path(), "");
  EXPECT_TRUE(copy.Remove());
  EXPECT_EQ(LeftCopyOf(directory / "a"), "");
  EXPECT_THAT(directory.Names(), ElementsAre());
}

TEST(SideCopy, IsALeftOneWhereThereAreNoLocks) {
  const TemporaryDirectory directory;
  const std::string path = directory.Put("a", "half");
  { const SideCopy copy(path, "old"); }
  const AtCall noLocks("flock", Fails(ENOLCK));
  EXPECT_NE(LeftCopyOf(path), "");
  EXPECT_TRUE(noLocks.HasCome());
}

TEST(SideCopy, ThatCannotBeReadIsNone) {
  const TemporaryDirectory directory;
  const std::string path = directory.Put("a", "half");
  { const SideCopy copy(path, "old"); }
  {
    const AtCall failing("read", Fails(EIO));
    EXPECT_EQ(LeftCopyOf(path), "");
  }
  EXPECT_NE(LeftCopyOf(path), "") << "but it stays";
}

TEST(SideCopy, ThatCannotBeRemovedStays) {
  const TemporaryDirectory directory;
  const std::string path = directory.Put("a", "half");
  { const SideCopy left(path, "old"); }
  const std::string copy = LeftCopyOf(path);
  {
    const AtCall failing("unlink", Fails(EPERM));
    DiscardLeftCopy(path);
    EXPECT_TRUE(failing.HasCome());
  }
  EXPECT_EQ(LeftCopyOf(path), copy);
  DiscardLeftCopy(path);
  EXPECT_THAT(directory.Names(), ElementsAre("a"));
}
