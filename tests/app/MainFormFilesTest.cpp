// The File menu through the window: questions, recent files, dropped files, leaving.
#include <QDragEnterEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <filesystem>

#include "app/FileMenu.h"
#include "platform/qt/QtMessageBox.h"
#include "support/FullDisk.h"
#include "support/MainFormFixture.h"
#include "support/WorkingDirectory.h"

namespace {

constexpr const char* SaveQuestion = "The truss has changed.  Do you want to save the changes?";

class MainFormFiles : public MainFormTest {
 protected:
  // Renames a member of the truss that was opened.
  void ChangeTruss() { truss_.Labels[truss_.Members[1].NameLabel1].Caption = "changed"; }

  bool FileIsChanged(const std::string& name = "a.trs") const {
    return directory_.Bytes(name).find("changed") != std::string::npos;
  }

  std::vector<std::string> MessageTexts() const {
    std::vector<std::string> texts;
    for (const Message& message : messages_.Shown) texts.push_back(message.Text);
    return texts;
  }

  std::vector<bool> RecentShown() const {
    std::vector<bool> shown;
    for (const char* name : {"mnuRecentFile(0)", "mnuRecentFile(1)", "mnuRecentFile(2)", "mnuRecentFile(3)",
                             "mnuRecentFile(4)"}) {
      shown.push_back(Entry(name)->isVisible());
    }
    return shown;
  }

  // What the window answers when files are dragged onto the canvas, moved there and dropped.
  std::vector<Qt::DropAction> AnswersToDrop(const QList<QUrl>& urls, Qt::DropActions possible,
                                            Qt::KeyboardModifiers keys = Qt::NoModifier) {
    QMimeData data;
    data.setUrls(urls);
    std::vector<Qt::DropAction> answers;
    const auto send = [&](QDropEvent& event) {
      event.setAccepted(false);
      QApplication::sendEvent(form_.get(), &event);
      answers.push_back(event.isAccepted() ? event.dropAction() : Qt::IgnoreAction);
      return event.isAccepted();
    };
    QDragEnterEvent enter(QPoint(100, 200), possible, &data, Qt::LeftButton, keys);
    QDragMoveEvent move(QPoint(110, 200), possible, &data, Qt::LeftButton, keys);
    QDropEvent drop(QPointF(110, 200), possible, &data, Qt::LeftButton, keys);
    if (send(enter) && send(move)) send(drop);
    QApplication::processEvents();
    return answers;
  }

  // Whether the window takes it.
  bool Drop(const QList<QUrl>& urls) {
    return AnswersToDrop(urls, Qt::CopyAction).back() != Qt::IgnoreAction;
  }
  bool Drop(const std::string& path) { return Drop({QUrl::fromLocalFile(QString::fromStdString(path))}); }

  void PressSave() { QTest::keyClick(form_.get(), Qt::Key_S, Qt::ControlModifier); }

  std::string Saved(const std::string& name) {
    Truss truss = LoadedTriangle();
    return directory_.Put(name, TrussText(truss));
  }

