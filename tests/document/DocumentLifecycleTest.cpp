// New, Save, Save As and Exit: what they ask, what they write, and what stays when something fails.
#include "support/DocumentLifecycleFixture.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// New

TEST_F(DocumentLifecycleTest, NewEmptiesAnUnchangedTrussWithoutAsking) {
  OpenSaved("a.trs");
  lifecycle_.NewFile();
  EXPECT_THAT(messages_.Shown, IsEmpty());
  EXPECT_EQ(truss_.NumMembers, 0);
  EXPECT_EQ(truss_.FileName, "");
  EXPECT_EQ(window_.Caption, "Orvane - [untitled]");
  EXPECT_EQ(window_.TimesEmptied, 1);
}

TEST_F(DocumentLifecycleTest, NewOnAnEmptyDocumentAsksNothing) {
  lifecycle_.NewFile();
  EXPECT_THAT(messages_.Shown, IsEmpty());
}

TEST_F(DocumentLifecycleTest, NewOnADrawingWithOnlyJointsAndNamesAsksNothing) {
  truss_ = TrussBuilder().Member(0, 0, 4, 0, "A").Joint(0, 0, "1");
  truss_.Members[1].Live = false;
  ASSERT_EQ(truss_.NumJoints, 2);
  lifecycle_.NewFile();
  EXPECT_THAT(messages_.Shown, IsEmpty());
  EXPECT_EQ(truss_.NumJoints, 0);
}

TEST_F(DocumentLifecycleTest, NewKeepsTheSettings) {
  truss_.Settings.GridX = 0.25F;
  truss_.Settings.SigFigs = 6;
  lifecycle_.NewFile();
  EXPECT_EQ(truss_.Settings.GridX, 0.25F);
  EXPECT_EQ(truss_.Settings.SigFigs, 6);
}

TEST_F(DocumentLifecycleTest, AnUntitledDrawingWithOneMemberAsks) {
  DrawUntitled();
  lifecycle_.NewFile();
  EXPECT_THAT(messages_.Shown, ElementsAre(SaveChangesQuestion));
}

TEST_F(DocumentLifecycleTest, NoDiscardsTheChanges) {
  OpenSaved("a.trs");
  RenameMember("B");
  messages_.Answers = {MessageAnswer::No};
  lifecycle_.NewFile();
  EXPECT_EQ(truss_.NumMembers, 0);
  EXPECT_EQ(MemberNameIn("a.trs"), "A");
  EXPECT_THAT(chooser_.Saved, IsEmpty());
}

TEST_F(DocumentLifecycleTest, YesOnANamedTrussSavesToItsFile) {
  OpenSaved("a.trs");
  RenameMember("B");
  messages_.Answers = {MessageAnswer::Yes};
  lifecycle_.NewFile();
  EXPECT_EQ(MemberNameIn("a.trs"), "B");
  EXPECT_THAT(chooser_.Saved, IsEmpty());
  EXPECT_EQ(truss_.NumMembers, 0);
}

TEST_F(DocumentLifecycleTest, YesOnAnUntitledTrussGoesToSaveAs) {
  DrawUntitled("B");
  messages_.Answers = {MessageAnswer::Yes};
  chooser_.Choice = directory_ / "new.trs";
  lifecycle_.NewFile();
  EXPECT_EQ(chooser_.Saved.size(), 1U);
  EXPECT_EQ(MemberNameIn("new.trs"), "B");
  EXPECT_EQ(recent_.Caption(1), directory_ / "new.trs");
  EXPECT_EQ(truss_.NumMembers, 0);
}

TEST_F(DocumentLifecycleTest, ACancelledSaveAsIsNoAnswerToTheQuestion) {
  DrawUntitled("B");
  messages_.Answers = {MessageAnswer::Yes, MessageAnswer::Yes, MessageAnswer::Yes};
  chooser_.FirstChoices = {std::nullopt, std::nullopt};
  chooser_.Choice = directory_ / "new.trs";
  lifecycle_.NewFile();
  EXPECT_THAT(messages_.Shown, ElementsAre(SaveChangesQuestion, SaveChangesQuestion, SaveChangesQuestion));
  EXPECT_EQ(MemberNameIn("new.trs"), "B");
  EXPECT_EQ(truss_.NumMembers, 0) << "then the command goes on";
}

