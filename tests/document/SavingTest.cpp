// What saving never destroys without a question: what was not read of a file, and what has been
// written there since. And what it says when a file does not give back what was saved.
#include <sys/stat.h>

#include <cerrno>
#include <filesystem>
#include <limits>

#include "document/SideCopy.h"
#include "support/AtCall.h"
#include "support/DocumentLifecycleFixture.h"

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class SavingTest : public DocumentLifecycleTest {
 protected:
  // Opens a file of which only the first of two members can be read.
  void OpenHalf() {
    Truss whole = TrussBuilder().Member(0, 0, 4, 0, "A").Member(4, 0, 4, 3, "B");
    half_ = TrussText(whole);
    half_.replace(half_.find("4,0,4,3"), 1, "x");
    lifecycle_.OpenPath(directory_.Put("half.trs", half_));
    ASSERT_EQ(truss_.NumMembers, 1);
  }

  // Opens a file in which something follows the last joint.
  void OpenWithRest(const std::string& rest) {
    Truss whole = OneMember();
    half_ = TrussText(whole) + rest;
    lifecycle_.OpenPath(directory_.Put("half.trs", half_));
    ASSERT_EQ(lifecycle_.LastReadError(), std::nullopt);
    ASSERT_EQ(truss_.NumMembers, 1);
  }

  // As another program does it.
  void ChangeOnDisk(const std::string& name, const std::string& memberName) { SavedFile(name, memberName); }

  static testing::Matcher<Message> ReplaceQuestion(const std::string& path, const std::string& why) {
    return AllOf(testing::Field(&Message::Text, AllOf(HasSubstr(path), HasSubstr(why))),
                 testing::Field(&Message::Buttons, MessageButtons::YesNo),
                 testing::Field(&Message::Default, MessageAnswer::No),
                 testing::Field(&Message::HasWayOut, true));
  }

  std::string half_;
};

// A file that was not read whole

TEST_F(SavingTest, SaveOfAFileThatWasNotReadWholeGoesToSaveAs) {
  OpenHalf();
  chooser_.Choice = directory_ / "new.trs";
  EXPECT_TRUE(lifecycle_.SaveFile());
  EXPECT_EQ(chooser_.Saved.size(), 1U);
  EXPECT_EQ(directory_.Bytes("half.trs"), half_);
  EXPECT_EQ(MemberNameIn("new.trs"), "A");
  EXPECT_EQ(truss_.FileName, directory_ / "new.trs");
  EXPECT_EQ(lifecycle_.FileNote(), "");
}

TEST_F(SavingTest, OnceItWasSavedElsewhereSaveIsSaveAgain) {
  OpenHalf();
  chooser_.Choice = directory_ / "new.trs";
  lifecycle_.SaveFile();
  RenameMember("C");
  EXPECT_TRUE(lifecycle_.SaveFile());
  EXPECT_EQ(chooser_.Saved.size(), 1U);
  EXPECT_EQ(MemberNameIn("new.trs"), "C");
  EXPECT_THAT(messages_.Shown, IsEmpty());
}

TEST_F(SavingTest, ACancelledChooserLeavesTheFileAndTheRule) {
  OpenHalf();
  EXPECT_FALSE(lifecycle_.SaveFile());
  EXPECT_FALSE(lifecycle_.SaveFile());
  EXPECT_EQ(chooser_.Saved.size(), 2U);
  EXPECT_EQ(directory_.Bytes("half.trs"), half_);
  EXPECT_THAT(lifecycle_.FileNote(), HasSubstr("Save will ask for another name"));
}

TEST_F(SavingTest, AFailedSaveElsewhereLeavesTheRuleToo) {
  OpenHalf();
  chooser_.FirstChoices = {UnwritablePath(), std::nullopt};
  EXPECT_FALSE(lifecycle_.SaveFile());
  EXPECT_FALSE(lifecycle_.SaveFile());
  EXPECT_EQ(truss_.FileName, directory_ / "half.trs");
  EXPECT_EQ(directory_.Bytes("half.trs"), half_);
}