  std::optional<FullDisk> full_;
};

// --- the question whether to save

TEST_F(MainFormFiles, NewAsksAndYesSavesFirst) {
  Started();
  OpenTruss(LoadedTriangle());
  ChangeTruss();
  messages_.Answers = {MessageAnswer::Yes};
  Trigger("mnuFileNew");
  EXPECT_THAT(MessageTexts(), testing::ElementsAre(SaveQuestion));
  EXPECT_TRUE(FileIsChanged());
  EXPECT_EQ(truss_.NumMembers, 0);
  EXPECT_EQ(form_->windowTitle(), QStringLiteral("Orvane - [untitled]"));
}

TEST_F(MainFormFiles, NewAsksAndNoDiscards) {
  Started();
  OpenTruss(LoadedTriangle());
  ChangeTruss();
  messages_.Answers = {MessageAnswer::No};
  Trigger("mnuFileNew");
  EXPECT_FALSE(FileIsChanged());
  EXPECT_EQ(truss_.NumMembers, 0);
}

TEST_F(MainFormFiles, OpenAsksBeforeTheChooserComes) {
  Started();
  OpenTruss(LoadedTriangle());
  ChangeTruss();
  messages_.Answers = {MessageAnswer::Yes};
  chooser_.Choice = Saved("b.trs");
  QTest::keyClick(form_.get(), Qt::Key_O, Qt::ControlModifier);
  EXPECT_THAT(MessageTexts(), testing::ElementsAre(SaveQuestion));
  EXPECT_TRUE(FileIsChanged("a.trs"));
  EXPECT_EQ(truss_.FileName, directory_ / "b.trs");
}

TEST_F(MainFormFiles, ACancelledChooserKeepsTheDocumentAndTheStep) {
  Started();
  OpenInStep2(LoadedTriangle());
  chooser_.Choice.reset();
  Trigger("mnuFileOpen");
  Trigger("mnuFileSaveAs");
  EXPECT_EQ(truss_.NumMembers, 3);
  EXPECT_TRUE(Widget("picStep2")->isVisible());
  EXPECT_TRUE(messages_.Shown.empty());
}

TEST_F(MainFormFiles, OpeningReturnsToStep1) {
  Started();
  OpenInStep3(LoadedTriangle());
  OpenTruss(LoadedTriangle(), "b.trs");
  EXPECT_TRUE(Widget("picToolBox")->isVisible());
  EXPECT_EQ(NumVisibleLabels(), 0);
  EXPECT_FALSE(Report()->isVisible());
}

TEST_F(MainFormFiles, ClosingTheWindowAsksAndNoGivesTheChangesUp) {
  Started();
  OpenInStep3(LoadedTriangle());
  ChangeTruss();
  messages_.Answers = {MessageAnswer::No};
  Trigger("mnuFileExit");
  EXPECT_THAT(MessageTexts(), testing::ElementsAre(SaveQuestion));
  EXPECT_FALSE(FileIsChanged());
  EXPECT_FALSE(form_->isVisible());
  EXPECT_FALSE(Report()->isVisible()) << "every other window closes with it";
}

TEST_F(MainFormFiles, LeavingWithYesSaves) {
  Started();
  OpenTruss(LoadedTriangle());
  ChangeTruss();
  messages_.Answers = {MessageAnswer::Yes};
  form_->close();
  EXPECT_TRUE(FileIsChanged());
}

TEST_F(MainFormFiles, OnlyTheTwoButtonsAnswerTheQuestionAtClosing) {
  QtMessageBox messages;
  form_ = std::make_unique<MainForm>(
      MainForm::Partners{truss_, store_, messages, chooser_, NumberFormat{}, programDirectory_});
  form_->show();
  Click("cmdOKInstruct1");
  OpenTruss(LoadedTriangle());
  ChangeTruss();
  InModalWindow([this](QWidget& question) {
    QTest::keyClick(&question, Qt::Key_Escape);
    EXPECT_FALSE(question.close()) << "the title bar's X, Alt+F4";
    EXPECT_TRUE(question.isVisible());
    EXPECT_TRUE(form_->isVisible());
    EXPECT_FALSE(FileIsChanged());
    auto* box = qobject_cast<QMessageBox*>(&question);
    ASSERT_NE(box, nullptr);
    QTest::mouseClick(box->button(QMessageBox::Yes), Qt::LeftButton);
  });
  form_->close();
  EXPECT_EQ(modalWindows_, 1);
  EXPECT_TRUE(FileIsChanged());
  EXPECT_FALSE(form_->isVisible());
}

TEST_F(MainFormFiles, NoTrussIsLostByAFullDiskAtClosing) {
  Started();
  OpenInStep2(LoadedTriangle());
  ChangeTruss();
  messages_.Answers = {MessageAnswer::Yes, MessageAnswer::Yes};
  messages_.WhenShown = [this](const Message& message) {
    EXPECT_TRUE(form_->isVisible());
    EXPECT_EQ(truss_.NumMembers, 3);
    // The first save finds no room, the second does.
    if (message.Text == SaveQuestion) full_.emplace(64);
    if (messages_.Shown.size() == 3) full_.reset();
  };
  EXPECT_TRUE(form_->close());
  EXPECT_THAT(
      MessageTexts(),
      testing::ElementsAre(SaveQuestion, testing::StartsWith("Error in mnuFileSave attempting to save file "),
                           SaveQuestion));
  EXPECT_TRUE(FileIsChanged());
  EXPECT_FALSE(form_->isVisible());
}

TEST_F(MainFormFiles, AfterYesAndACancelledChooserTheWindowAsksAgain) {
  Started();
  Draw(LoadedTriangle());
  messages_.Answers = {MessageAnswer::Yes, MessageAnswer::Yes};
  chooser_.FirstChoices = {std::nullopt};
  chooser_.Choice = directory_ / "new.trs";
  EXPECT_TRUE(form_->close());
  EXPECT_THAT(MessageTexts(), testing::ElementsAre(SaveQuestion, SaveQuestion));
  EXPECT_TRUE(std::filesystem::exists(directory_ / "new.trs"));
}

// --- the key of Save

TEST_F(MainFormFiles, TheKeyOfSaveSaysWhereSavingIsEnabled) {
  Shown();
  PressSave();
  EXPECT_EQ(Status().toStdString(), SaveRefusedText(true));
  Click("cmdOKInstruct1");
  PressSave();
  EXPECT_EQ(Status().toStdString(), SaveRefusedText(false));
  OpenTruss(LoadedTriangle());
  PressSave();
  EXPECT_EQ(Status().toStdString(), SaveRefusedText(false)) << "also with a file, in Step 1";
  EXPECT_TRUE(chooser_.Saved.empty());
  EXPECT_TRUE(messages_.Shown.empty());
}

TEST_F(MainFormFiles, TheKeyOfSaveOpensSaveAsForAnUntitledTruss) {
  Started();
  Draw(LoadedTriangle());
  Click("cmdNext1");
  PressSave();
  EXPECT_EQ(chooser_.Saved.size(), 1U);
  Click("cmdNext2");
  chooser_.Choice = directory_ / "new.trs";
  PressSave();
  ASSERT_EQ(chooser_.Saved.size(), 2U);
  EXPECT_EQ(chooser_.Saved[1].ProposedName, "truss.trs");
  EXPECT_EQ(truss_.FileName, directory_ / "new.trs");
  ChangeTruss();
  PressSave();
  EXPECT_EQ(chooser_.Saved.size(), 2U) << "now it has a file";
  EXPECT_TRUE(FileIsChanged("new.trs"));
}

TEST_F(MainFormFiles, TheKeyOfSaveWorksInTheReportWindowToo) {
  Started();
  OpenInStep3(LoadedTriangle());
  ChangeTruss();
  Report()->activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(Report()));
  QTest::keyClick(Report(), Qt::Key_S, Qt::ControlModifier);
  EXPECT_TRUE(FileIsChanged());
}