TEST_F(DocumentLifecycleTest, AfterACancelledSaveAsTheTrussCanStillBeGivenUp) {
  DrawUntitled();
  messages_.Answers = {MessageAnswer::Yes, MessageAnswer::No};
  lifecycle_.NewFile();
  EXPECT_THAT(messages_.Shown, ElementsAre(SaveChangesQuestion, SaveChangesQuestion));
  EXPECT_EQ(truss_.NumMembers, 0);
}

TEST_F(DocumentLifecycleTest, AFailedSaveIsNoAnswerToTheQuestion) {
  DrawUntitled();
  truss_.FileName = UnwritablePath();
  messages_.Answers = {MessageAnswer::Yes, MessageAnswer::Yes, MessageAnswer::No};
  lifecycle_.NewFile();
  std::vector<std::string> texts;
  for (const Message& message : messages_.Shown) texts.push_back(message.Text);
  const std::string failed = "Error in mnuFileSave attempting to save file " + UnwritablePath();
  const std::string& question = SaveChangesQuestion.Text;
  EXPECT_THAT(texts, ElementsAre(question, failed, question, failed, question));
  EXPECT_EQ(truss_.NumMembers, 0);
}

TEST_F(DocumentLifecycleTest, NothingIsThrownAwayBeforeTheQuestionIsAnswered) {
  OpenSaved("a.trs");
  RenameMember("B");
  const std::string path = truss_.FileName;
  truss_.FileName = UnwritablePath();
  messages_.Answers = {MessageAnswer::Yes, MessageAnswer::Yes};
  messages_.WhenShown = [&](const Message& message) {
    EXPECT_EQ(MemberName(), "B");
    EXPECT_EQ(window_.TimesEmptied, 0);
    if (message.Buttons == MessageButtons::Ok) truss_.FileName = path;  // the disk has room again
  };
  lifecycle_.NewFile();
  EXPECT_EQ(messages_.Shown.size(), 3U);
  EXPECT_EQ(MemberNameIn("a.trs"), "B");
  EXPECT_EQ(truss_.NumMembers, 0);
}

TEST_F(DocumentLifecycleTest, AFileEditedSoThatOnlyItsSettingsDifferDoesNotCountAsChanged) {
  OpenSaved("a.trs");
  Truss other = OneMember();
  other.Settings.XMax = 99;
  other.Settings.SnapGrid = false;
  directory_.Put("a.trs", TrussText(other));
  lifecycle_.NewFile();
  EXPECT_THAT(messages_.Shown, IsEmpty());
}

TEST_F(DocumentLifecycleTest, AFileThatCannotBeReadBackCountsAsChanged) {
  OpenSaved("a.trs");
  directory_.Put("a.trs", "Orvane 5\r\nnonsense");
  lifecycle_.NewFile();
  EXPECT_THAT(messages_.Shown, ElementsAre(SaveChangesQuestion));
}
// Save

TEST_F(DocumentLifecycleTest, SaveWritesToTheFileTheTrussHas) {
  OpenSaved("a.trs");
  RenameMember("B");
  EXPECT_TRUE(lifecycle_.SaveFile());
  EXPECT_EQ(MemberNameIn("a.trs"), "B");
  EXPECT_THAT(messages_.Shown, IsEmpty());
  EXPECT_THAT(chooser_.Saved, IsEmpty());
}

TEST_F(DocumentLifecycleTest, AFailedSaveSaysSoAndLeavesTheDocumentAsItWas) {
  OpenSaved("a.trs");
  RenameMember("B");
  truss_.FileName = UnwritablePath();
  EXPECT_FALSE(lifecycle_.SaveFile());
  EXPECT_THAT(messages_.Shown,
              ElementsAre(Message{.Text = "Error in mnuFileSave attempting to save file " + UnwritablePath(),
                                  .Title = "Orvane",
                                  .Buttons = MessageButtons::Ok,
                                  .Icon = MessageIcon::None,
                                  .Details = "Its folder does not exist."}));
  EXPECT_EQ(truss_.FileName, UnwritablePath());
  EXPECT_EQ(MemberName(), "B");
}

