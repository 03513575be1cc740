// Opening a file: chosen, dropped on the window, or recent; whole, broken, or gone.
#include "support/DocumentLifecycleFixture.h"
#include "support/FileLines.h"
#include "support/WorkingDirectory.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// Open

TEST_F(DocumentLifecycleTest, OpenReadsTheChosenFile) {
  chooser_.Choice = SavedFile("a.trs", "B");
  lifecycle_.OpenFile();
  EXPECT_EQ(MemberName(), "B");
  EXPECT_EQ(truss_.FileName, directory_ / "a.trs");
  EXPECT_EQ(window_.Caption, "Orvane - " + directory_ / "a.trs");
  EXPECT_EQ(window_.TimesEmptied, 1);
  EXPECT_EQ(window_.MembersDrawn, 1);
  EXPECT_THAT(Recent(), ElementsAre(directory_ / "a.trs", "", "", ""));
  EXPECT_EQ(lifecycle_.LastReadError(), std::nullopt);
}

TEST_F(DocumentLifecycleTest, OpenPreselectsTrussFiles) {
  lifecycle_.OpenFile();
  EXPECT_THAT(chooser_.Opened, ElementsAre(FileChooserRequest{"All Files (*.*)|*.*|Truss Files (*.trs)|*.trs",
                                                              2, "/program"}));
}

TEST_F(DocumentLifecycleTest, OpenDerivesTheViewFromThePresentCanvas) {
  chooser_.Choice = SavedFile("a.trs");
  bounds_.PixB = 400;
  lifecycle_.OpenFile();
  EXPECT_EQ(truss_.View.YMax, 20) << "a square canvas is as high as it is wide";
}

TEST_F(DocumentLifecycleTest, OpenAsksBeforeAChangedTrussGoes) {
  DrawUntitled();
  chooser_.Choice = SavedFile("a.trs", "B");
  lifecycle_.OpenFile();
  EXPECT_THAT(messages_.Shown, ElementsAre(SaveChangesQuestion));
  EXPECT_EQ(MemberName(), "B");
}

TEST_F(DocumentLifecycleTest, OpenAfterYesSavesFirst) {
  OpenSaved("a.trs");
  RenameMember("B");
  messages_.Answers = {MessageAnswer::Yes};
  chooser_.Choice = SavedFile("c.trs", "C");
  lifecycle_.OpenFile();
  EXPECT_EQ(MemberNameIn("a.trs"), "B");
  EXPECT_EQ(MemberName(), "C");
}

TEST_F(DocumentLifecycleTest, ACancelledOpenKeepsTheDocument) {
  OpenSaved("a.trs");
  lifecycle_.OpenFile();
  EXPECT_THAT(messages_.Shown, IsEmpty());
  EXPECT_EQ(MemberName(), "A");
  EXPECT_EQ(truss_.FileName, directory_ / "a.trs");
  EXPECT_EQ(window_.TimesEmptied, 0);
  EXPECT_EQ(window_.Caption, "Orvane - " + directory_ / "a.trs");
}

TEST_F(DocumentLifecycleTest, AChooserThatCannotBeShownEndsOpenQuietly) {
  OpenSaved("a.trs");
  chooser_.CannotBeShown = true;
  lifecycle_.OpenFile();
  EXPECT_THAT(messages_.Shown, IsEmpty());
  EXPECT_EQ(MemberName(), "A");
}

TEST_F(DocumentLifecycleTest, AReadErrorEndsOpenQuietlyAndWhatWasReadStays) {
  Truss truss = OneMember();
  const std::string whole = TrussText(truss);
  const std::size_t afterMember = whole.find("\"A\",\"A\"\r\n") + 9;
  chooser_.Choice = directory_.Put("broken.trs", whole.substr(0, afterMember) + "many\r\n");
  lifecycle_.OpenFile();
  EXPECT_THAT(messages_.Shown, IsEmpty());
  EXPECT_EQ(MemberName(), "A");
  EXPECT_EQ(window_.MembersDrawn, 1);
  EXPECT_EQ(truss_.FileName, directory_ / "broken.trs");
  EXPECT_EQ(window_.Caption, "Orvane - " + directory_ / "broken.trs");
  EXPECT_THAT(Recent(), ElementsAre("", "", "", "")) << "the error ended the command before the list";
}