// The chooser's own question whether to replace is too easily answered with Yes.
TEST_F(SavingTest, TheChooserProposesAnotherNameForAFileThatWasNotReadWhole) {
  OpenHalf();
  lifecycle_.SaveFile();
  lifecycle_.SaveFileAs();
  ASSERT_EQ(chooser_.Saved.size(), 2U);
  for (const FileChooserRequest& request : chooser_.Saved) {
    EXPECT_EQ(request.ProposedName, "half (copy).trs");
  }
  lifecycle_.OpenPath(directory_.Put("no ending", half_));
  lifecycle_.SaveFile();
  EXPECT_EQ(chooser_.Saved.back().ProposedName, "no ending (copy)");
  lifecycle_.OpenPath(directory_ / "not there.trs");
  lifecycle_.SaveFileAs();
  EXPECT_EQ(chooser_.Saved.back().ProposedName, "not there.trs") << "nothing can be lost there";
}

TEST_F(SavingTest, TheSameGoesForYesAtTheSaveQuestion) {
  OpenHalf();
  RenameMember("C");
  messages_.Answers = {MessageAnswer::Yes};
  chooser_.Choice = directory_ / "new.trs";
  lifecycle_.NewFile();
  EXPECT_THAT(messages_.Shown, ElementsAre(SaveChangesQuestion));
  EXPECT_EQ(directory_.Bytes("half.trs"), half_);
  EXPECT_EQ(MemberNameIn("new.trs"), "C");
}

TEST_F(SavingTest, ReplacingTheFileThatWasNotReadWholeIsAskedForOnceMore) {
  OpenHalf();
  std::filesystem::create_symlink(directory_ / "half.trs", directory_ / "link.trs");
  for (const char* name : {"half.trs", "link.trs"}) {
    messages_.Shown.clear();
    chooser_.Choice = directory_ / name;
    EXPECT_FALSE(lifecycle_.SaveFile());
    EXPECT_THAT(messages_.Shown,
                ElementsAre(ReplaceQuestion(directory_ / name, "what was not read is lost")));
    EXPECT_EQ(directory_.Bytes("half.trs"), half_);
    EXPECT_EQ(truss_.FileName, directory_ / "half.trs");
  }
  messages_.Answers = {MessageAnswer::Yes};
  chooser_.Choice = directory_ / "half.trs";
  EXPECT_TRUE(lifecycle_.SaveFile());
  EXPECT_EQ(MemberNameIn("half.trs"), "A");
  EXPECT_EQ(lifecycle_.FileNote(), "");
  EXPECT_TRUE(lifecycle_.SaveFile()) << "now the truss is all that stands there";
  EXPECT_EQ(chooser_.Saved.size(), 3U);
}

TEST_F(SavingTest, WhatFollowsTheLastJointIsNotOverwrittenEither) {
  for (const char* rest : {"3\r\n0,0,4,0\r\n", "\r\n\r\nnotes of the lecturer", "\"", "   ,"}) {
    SCOPED_TRACE(rest);
    OpenWithRest(rest);
    EXPECT_THAT(lifecycle_.FileNote(),
                AllOf(HasSubstr("no part of the truss"), HasSubstr("Save will ask for another name")));
    EXPECT_EQ(recent_.Caption(1), directory_ / "half.trs") << "the truss itself was read without an error";
    EXPECT_FALSE(lifecycle_.SaveFile());
    EXPECT_EQ(directory_.Bytes("half.trs"), half_);
  }
}

TEST_F(SavingTest, BlanksAndEmptyLinesAfterTheLastJointAreNothing) {
  for (const char* rest : {"", "\r\n", "  \t\n\n\r", "\x1a"}) {
    OpenWithRest(rest);
    EXPECT_EQ(lifecycle_.FileNote(), "");
    EXPECT_TRUE(lifecycle_.SaveFile());
    EXPECT_THAT(chooser_.Saved, IsEmpty());
  }
}

TEST_F(SavingTest, TheNoteSaysInWhichLineSomethingWasLeftOut) {
  Truss truss = TrussBuilder().Member(0, 0, 4, 0, "A").Joint(0, 0, "p").Joint(4, 0, "q");
  std::string text = TrussText(truss);
  lifecycle_.OpenPath(directory_.Put("a.trs", text + "\r\nrest"));
  EXPECT_THAT(lifecycle_.FileNote(), HasSubstr("line 19 "));
  text.insert(text.find("\"A\"") + 3, "quoted\"");
  lifecycle_.OpenPath(directory_.Put("a.trs", text));
  EXPECT_THAT(lifecycle_.FileNote(), HasSubstr("line 13 ")) << "behind a closing quote";
}