// --- files that were not read whole, or changed by others

TEST_F(MainFormFiles, WhatCouldNotBeReadIsNotOverwritten) {
  Started();
  Truss whole = LoadedTriangle();
  std::string text = TrussText(whole);
  text.replace(text.find("2,2,10,10"), 1, "x");
  chooser_.Choice = directory_.Put("a.trs", text);
  Trigger("mnuFileOpen");
  ASSERT_LT(truss_.NumMembers, 3);
  EXPECT_THAT(Status().toStdString(), testing::HasSubstr("Save will ask for another name"));
  Click("cmdNext1");
  PressSave();
  EXPECT_EQ(chooser_.Saved.size(), 1U);
  EXPECT_EQ(MessageTexts().size(), 1U) << "No is the answer to replacing it";
  EXPECT_EQ(directory_.Bytes("a.trs"), text);
  chooser_.Choice = directory_ / "b.trs";
  PressSave();
  EXPECT_EQ(form_->windowTitle().toStdString(), "Orvane - " + directory_ / "b.trs");
}

TEST_F(MainFormFiles, AFileThatSomebodyElseHasChangedIsNotReplacedWithoutAQuestion) {
  Started();
  OpenInStep2(LoadedTriangle());
  directory_.Put("a.trs", "theirs");
  PressSave();
  EXPECT_THAT(MessageTexts(), testing::ElementsAre(testing::HasSubstr("has changed on disk")));
  EXPECT_EQ(directory_.Bytes("a.trs"), "theirs");
}

