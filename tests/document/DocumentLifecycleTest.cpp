// The commands of the File menu on real files, with a message box and a file chooser that answer by
// themselves.
#include "document/DocumentLifecycle.h"

#include "document/TrussFile.h"
#include "support/FakeFileChooser.h"
#include "support/FakeMessageBox.h"
#include "support/FileLines.h"
#include "support/MemorySettingsStore.h"
#include "support/TemporaryDirectory.h"
#include "support/TrussBuilder.h"

namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;

class RecordingWindow : public DocumentWindow {
 public:
  explicit RecordingWindow(const Truss& truss) : truss_(truss) {}
  void DocumentEmptied() override {
    ++TimesEmptied;
    EXPECT_EQ(truss_.NumMembers, 0) << "told before the document was empty";
  }
  void ShowCaption(const std::string& caption) override { Caption = caption; }
  void Redraw() override {
    ++TimesRedrawn;
    MembersDrawn = truss_.NumMembers;
  }

  std::string Caption;
  int TimesEmptied = 0;
  int TimesRedrawn = 0;
  int MembersDrawn = 0;

 private:
  const Truss& truss_;
};

Truss OneMember(const std::string& name = "A") { return TrussBuilder().Member(0, 0, 4, 0, name); }

const Message SaveChangesQuestion{.Text = "The truss has changed.  Do you want to save the changes?",
                                  .Title = "Orvane",
                                  .Buttons = MessageButtons::YesNo,
                                  .Icon = MessageIcon::Information};

class DocumentLifecycleTest : public testing::Test {
 protected:
  // A saved truss, opened: nothing has changed.
  void OpenSaved(const std::string& name) {
    lifecycle_.OpenPath(SavedFile(name));
    ASSERT_EQ(truss_.FileName, directory_ / name);
    ASSERT_EQ(lifecycle_.LastReadError(), std::nullopt);
    window_.TimesEmptied = window_.TimesRedrawn = 0;
  }

  // Writes a file with one member of the given name and returns its path.
  std::string SavedFile(const std::string& fileName, const std::string& memberName = "A") {
    Truss truss = OneMember(memberName);
    return directory_.Put(fileName, TrussText(truss));
  }

  // A truss of one member that was drawn and never saved.
  void DrawUntitled(const std::string& memberName = "A") { truss_ = OneMember(memberName); }

  void RenameMember(const std::string& name) {
    truss_.Labels[truss_.Members[1].NameLabel1].Caption = name;
    truss_.Labels[truss_.Members[1].NameLabel2].Caption = name;
  }

  std::string MemberName() const { return truss_.Name(truss_.Members[1].NameLabel1); }

  // The name of the one member in a file.
  std::string MemberNameIn(const std::string& fileName) const {
    Truss truss;
    EXPECT_EQ(ReadTruss(truss, bounds_, directory_ / fileName), std::nullopt);
    return truss.NumMembers == 1 ? truss.Name(truss.Members[1].NameLabel1) : "no single member";
  }

  std::vector<std::string> Recent() const {
    return {recent_.Caption(1), recent_.Caption(2), recent_.Caption(3), recent_.Caption(4)};
  }

  std::string Stored(int entry) {
    return store_.Get("Orvane", "Recent Files", "RecentFile" + std::to_string(entry));
  }

  // A path that no truss can be written to.
  std::string UnwritablePath() const { return directory_ / "no such directory/a.trs"; }

  TemporaryDirectory directory_;
  MemorySettingsStore store_;
  FakeMessageBox messages_;
  FakeFileChooser chooser_;
  Truss truss_;
  CanvasBounds bounds_{.PixL = 0, .PixR = 400, .PixT = 0, .PixB = 200};
  RecentFiles recent_{store_};
  RecordingWindow window_{truss_};
  DocumentLifecycle lifecycle_{{truss_, bounds_, recent_, messages_, chooser_, window_}, "/program"};
};

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

TEST_F(DocumentLifecycleTest, TheCommandGoesOnWhenTheSaveAsThatWasAskedForIsCancelled) {
  DrawUntitled();
  messages_.Answers = {MessageAnswer::Yes};
  lifecycle_.NewFile();
  EXPECT_EQ(truss_.NumMembers, 0);
}

TEST_F(DocumentLifecycleTest, TheCommandGoesOnWhenTheSaveThatWasAskedForFails) {
  DrawUntitled();
  truss_.FileName = UnwritablePath();
  messages_.Answers = {MessageAnswer::Yes};
  lifecycle_.NewFile();
  ASSERT_EQ(messages_.Shown.size(), 2U);
  EXPECT_EQ(messages_.Shown[1].Text, "Error in mnuFileSave attempting to save file " + UnwritablePath());
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

TEST_F(DocumentLifecycleTest, TheReadErrorIsKeptForTheStatusBar) {
  chooser_.Choice = directory_.Put("broken.trs", SettingsLines() + "one\r\n");
  lifecycle_.OpenFile();
  ASSERT_TRUE(lifecycle_.LastReadError());
  EXPECT_EQ(lifecycle_.LastReadError()->Line, 11);
  EXPECT_EQ(lifecycle_.ReadErrorText(),
            " The file could not be read to its end: line 11: a number should stand here, not \"one\" ");
}

TEST_F(DocumentLifecycleTest, TheReadErrorIsShownInUtf8) {
  chooser_.Choice = directory_.Put("broken.trs", SettingsLines() + "\xE9\r\n");
  lifecycle_.OpenFile();
  EXPECT_THAT(lifecycle_.ReadErrorText(), EndsWith("not \"\xC3\xA9\" "));
}

TEST_F(DocumentLifecycleTest, TheReadErrorGoesWithTheDocument) {
  const std::string broken = directory_.Put("broken.trs", "");
  lifecycle_.OpenPath(broken);
  EXPECT_TRUE(lifecycle_.LastReadError());
  lifecycle_.OpenPath(SavedFile("a.trs"));
  EXPECT_EQ(lifecycle_.LastReadError(), std::nullopt);
  EXPECT_EQ(lifecycle_.ReadErrorText(), "");

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
  EXPECT_THAT(lifecycle_.ReadErrorText(), HasSubstr("it is a directory"));
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
                                  .Icon = MessageIcon::None}));
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

TEST_F(DocumentLifecycleTest, SaveAsPreselectsTrussFiles) {
  lifecycle_.SaveFileAs();
  EXPECT_THAT(chooser_.Saved, ElementsAre(FileChooserRequest{"All Files (*.*)|*.*|Truss Files (*.trs)|*.trs",
                                                             2, "/program"}));
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
                                  .Icon = MessageIcon::None}));
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