TEST_F(DocumentLifecycleTest, TheReadErrorIsNotedForTheStatusBar) {
  chooser_.Choice = directory_.Put("broken.trs", SettingsLines() + "one\r\n");
  lifecycle_.OpenFile();
  ASSERT_TRUE(lifecycle_.LastReadError());
  EXPECT_EQ(lifecycle_.LastReadError()->Line, 11);
  EXPECT_EQ(lifecycle_.FileNote(),
            " The file could not be read to its end: line 11: a number should stand here, not \"one\"."
            "  Save will ask for another name. ");
}

TEST_F(DocumentLifecycleTest, TheReadErrorIsShownInUtf8) {
  chooser_.Choice = directory_.Put("broken.trs", SettingsLines() + "\xE9\r\n");
  lifecycle_.OpenFile();
  EXPECT_THAT(lifecycle_.FileNote(), HasSubstr("not \"\xC3\xA9\"."));
}

TEST_F(DocumentLifecycleTest, TheReadErrorGoesWithTheDocument) {
  const std::string broken = directory_.Put("broken.trs", "");
  lifecycle_.OpenPath(broken);
  EXPECT_TRUE(lifecycle_.LastReadError());
  lifecycle_.OpenPath(SavedFile("a.trs"));
  EXPECT_EQ(lifecycle_.LastReadError(), std::nullopt);
  EXPECT_EQ(lifecycle_.FileNote(), "");

  lifecycle_.OpenPath(broken);
  EXPECT_TRUE(lifecycle_.LastReadError());
  lifecycle_.NewFile();
  EXPECT_EQ(lifecycle_.LastReadError(), std::nullopt);
}

TEST_F(DocumentLifecycleTest, AChosenDirectoryIsAReadErrorLikeAnyOther) {
  OpenSaved("a.trs");
  chooser_.Choice = directory_ / ".";
  lifecycle_.OpenFile();
  EXPECT_THAT(messages_.Shown, IsEmpty());
  EXPECT_EQ(truss_.NumMembers, 0);
  EXPECT_THAT(lifecycle_.FileNote(), HasSubstr("it is a directory"));
  EXPECT_EQ(recent_.Caption(1), directory_ / "a.trs");
}

TEST_F(DocumentLifecycleTest, AChosenFileThatIsGoneIsAReadErrorLikeAnyOther) {
  OpenSaved("a.trs");
  chooser_.Choice = directory_ / "gone.trs";
  lifecycle_.OpenFile();
  EXPECT_THAT(messages_.Shown, IsEmpty());
  EXPECT_EQ(truss_.NumMembers, 0);
  EXPECT_EQ(lifecycle_.LastReadError()->Line, 0);
}

// A path without the chooser: dropped on the window, or given on the command line.

TEST_F(DocumentLifecycleTest, ADroppedFileOpensWithoutTheChooser) {
  OpenSaved("a.trs");
  lifecycle_.OpenPath(SavedFile("b.trs", "B"));
  EXPECT_EQ(MemberName(), "B");
  EXPECT_THAT(chooser_.Opened, IsEmpty());
  EXPECT_THAT(Recent(), ElementsAre(directory_ / "b.trs", directory_ / "a.trs", "", ""));
}

TEST_F(DocumentLifecycleTest, ADroppedFileAsksBeforeAChangedTrussGoes) {
  OpenSaved("a.trs");
  RenameMember("B");
  messages_.Answers = {MessageAnswer::Yes};
  lifecycle_.OpenPath(SavedFile("c.trs", "C"));
  EXPECT_THAT(messages_.Shown, ElementsAre(SaveChangesQuestion));
  EXPECT_EQ(MemberNameIn("a.trs"), "B");
  EXPECT_EQ(MemberName(), "C");
}

TEST_F(DocumentLifecycleTest, TheOpenFileDroppedAgainIsReadAgainAfterSaving) {
  OpenSaved("a.trs");
  RenameMember("B");
  messages_.Answers = {MessageAnswer::Yes};
  const std::string path = truss_.FileName;
  lifecycle_.OpenPath(path);
  EXPECT_EQ(MemberName(), "B");
}

TEST_F(DocumentLifecycleTest, ThePathMayBeTheDocumentsOwnFileName) {
  OpenSaved("a.trs");
  lifecycle_.OpenPath(truss_.FileName);
  EXPECT_EQ(MemberName(), "A");
  EXPECT_EQ(truss_.FileName, directory_ / "a.trs");
}