TEST_F(SavingTest, AFileThatDidNotExistCanBeMadeWithoutAQuestion) {
  lifecycle_.OpenPath(directory_ / "new.trs");
  ASSERT_TRUE(lifecycle_.LastReadError());
  const std::string path = truss_.FileName;
  truss_ = OneMember("B");
  truss_.FileName = path;
  chooser_.Choice = path;
  EXPECT_TRUE(lifecycle_.SaveFile());
  EXPECT_THAT(messages_.Shown, IsEmpty());
  EXPECT_EQ(MemberNameIn("new.trs"), "B");
}

// A file that has changed on disk

TEST_F(SavingTest, AFileThatHasChangedOnDiskIsNotReplacedWithoutAQuestion) {
  OpenSaved("a.trs");
  RenameMember("B");
  ChangeOnDisk("a.trs", "C");
  EXPECT_FALSE(lifecycle_.SaveFile()) << "No is the default";
  EXPECT_THAT(messages_.Shown,
              ElementsAre(ReplaceQuestion(directory_ / "a.trs", "has changed on disk since")));
  EXPECT_EQ(MemberNameIn("a.trs"), "C");
  EXPECT_EQ(MemberName(), "B");

  messages_.Answers = {MessageAnswer::Yes};
  EXPECT_TRUE(lifecycle_.SaveFile());
  EXPECT_EQ(MemberNameIn("a.trs"), "B");
  messages_.Shown.clear();
  EXPECT_TRUE(lifecycle_.SaveFile());
  EXPECT_THAT(messages_.Shown, IsEmpty()) << "what stands there now is ours";
}

TEST_F(SavingTest, AChangeOfTheSameSizeWithTheOldTimeIsFoundToo) {
  OpenSaved("a.trs");
  const auto time = std::filesystem::last_write_time(directory_ / "a.trs");
  ChangeOnDisk("a.trs", "C");
  std::filesystem::last_write_time(directory_ / "a.trs", time);
  EXPECT_FALSE(lifecycle_.SaveFile());
  EXPECT_EQ(MemberNameIn("a.trs"), "C");
}

TEST_F(SavingTest, AChangeOfTheSettingsAloneIsAChangeOfTheFile) {
  OpenSaved("a.trs");
  Truss other = OneMember();
  other.Settings.XMax = 99;
  directory_.Put("a.trs", TrussText(other));
  EXPECT_FALSE(lifecycle_.SaveFile());
  EXPECT_EQ(messages_.Shown.size(), 1U);
}

TEST_F(SavingTest, AFileThatWasOnlyTouchedHasNotChanged) {
  OpenSaved("a.trs");
  const auto time = std::filesystem::last_write_time(directory_ / "a.trs");
  std::filesystem::last_write_time(directory_ / "a.trs", time + std::chrono::hours(1));
  RenameMember("B");
  EXPECT_TRUE(lifecycle_.SaveFile());
  EXPECT_THAT(messages_.Shown, IsEmpty());
}

TEST_F(SavingTest, AFileThatCannotBeReadAnyMoreHasChanged) {
  OpenSaved("a.trs");
  std::filesystem::remove(directory_ / "a.trs");
  ASSERT_EQ(mkfifo((directory_ / "a.trs").c_str(), 0600), 0);
  EXPECT_FALSE(lifecycle_.SaveFile());
  EXPECT_THAT(messages_.Shown,
              ElementsAre(ReplaceQuestion(directory_ / "a.trs", "has changed on disk since")));
}

TEST_F(SavingTest, AFileThatIsGoneIsJustWritten) {
  OpenSaved("a.trs");
  std::filesystem::remove(directory_ / "a.trs");
  RenameMember("B");
  EXPECT_TRUE(lifecycle_.SaveFile());
  EXPECT_THAT(messages_.Shown, IsEmpty());
  EXPECT_EQ(MemberNameIn("a.trs"), "B");
}

TEST_F(SavingTest, AfterSaveAsTheNewFileIsWatched) {
  OpenSaved("a.trs");
  chooser_.Choice = directory_ / "b.trs";
  ASSERT_TRUE(lifecycle_.SaveFileAs());
  ChangeOnDisk("a.trs", "C");
  EXPECT_TRUE(lifecycle_.SaveFile());
  ChangeOnDisk("b.trs", "C");
  EXPECT_FALSE(lifecycle_.SaveFile());
  EXPECT_EQ(MemberNameIn("b.trs"), "C");
}