// Save As

TEST_F(DocumentLifecycleTest, SaveAsWritesToTheChosenFile) {
  DrawUntitled("B");
  chooser_.Choice = directory_ / "new.trs";
  lifecycle_.SaveFileAs();
  EXPECT_EQ(MemberNameIn("new.trs"), "B");
  EXPECT_EQ(truss_.FileName, directory_ / "new.trs");
  EXPECT_EQ(window_.Caption, "Orvane - " + directory_ / "new.trs");
  EXPECT_THAT(Recent(), ElementsAre(directory_ / "new.trs", "", "", ""));
  EXPECT_EQ(Stored(1), directory_ / "new.trs");
  EXPECT_THAT(messages_.Shown, IsEmpty());
}

TEST_F(DocumentLifecycleTest, SaveAsPreselectsTrussFilesAndProposesAName) {
  const auto request = [](const char* name) {
    return FileChooserRequest{"All Files (*.*)|*.*|Truss Files (*.trs)|*.trs", 2, "/program", name};
  };
  lifecycle_.SaveFileAs();
  OpenSaved("bridge.trs");
  lifecycle_.SaveFileAs();
  EXPECT_THAT(chooser_.Saved, ElementsAre(request("truss.trs"), request("bridge.trs")));
}

TEST_F(DocumentLifecycleTest, SaveAsLeavesTheOldFileAlone) {
  OpenSaved("a.trs");
  RenameMember("B");
  chooser_.Choice = directory_ / "b.trs";
  lifecycle_.SaveFileAs();
  EXPECT_EQ(MemberNameIn("a.trs"), "A");
  EXPECT_EQ(MemberNameIn("b.trs"), "B");
  EXPECT_THAT(Recent(), ElementsAre(directory_ / "b.trs", directory_ / "a.trs", "", ""));
}

TEST_F(DocumentLifecycleTest, ACancelledSaveAsChangesNothing) {
  DrawUntitled();
  lifecycle_.EmptyDocument();
  DrawUntitled();
  lifecycle_.SaveFileAs();
  EXPECT_EQ(truss_.FileName, "");
  EXPECT_EQ(window_.Caption, "Orvane - [untitled]");
  EXPECT_EQ(MemberName(), "A");
  EXPECT_THAT(messages_.Shown, IsEmpty());
  EXPECT_THAT(Recent(), ElementsAre("", "", "", ""));
}

TEST_F(DocumentLifecycleTest, AFailedSaveAsSaysSoAndKeepsTheNameTheTrussHad) {
  OpenSaved("a.trs");
  RenameMember("B");
  chooser_.Choice = UnwritablePath();
  lifecycle_.SaveFileAs();
  EXPECT_THAT(messages_.Shown,
              ElementsAre(Message{.Text = "Error in mnuFileSave attempting to save file " + UnwritablePath(),
                                  .Title = "Orvane",
                                  .Buttons = MessageButtons::Ok,
                                  .Icon = MessageIcon::None,
                                  .Details = "Its folder does not exist."}));
  EXPECT_EQ(truss_.FileName, directory_ / "a.trs");
  EXPECT_EQ(window_.Caption, "Orvane - " + directory_ / "a.trs");
  EXPECT_EQ(MemberName(), "B");
  EXPECT_EQ(MemberNameIn("a.trs"), "A");
  EXPECT_THAT(Recent(), ElementsAre(directory_ / "a.trs", "", "", ""));
}

TEST_F(DocumentLifecycleTest, AFailedSaveAsOfAnUntitledTrussLeavesItUntitled) {
  DrawUntitled();
  chooser_.Choice = directory_ / ".";  // a directory cannot become a file
  lifecycle_.SaveFileAs();
  EXPECT_EQ(messages_.Shown.size(), 1U);
  EXPECT_EQ(truss_.FileName, "");
  EXPECT_EQ(window_.Caption, "Orvane - [untitled]");
}