TEST_F(DocumentLifecycleTest, AnEmptyDocumentHasNothingToNote) {
  lifecycle_.OpenPath(directory_.Put("broken.trs", "nonsense"));
  EXPECT_NE(lifecycle_.FileNote(), "");
  lifecycle_.EmptyDocument();
  EXPECT_EQ(lifecycle_.FileNote(), "");
}

// Full paths

TEST_F(DocumentLifecycleTest, ARelativePathIsMadeFullOnceWhereItEnters) {
  SavedFile("a.trs");
  const WorkingDirectory inDirectory(directory_ / ".");
  lifecycle_.OpenPath("a.trs");
  lifecycle_.OpenPath("./a.trs");
  chooser_.Choice = "folder/../a.trs";
  lifecycle_.OpenFile();
  EXPECT_EQ(truss_.FileName, directory_ / "a.trs");
  EXPECT_EQ(window_.Caption, "Orvane - " + directory_ / "a.trs");
  chooser_.Choice = "./a.trs";
  EXPECT_TRUE(lifecycle_.SaveFileAs());
  EXPECT_THAT(Recent(), ElementsAre(directory_ / "a.trs", "", "", "")) << "one file has one entry";
}

TEST_F(DocumentLifecycleTest, ASavedFileStaysTheSameWhenTheWorkingDirectoryChanges) {
  SavedFile("a.trs");
  {
    const WorkingDirectory inDirectory(directory_ / ".");
    lifecycle_.OpenPath("a.trs");
  }
  RenameMember("B");
  EXPECT_TRUE(lifecycle_.SaveFile());
  EXPECT_EQ(MemberNameIn("a.trs"), "B");
}

// Standard input

TEST_F(DocumentLifecycleTest, WhatCameThroughStandardInputHasNoFile) {
  OpenSaved("a.trs");
  Truss truss = OneMember("B");
  lifecycle_.OpenInput({TrussText(truss), ""});
  EXPECT_EQ(MemberName(), "B");
  EXPECT_EQ(truss_.FileName, "");
  EXPECT_EQ(window_.Caption, "Orvane - [untitled]");
  EXPECT_EQ(window_.MembersDrawn, 1);
  EXPECT_EQ(lifecycle_.FileNote(), "");
  EXPECT_THAT(Recent(), ElementsAre(directory_ / "a.trs", "", "", ""));
  lifecycle_.NewFile();
  EXPECT_THAT(messages_.Shown, ElementsAre(SaveChangesQuestion)) << "it stands in no file yet";
}

TEST_F(DocumentLifecycleTest, AnErrorInStandardInputIsNotedLikeAnyOther) {
  lifecycle_.OpenInput({SettingsLines() + "one\r\n", ""});
  EXPECT_EQ(lifecycle_.FileNote(),
            " The file could not be read to its end: line 11: a number should stand here, not \"one\" ");
  lifecycle_.OpenInput({"", "the file could not be read to its end"});
  ASSERT_TRUE(lifecycle_.LastReadError());
  EXPECT_EQ(lifecycle_.LastReadError()->Line, 0);
  EXPECT_EQ(lifecycle_.FileNote(),
            " Nothing was read from standard input: the file could not be read to its end ");
}

TEST_F(DocumentLifecycleTest, TheNoteSaysPlainlyThatThereIsNoSuchFile) {
  lifecycle_.OpenPath(directory_ / "gone.trs");
  EXPECT_EQ(lifecycle_.FileNote(),
            " Nothing was read from gone.trs: there is no such file.  Save will ask for another name. ");
  lifecycle_.OpenPath(directory_ / "");
  EXPECT_THAT(lifecycle_.FileNote(), testing::HasSubstr(": it is a directory, not a file.  Save"));
}

// Recent files

TEST_F(DocumentLifecycleTest, ARecentFileOpensAndMovesToTheHead) {
  OpenSaved("a.trs");
  lifecycle_.OpenPath(SavedFile("b.trs", "B"));
  lifecycle_.OpenRecentFile(2);
  EXPECT_EQ(MemberName(), "A");
  EXPECT_EQ(truss_.FileName, directory_ / "a.trs");
  EXPECT_EQ(window_.Caption, "Orvane - " + directory_ / "a.trs");
  EXPECT_THAT(Recent(), ElementsAre(directory_ / "a.trs", directory_ / "b.trs", "", ""));
}