TEST_F(SavingTest, SaveAsOverTheFileThatHasChangedAsksAsSaveDoes) {
  OpenSaved("a.trs");
  ChangeOnDisk("a.trs", "C");
  chooser_.Choice = directory_ / "a.trs";
  EXPECT_FALSE(lifecycle_.SaveFileAs());
  EXPECT_EQ(messages_.Shown.size(), 1U);
  EXPECT_EQ(MemberNameIn("a.trs"), "C");
}

TEST_F(SavingTest, ANoThereBringsTheSaveQuestionBack) {
  OpenSaved("a.trs");
  RenameMember("B");
  ChangeOnDisk("a.trs", "C");
  messages_.Answers = {MessageAnswer::Yes, MessageAnswer::No, MessageAnswer::Yes, MessageAnswer::Yes};
  lifecycle_.Unload();
  EXPECT_EQ(messages_.Shown.size(), 4U);
  EXPECT_EQ(MemberNameIn("a.trs"), "B");
}

// A file whose save was interrupted

class InterruptedSaveTest : public SavingTest {
 protected:
  // The file is half old and half new, and what it held before stands in a copy.
  void SetUp() override {
    OpenSaved("a.trs");
    whole_ = directory_.Bytes("a.trs");
    { const SideCopy left(directory_ / "a.trs", whole_); }
    directory_.Put("a.trs", "half" + whole_.substr(4));
    copy_ = LeftCopyOf(directory_ / "a.trs");
    ASSERT_NE(copy_, "");
  }

  std::string whole_, copy_;
};

TEST_F(InterruptedSaveTest, OpeningOffersToPutBackWhatTheFileHeld) {
  messages_.Answers = {MessageAnswer::Yes};
  lifecycle_.OpenPath(directory_ / "a.trs");
  ASSERT_EQ(messages_.Shown.size(), 1U);
  EXPECT_THAT(messages_.Shown[0].Text, AllOf(HasSubstr(directory_ / "a.trs"), HasSubstr(copy_)));
  EXPECT_EQ(MemberName(), "A");
  EXPECT_EQ(directory_.Bytes("a.trs"), whole_);
  EXPECT_FALSE(std::filesystem::exists(copy_));
}

TEST_F(InterruptedSaveTest, ANoLeavesBothAndTheNextOpeningAsksAgain) {
  const std::string mixed = directory_.Bytes("a.trs");
  lifecycle_.OpenPath(directory_ / "a.trs");
  lifecycle_.OpenRecentFile(1);
  EXPECT_EQ(messages_.Shown.size(), 2U);
  EXPECT_EQ(directory_.Bytes("a.trs"), mixed);
  EXPECT_TRUE(std::filesystem::exists(copy_));
}

TEST_F(InterruptedSaveTest, WhatCannotBePutBackIsToldAndTheCopyStays) {
  const std::string mixed = directory_.Bytes("a.trs");
  messages_.Answers = {MessageAnswer::Yes};
  const AtCall failing("lseek", Fails(EIO));
  lifecycle_.OpenPath(directory_ / "a.trs");
  EXPECT_TRUE(failing.HasCome());
  ASSERT_EQ(messages_.Shown.size(), 2U);
  EXPECT_EQ(messages_.Shown[1].Text, "The file could not be put back.  Its copy is still there.");
  EXPECT_EQ(messages_.Shown[1].Details, "The disk reports an error.");
  EXPECT_EQ(directory_.Bytes("a.trs"), mixed);
  EXPECT_TRUE(std::filesystem::exists(copy_));
}

TEST_F(InterruptedSaveTest, SavingThereAsksBeforeTheCopyGoes) {
  lifecycle_.EmptyDocument();
  truss_ = OneMember("B");
  chooser_.Choice = directory_ / "a.trs";
  EXPECT_FALSE(lifecycle_.SaveFileAs()) << "No is the default";
  EXPECT_THAT(messages_.Shown, ElementsAre(ReplaceQuestion(directory_ / "a.trs", copy_)));
  EXPECT_TRUE(std::filesystem::exists(copy_));
  messages_.Answers = {MessageAnswer::Yes};
  EXPECT_TRUE(lifecycle_.SaveFileAs());
  EXPECT_EQ(MemberNameIn("a.trs"), "B");
  EXPECT_FALSE(std::filesystem::exists(copy_));
}