TEST_F(DocumentLifecycleTest, AnyOtherErrorOfSaveAsHasAMessageOfItsOwn) {
  OpenSaved("a.trs");
  chooser_.CannotBeShown = true;
  lifecycle_.SaveFileAs();
  EXPECT_THAT(messages_.Shown, ElementsAre(Message{.Text = "Error attempting to save the file.",
                                                   .Title = "Orvane",
                                                   .Buttons = MessageButtons::Ok,
                                                   .Icon = MessageIcon::None}));
  EXPECT_EQ(truss_.FileName, directory_ / "a.trs");
}

TEST_F(DocumentLifecycleTest, AReadOnlyFileIsNotReplaced) {
  OpenSaved("a.trs");
  RenameMember("B");
  std::filesystem::permissions(directory_ / "a.trs", std::filesystem::perms::owner_read);
  EXPECT_FALSE(lifecycle_.SaveFile());
  EXPECT_EQ(MemberNameIn("a.trs"), "A");
}

// Exit

TEST_F(DocumentLifecycleTest, ClosingTheWindowAsksWhenTheTrussHasChanged) {
  DrawUntitled("B");
  messages_.Answers = {MessageAnswer::Yes};
  chooser_.Choice = directory_ / "new.trs";
  lifecycle_.Unload();
  EXPECT_THAT(messages_.Shown, ElementsAre(SaveChangesQuestion));
  EXPECT_EQ(MemberNameIn("new.trs"), "B");
}

TEST_F(DocumentLifecycleTest, TheWindowClosesOnlyAfterASuccessfulSaveOrANo) {
  DrawUntitled("B");
  messages_.Answers = {MessageAnswer::Yes, MessageAnswer::Yes};
  chooser_.FirstChoices = {UnwritablePath()};
  chooser_.Choice = directory_ / "new.trs";
  lifecycle_.Unload();
  EXPECT_EQ(messages_.Shown.size(), 3U) << "the question, the error, the question again";
  EXPECT_EQ(MemberNameIn("new.trs"), "B");
}

TEST_F(DocumentLifecycleTest, ClosingTheWindowAsksNothingWhenNothingHasChanged) {
  OpenSaved("a.trs");
  lifecycle_.Unload();
  EXPECT_THAT(messages_.Shown, IsEmpty());
}

TEST_F(DocumentLifecycleTest, LeavingTheInstructionsEmptiesTheDocumentWithoutAsking) {
  DrawUntitled();
  lifecycle_.EmptyDocument();
  EXPECT_THAT(messages_.Shown, IsEmpty());
  EXPECT_EQ(truss_.NumMembers, 0);
  EXPECT_EQ(window_.Caption, "Orvane - [untitled]");
}

// Where the chooser opens

TEST_F(DocumentLifecycleTest, TheChooserOpensWhereTheMostRecentFileLiesAtStartUp) {
  store_.Save("Orvane", "Recent Files", "RecentFile1", "/home/ada/bridges/a.trs");
  DocumentLifecycle nextRun({truss_, bounds_, recent_, messages_, chooser_, window_}, "/program");
  nextRun.OpenFile();
  nextRun.SaveFileAs();
  EXPECT_EQ(chooser_.Opened.at(0).InitialDirectory, "/home/ada/bridges");
  EXPECT_EQ(chooser_.Saved.at(0).InitialDirectory, "/home/ada/bridges");
  EXPECT_EQ(recent_.Caption(1), "/home/ada/bridges/a.trs") << "the menu is filled at start-up";
}

TEST(ChooserDirectory, IsWhatStandsBeforeTheLastSeparator) {
  EXPECT_EQ(ChooserDirectory("/home/ada/a.trs", "/program"), "/home/ada");
  EXPECT_EQ(ChooserDirectory("/a.trs", "/program"), "/");
}

TEST(ChooserDirectory, IsTheProgramsOwnWithoutARecentFile) {
  EXPECT_EQ(ChooserDirectory("", "/program"), "/program");
  EXPECT_EQ(ChooserDirectory("a.trs", "/program"), "/program");
}

}  // namespace