TEST_F(DocumentLifecycleTest, OpeningThePathThatIsEntry3MovesEntries1And2DownAndKeepsEntry4) {
  for (const char* name : {"4.trs", "3.trs", "2.trs", "1.trs"}) lifecycle_.OpenPath(SavedFile(name));
  lifecycle_.OpenRecentFile(3);
  EXPECT_THAT(Recent(), ElementsAre(directory_ / "3.trs", directory_ / "1.trs", directory_ / "2.trs",
                                    directory_ / "4.trs"));
}

TEST_F(DocumentLifecycleTest, TheOldestEntryFallsOff) {
  for (const char* name : {"4.trs", "3.trs", "2.trs", "1.trs"}) lifecycle_.OpenPath(SavedFile(name));
  lifecycle_.OpenPath(SavedFile("new.trs"));
  EXPECT_THAT(Recent(), ElementsAre(directory_ / "new.trs", directory_ / "1.trs", directory_ / "2.trs",
                                    directory_ / "3.trs"));
  EXPECT_EQ(Stored(4), directory_ / "3.trs");
}

TEST_F(DocumentLifecycleTest, TheSamePathInAnotherLetterCaseIsAnotherEntry) {
  lifecycle_.OpenPath(SavedFile("a.trs"));
  lifecycle_.OpenPath(SavedFile("A.trs"));
  EXPECT_THAT(Recent(), ElementsAre(directory_ / "A.trs", directory_ / "a.trs", "", ""));
}

TEST_F(DocumentLifecycleTest, AfterTheFirstFileTheSeparatorAndEntry1AreShown) {
  EXPECT_FALSE(recent_.IsShown(0));
  lifecycle_.OpenPath(SavedFile("a.trs"));
  EXPECT_TRUE(recent_.IsShown(0));
  EXPECT_TRUE(recent_.IsShown(1));
  for (const int entry : {2, 3, 4}) EXPECT_FALSE(recent_.IsShown(entry)) << entry;
}

TEST_F(DocumentLifecycleTest, ARecentFileThatIsGoneLeavesEverythingAsItIs) {
  lifecycle_.OpenPath(SavedFile("gone.trs"));
  OpenSaved("a.trs");
  std::filesystem::remove(directory_ / "gone.trs");
  lifecycle_.OpenRecentFile(2);
  EXPECT_THAT(messages_.Shown, ElementsAre(Message{.Text = "File no longer exists.",
                                                   .Title = "Orvane",
                                                   .Buttons = MessageButtons::Ok,
                                                   .Icon = MessageIcon::Exclamation}));
  EXPECT_EQ(MemberName(), "A");
  EXPECT_EQ(truss_.FileName, directory_ / "a.trs");
  EXPECT_EQ(window_.TimesEmptied, 0);
  EXPECT_THAT(Recent(), ElementsAre(directory_ / "a.trs", directory_ / "gone.trs", "", ""));
}

TEST_F(DocumentLifecycleTest, ARecentFileAsksBeforeAChangedTrussGoes) {
  OpenSaved("a.trs");
  RenameMember("B");
  messages_.Answers = {MessageAnswer::No};
  lifecycle_.OpenRecentFile(1);
  EXPECT_THAT(messages_.Shown, ElementsAre(SaveChangesQuestion));
  EXPECT_EQ(MemberName(), "A") << "read again from the file";
}

TEST_F(DocumentLifecycleTest, TheEntryThatWasClickedOpensEvenWhenSavingMovesTheList) {
  lifecycle_.OpenPath(SavedFile("b.trs", "B"));
  lifecycle_.OpenPath(SavedFile("a.trs", "A"));
  lifecycle_.NewFile();
  DrawUntitled("new");
  messages_.Answers = {MessageAnswer::Yes};
  chooser_.Choice = directory_ / "new.trs";
  lifecycle_.OpenRecentFile(1);
  EXPECT_EQ(MemberName(), "A");
  EXPECT_THAT(Recent(), ElementsAre(directory_ / "a.trs", directory_ / "new.trs", directory_ / "b.trs", ""));
}

TEST_F(DocumentLifecycleTest, ABrokenRecentFileEndsTheCommandQuietly) {
  lifecycle_.OpenPath(SavedFile("b.trs"));
  OpenSaved("a.trs");
  directory_.Put("b.trs", SettingsLines());
  lifecycle_.OpenRecentFile(2);
  EXPECT_THAT(messages_.Shown, IsEmpty());
  EXPECT_TRUE(lifecycle_.LastReadError());
  EXPECT_THAT(Recent(), ElementsAre(directory_ / "a.trs", directory_ / "b.trs", "", ""));
}

}  // namespace