TEST_F(MainFormFiles, ANameThatBreaksTheFileIsToldAfterSaving) {
  Started();
  OpenInStep2(LoadedTriangle());
  const std::string name = truss_.Name(truss_.Members[1].NameLabel1);
  truss_.Labels[truss_.Members[1].NameLabel1].Caption = "p\"q,r";
  truss_.Labels[truss_.Members[1].NameLabel2].Caption = "p\"q,r";
  PressSave();
  EXPECT_THAT(Status().toStdString(), testing::HasSubstr("member \"p\"q,r\""));
  FileMenu()->popup(QPoint(0, 0));
  FileMenu()->close();
  EXPECT_THAT(Status().toStdString(), testing::HasSubstr("member \"p\"q,r\""));
  truss_.Labels[truss_.Members[1].NameLabel1].Caption = name;
  truss_.Labels[truss_.Members[1].NameLabel2].Caption = name;
  PressSave();
  EXPECT_THAT(Status().toStdString(), testing::StartsWith(" Step 2: "));
}

TEST_F(MainFormFiles, StandardInputOpensUntitled) {
  Shown();
  Truss triangle = LoadedTriangle();
  form_->OpenAtStart(FileBytes{TrussText(triangle), ""}, true);
  EXPECT_FALSE(Widget("frInstruct1")->isVisible());
  EXPECT_EQ(truss_.NumMembers, 3);
  EXPECT_EQ(form_->windowTitle(), QStringLiteral("Orvane - [untitled]"));
  EXPECT_FALSE(Entry("mnuRecentFile(1)")->isVisible());
  form_->close();
  EXPECT_THAT(MessageTexts(), testing::ElementsAre(SaveQuestion));
}

TEST_F(MainFormFiles, ARelativePathAtStartIsShownInFull) {
  Saved("a.trs");
  const WorkingDirectory inDirectory(directory_ / ".");
  Shown();
  form_->OpenAtStart("./a.trs", false);
  EXPECT_EQ(form_->windowTitle().toStdString(), "Orvane - " + directory_ / "a.trs");
  EXPECT_EQ(Caption("mnuRecentFile(1)").toStdString(), directory_ / "a.trs");
}

TEST_F(MainFormFiles, AFailedSaveIsReported) {
  Started();
  OpenInStep2(LoadedTriangle());
  truss_.FileName = directory_ / "no such directory/a.trs";
  Trigger("mnuFileSave");
  EXPECT_THAT(MessageTexts(),
              testing::ElementsAre("Error in mnuFileSave attempting to save file " + truss_.FileName));
  EXPECT_EQ(truss_.NumMembers, 3);
}

// --- recent files

TEST_F(MainFormFiles, RecentFilesComeFromTheStoreExactlyAsTheyStandThere) {
  store_.Save("Orvane", "Recent Files", "RecentFile1", "/trusses/one & two.trs");
  store_.Save("Orvane", "Recent Files", "RecentFile2", "/trusses/b.trs");
  Shown();
  EXPECT_EQ(RecentShown(), (std::vector{true, true, true, false, false}));
  EXPECT_EQ(Caption("mnuRecentFile(1)"), QStringLiteral("/trusses/one && two.trs")) << "no access key";
  EXPECT_EQ(Caption("mnuRecentFile(2)"), QStringLiteral("/trusses/b.trs"));
}

TEST_F(MainFormFiles, TheChooserOpensBesideTheLatestFile) {
  store_.Save("Orvane", "Recent Files", "RecentFile1", "/trusses/a.trs");
  Started();
  Trigger("mnuFileOpen");
  ASSERT_EQ(chooser_.Opened.size(), 1U);
  EXPECT_EQ(chooser_.Opened[0].InitialDirectory, "/trusses");
  EXPECT_EQ(chooser_.Opened[0].FilterIndex, 2);
}

TEST_F(MainFormFiles, TheFirstFileShowsTheSeparatorAndOneEntry) {
  Started();
  EXPECT_EQ(RecentShown(), (std::vector{false, false, false, false, false}));
  OpenTruss(LoadedTriangle());
  EXPECT_EQ(RecentShown(), (std::vector{true, true, false, false, false}));
}

TEST_F(MainFormFiles, ARecentFileOpens) {
  Started();
  OpenTruss(LoadedTriangle(), "a.trs");
  OpenTruss(LoadedTriangle(), "b.trs");
  Trigger("mnuRecentFile(2)");
  EXPECT_EQ(truss_.FileName, directory_ / "a.trs");
  EXPECT_EQ(Caption("mnuRecentFile(1)").toStdString(), directory_ / "a.trs");
}