// A file that is saved, with a doubt

TEST_F(SavingTest, ACopyThatCouldNotBeRemovedIsNoted) {
  OpenSaved("a.trs");
  std::filesystem::create_hard_link(directory_ / "a.trs", directory_ / "b.trs");  // so it is written in place
  RenameMember("B");
  const AtCall failing("unlink", Fails(EPERM));
  EXPECT_TRUE(lifecycle_.SaveFile());
  EXPECT_THAT(lifecycle_.FileNote(),
              HasSubstr(" The file is saved, but what it held before is still kept in "));
  EXPECT_EQ(MemberNameIn("b.trs"), "B");
}

// A file that does not give back what was saved

TEST_F(SavingTest, AFileThatDoesNotReadBackForAnotherReasonThanANameIsNoted) {
  DrawUntitled();
  truss_.Members[1].X2 = std::numeric_limits<float>::quiet_NaN();
  chooser_.Choice = directory_ / "new.trs";
  EXPECT_TRUE(lifecycle_.SaveFileAs());
  EXPECT_EQ(lifecycle_.FileNote(), " The file that was saved does not read back as this truss. ");
}

TEST_F(SavingTest, TheNoteNamesTheMemberWhoseNameBreaksTheFile) {
  for (const char* name : {"p\"q,r", "a\",\"b", "\"", "A\""}) {
    OpenSaved("a.trs");
    RenameMember(name);
    EXPECT_TRUE(lifecycle_.SaveFile());
    EXPECT_THAT(lifecycle_.FileNote(), HasSubstr("member \"" + std::string(name) + "\" "));
    RenameMember("p'q");
    EXPECT_TRUE(lifecycle_.SaveFile());
    EXPECT_EQ(lifecycle_.FileNote(), "") << "mended";
  }
}

TEST_F(SavingTest, TheSameGoesForSaveAs) {
  DrawUntitled("p\"q,r");
  chooser_.Choice = directory_ / "new.trs";
  EXPECT_TRUE(lifecycle_.SaveFileAs());
  EXPECT_THAT(lifecycle_.FileNote(), HasSubstr("member \"p\"q,r\""));
}

TEST_F(SavingTest, TheNoteOnANameEndsWhenTheNameIsMended) {
  truss_ = TrussBuilder().Member(0, 0, 4, 0, "a\"b").Member(4, 0, 4, 3, "c\"d");
  chooser_.Choice = directory_ / "new.trs";
  ASSERT_TRUE(lifecycle_.SaveFileAs());
  EXPECT_TRUE(lifecycle_.NamesChanged());
  EXPECT_THAT(lifecycle_.FileNote(), HasSubstr("a\"b")) << "another name was changed";
  RenameMember("ab");
  EXPECT_TRUE(lifecycle_.NamesChanged());
  EXPECT_THAT(lifecycle_.FileNote(), HasSubstr("c\"d")) << "the next one";
  truss_.Labels[truss_.Members[2].NameLabel1].Caption = "cd";
  truss_.Labels[truss_.Members[2].NameLabel2].Caption = "cd";
  EXPECT_TRUE(lifecycle_.NamesChanged());
  EXPECT_EQ(lifecycle_.FileNote(), "");
  EXPECT_FALSE(lifecycle_.NamesChanged());
}

TEST_F(SavingTest, ANewNameLeavesANoteOnReadingAlone) {
  OpenHalf();
  RenameMember("C");
  EXPECT_FALSE(lifecycle_.NamesChanged());
  EXPECT_THAT(lifecycle_.FileNote(), HasSubstr("Save will ask for another name"));
}

TEST_F(SavingTest, OddNamesThatAFileCanHoldNeedNoNote) {
  for (const char* name : {"a,b", "", " a ", "#TRUE#", "line\r\nline", "caf\xE9", "'", "\x94"}) {
    OpenSaved("a.trs");
    RenameMember(name);
    EXPECT_TRUE(lifecycle_.SaveFile());
    EXPECT_EQ(lifecycle_.FileNote(), "") << name;
  }
}

}  // namespace