TEST_F(MainFormFiles, AVanishedRecentFileChangesNothing) {
  Started();
  OpenTruss(LoadedTriangle(), "a.trs");
  OpenInStep2(LoadedTriangle());
  OpenTruss(LoadedTriangle(), "b.trs");
  std::filesystem::remove(directory_ / "a.trs");
  Click("cmdNext1");
  Trigger("mnuRecentFile(2)");
  ASSERT_EQ(messages_.Shown.size(), 1U);
  EXPECT_EQ(messages_.Shown[0],
            (Message{.Text = "File no longer exists.", .Icon = MessageIcon::Exclamation}));
  EXPECT_EQ(truss_.FileName, directory_ / "b.trs");
  EXPECT_TRUE(Widget("picStep2")->isVisible());
  EXPECT_EQ(Caption("mnuRecentFile(2)").toStdString(), directory_ / "a.trs");
}

// --- dropped files

// Who moves a file deletes it where it was.
TEST_F(MainFormFiles, ADropIsTakenAsACopyWhateverIsProposed) {
  Started();
  const QList<QUrl> urls{QUrl::fromLocalFile(QString::fromStdString(Saved("dropped.trs")))};
  const Qt::DropActions copyOrMove = Qt::CopyAction | Qt::MoveAction;
  const QMimeData data;
  ASSERT_EQ(QDropEvent(QPointF(), copyOrMove, &data, Qt::LeftButton, Qt::ShiftModifier).proposedAction(),
            Qt::MoveAction);
  for (const Qt::DropActions possible :
       {copyOrMove, copyOrMove | Qt::LinkAction, Qt::DropActions(Qt::CopyAction)}) {
    for (const Qt::KeyboardModifier key :
         {Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier}) {
      EXPECT_THAT(AnswersToDrop(urls, possible, key),
                  testing::ElementsAre(Qt::CopyAction, Qt::CopyAction, Qt::CopyAction));
    }
  }
  EXPECT_EQ(truss_.FileName, directory_ / "dropped.trs");
}

TEST_F(MainFormFiles, ADropThatAllowsNoCopyIsRefused) {
  Started();
  const QList<QUrl> urls{QUrl::fromLocalFile(QString::fromStdString(Saved("dropped.trs")))};
  for (const Qt::DropActions possible : {Qt::DropActions(Qt::MoveAction), Qt::MoveAction | Qt::LinkAction}) {
    EXPECT_THAT(AnswersToDrop(urls, possible), testing::ElementsAre(Qt::IgnoreAction));
  }
  EXPECT_EQ(truss_.FileName, "");
}

TEST_F(MainFormFiles, ADroppedTrussOpens) {
  Started();
  OpenInStep2(LoadedTriangle());
  ChangeTruss();
  EXPECT_TRUE(Drop(Saved("dropped.TRS")));
  EXPECT_THAT(MessageTexts(), testing::ElementsAre(SaveQuestion));
  EXPECT_EQ(truss_.FileName, directory_ / "dropped.TRS");
  EXPECT_TRUE(Widget("picToolBox")->isVisible());
  EXPECT_EQ(Caption("mnuRecentFile(1)").toStdString(), directory_ / "dropped.TRS");
}

TEST_F(MainFormFiles, WhatIsNoTrussFileIsNotTaken) {
  Started();
  OpenTruss(LoadedTriangle());
  EXPECT_FALSE(Drop(directory_.Put("picture.png", "")));
  EXPECT_FALSE(Drop({QUrl(QStringLiteral("https://example.org/a.trs"))}));
  EXPECT_FALSE(
      Drop({QUrl::fromLocalFile(QStringLiteral("/a.trs")), QUrl::fromLocalFile(QStringLiteral("/b.trs"))}));
  EXPECT_FALSE(Drop(QList<QUrl>()));
  EXPECT_EQ(truss_.NumMembers, 3);
}

TEST_F(MainFormFiles, NothingIsTakenBehindTheInstructions) {
  Shown();
  EXPECT_FALSE(Drop(Saved("a.trs")));
}

}  // namespace
