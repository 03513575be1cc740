// The window of the printable report: its places, its document, its keys.
#include <QCheckBox>
#include <QClipboard>
#include <QFile>
#include <vector>

#include "platform/qt/QtClipboard.h"
#include "support/PrintableReportWindowFixture.h"

namespace {

// A rod that hangs on one roller: nothing holds its other end against the load.
Truss LooseRod() { return TrussBuilder().Member(2, 2, 8, 2, "AB").Roller(2, 2, "R").Force(8, 2, 5, 0); }

// Without a load four equations say twice of two forces that they are zero.
Truss IdleRod() { return TrussBuilder().Member(2, 2, 8, 2, "AB").Roller(2, 2, "R"); }

class PrintableReportWindowTest : public PrintableReportWindowFixture {
 protected:
  void Activate() const {
    QEvent activation(QEvent::WindowActivate);
    QApplication::sendEvent(window_.get(), &activation);
    QApplication::processEvents();
  }
};

// --- places

TEST_F(PrintableReportWindowTest, ItsPartsFollowTheSizeOfTheWindow) {
  Opened();
  for (const QSize size : {QSize(720, 620), QSize(900, 450), QSize(641, 333)}) {
    window_->resize(size);
    QApplication::processEvents();
    ASSERT_EQ(window_->size(), size);
    const int documentHeight = size.height() - 62;
    EXPECT_EQ(Box().size(), QSize(size.width() - 31, documentHeight));
    EXPECT_EQ(Button("cmdCopyToClipboard").x(), size.width() / 2 - 20 - 73);
    EXPECT_EQ(Button("cmdCopyToClipboard").width(), 73);
    EXPECT_EQ(Button("cmdReportClose").x(), size.width() / 2 + 20);
    for (const char* name : {"cmdReportPrint", "cmdCopyToClipboard", "cmdReportClose", "cmdReportSaveAs"}) {
      EXPECT_EQ(Button(name).y(), documentHeight + 20) << name;
    }
  }
}

TEST_F(PrintableReportWindowTest, NothingOverlapsInTheSmallestWindow) {
  Opened();
  window_->resize(1, 1);
  QApplication::processEvents();
  const std::vector<QWidget*> parts = {&Box(),
                                       &Button("cmdReportPrint"),
                                       &Child<QCheckBox>(*window_, "chkReportWith(1)"),
                                       &Child<QCheckBox>(*window_, "chkReportWith(2)"),
                                       &Child<QCheckBox>(*window_, "chkReportWith(3)"),
                                       &Child<QCheckBox>(*window_, "chkReportWith(4)"),
                                       &Button("cmdCopyToClipboard"),
                                       &Button("cmdReportClose"),
                                       &Button("cmdReportSaveAs")};
  for (const QWidget* part : parts) {
    EXPECT_TRUE(window_->rect().contains(part->geometry())) << part->objectName().toStdString();
    for (const QWidget* other : parts) {
      if (part == other) continue;
      EXPECT_FALSE(part->geometry().intersects(other->geometry()))
          << part->objectName().toStdString() << ", " << other->objectName().toStdString();
    }
  }
}

TEST_F(PrintableReportWindowTest, TheButtonsSayWhatTheyDo) {
  Created();
  EXPECT_EQ(window_->objectName(), QStringLiteral("frmReport"));
  EXPECT_EQ(Button("cmdCopyToClipboard").text(), QStringLiteral("&Copy"));
  EXPECT_EQ(
      Button("cmdCopyToClipboard").toolTip(),
      QStringLiteral("copies the selected text or (if nothing selected) the entire report to the clipboard"));
  EXPECT_EQ(Button("cmdReportClose").text(), QStringLiteral("Close"));
  EXPECT_EQ(Button("cmdReportPrint").text(), QStringLiteral("&Print ..."));
  EXPECT_EQ(Button("cmdReportSaveAs").text(), QStringLiteral("&Save as ..."));
}

TEST_F(PrintableReportWindowTest, ThePaperIsWhiteInADarkStyle) {
  const QPalette before = QApplication::palette();
  QPalette dark = before;
  dark.setColor(QPalette::Base, Qt::black);
  dark.setColor(QPalette::Text, Qt::white);
  QApplication::setPalette(dark);
  Opened();
  const QImage seen = Box().viewport()->grab().toImage();
  EXPECT_EQ(seen.pixelColor(seen.width() - 3, seen.height() - 3), QColor(Qt::white));
  QApplication::setPalette(before);
}

// --- the document

TEST_F(PrintableReportWindowTest, TheDocumentHoldsAllSectionsInTheirOrder) {
  Opened();
  const std::string text = Text();
  std::size_t place = 0;
  for (const char* heading :
       {"Orvane",
        "Picture of the truss with applied forces:", "Naming the joints, member forces and reaction forces:",
        "Counting the number of unknown forces:", "Counting the number of determining equations:",
        "Conclusions regarding existence and uniqueness of solution:", "The equations:",
        "Equations for joint A", "Equations for joint B", "Equations for joint C",
        "The augmented matrix for this system of equations:", "The augmented matrix in RREF form:",
        "The solution:", "1414"}) {
    const std::size_t found = text.find(heading, place);
    ASSERT_NE(found, std::string::npos) << heading;
    place = found;
  }
}

TEST_F(PrintableReportWindowTest, TheDocumentIsTheOneThatIsSavedAndPrinted) {
  Opened();
  const ReportSubject subject{truss_, analysis_, NumberFormat{}};
  const ReportDocument report = BuildReportDocument(
      subject, {clipboard_, clock_, messages_}, [this] { return bitmap_; }, 0);
  EXPECT_EQ(report.State, BuiltReport::Whole);
  EXPECT_EQ(Text(), report.Text->toPlainText().toStdString());
}

TEST_F(PrintableReportWindowTest, HeadingsAreBoldAndDarkRedTextsBlackTablesMonospaced) {
  Opened();
  const QTextCharFormat heading = FormatOf("The solution:");
  EXPECT_EQ(heading.fontWeight(), QFont::Bold);
  EXPECT_EQ(heading.foreground().color(), QColor(128, 0, 0));
  const QTextCharFormat body = FormatOf("This truss contains 6 unknown forces");
  EXPECT_NE(body.fontWeight(), QFont::Bold);
  EXPECT_EQ(body.foreground().color(), QColor(Qt::black));
  const QTextCharFormat header = FormatOf("Eqn.");
  EXPECT_EQ(header.foreground().color(), QColor(0, 0, 255));
  EXPECT_EQ(header.fontFamilies().toStringList(), QStringList(QStringLiteral("Courier New")));
  EXPECT_EQ(FormatOf("1414").fontFamilies().toStringList(), QStringList(QStringLiteral("Courier New")));
}

TEST_F(PrintableReportWindowTest, BothPicturesComeOverTheClipboard) {
  Opened();
  EXPECT_EQ(NumPicturesPut(), 2);
  EXPECT_EQ(NumImages(), 2);
}

TEST_F(PrintableReportWindowTest, ATrussWithoutAFileGoesFromTheTitleToThePicture) {
  Opened();
  EXPECT_THAT(Text(), testing::ContainsRegex("^\nOrvane\n+Picture of the truss"));
}

TEST_F(PrintableReportWindowTest, AFileNameIsShownAsItIsWritten) {
  Truss truss = LoadedTriangle();
  truss.FileName = "/home/me/<b>bold & brave</b>.trs";
  Opened(truss);
  EXPECT_THAT(Text(),
              testing::HasSubstr("Name of file containing truss:\n\n/home/me/<b>bold & brave</b>.trs \n"));
}

TEST_F(PrintableReportWindowTest, NamesAreShownAsTheyAreWritten) {
  Opened(TrussBuilder()
             .Member(2, 2, 10, 2, "<i>{\\b}</i>")
             .Clamp(2, 2, "\x80\xE9", "&amp;")
             .Roller(10, 2)
             .Joint(2, 2, "<img src=x>"));
  EXPECT_THAT(Text(), testing::HasSubstr("<i>{\\b}</i>"));
  EXPECT_THAT(Text(), testing::HasSubstr("\xE2\x82\xAC\xC3\xA9"));
  EXPECT_THAT(Text(), testing::HasSubstr("&amp;"));
  EXPECT_THAT(Text(), testing::HasSubstr("Equations for joint <img src=x>"));
  EXPECT_EQ(NumImages(), 2);
}

TEST_F(PrintableReportWindowTest, AnInconsistentSystemHasItsConclusionInPlaceOfTheTable) {
  Opened(LooseRod());
  ASSERT_EQ(analysis_.Reading.Code, Outcome::Inconsistent);
  EXPECT_THAT(Text().substr(Text().find("The solution:")), testing::HasSubstr("inconsistent"));
  EXPECT_EQ(Box().document()->lastBlock().begin().fragment().charFormat().fontFamilies().toStringList(),
            QStringList(QStringLiteral("Arial")));
}

TEST_F(PrintableReportWindowTest, ARedundantSystemHasItsConclusionBelowTheTable) {
  Opened(IdleRod());
  ASSERT_EQ(analysis_.Reading.Code, Outcome::Redundant);
  const std::string solution = Text().substr(Text().find("The solution:"));
  EXPECT_THAT(solution, testing::HasSubstr("AB"));
  EXPECT_THAT(solution, testing::HasSubstr("redundant"));
}

TEST_F(PrintableReportWindowTest, AnotherActivationKeepsTheDocumentAndTheSelection) {
  Opened();
  const QTextDocument* document = Box().document();
  Select("Counting the number");
  Activate();
  EXPECT_EQ(Box().document(), document);
  EXPECT_EQ(Box().textCursor().selectedText(), QStringLiteral("Counting the number"));
  EXPECT_EQ(NumPicturesPut(), 2);
}

TEST_F(PrintableReportWindowTest, AnActivationAfterAChangeBuildsTheDocumentAnew) {
  Opened();
  truss_.Settings.SigFigs = 7;
  Activate();
  EXPECT_THAT(Text(), testing::HasSubstr("1414.214"));
  EXPECT_EQ(NumPicturesPut(), 4);
}

TEST_F(PrintableReportWindowTest, TheReportWindowIsLeftWithTheSolutionsInTheReportFont) {
  Truss truss = LoadedTriangle();
  truss.Settings.ReportFontSize = 14;
  Opened(truss);
  EXPECT_EQ(report_.windowTitle(), QStringLiteral("Report - the forces"));
  const QFont font = Child<QWidget>(report_, "EqnGrid").font();
  EXPECT_NEAR(font.pointSizeF() * report_.logicalDpiY() / 96, 14, 0.01);
  EXPECT_FALSE(report_.isVisible());
}

TEST_F(PrintableReportWindowTest, BuildingLeavesTheUsersClipboardAsItWas) {
  QApplication::clipboard()->setText(QStringLiteral("mine"));
  QtClipboard board;
  Analyse(LoadedTriangle());
  window_ = std::make_unique<PrintableReportWindow>(
      PrintableReportWindow::Partners{.Subject = {truss_, analysis_, NumberFormat{}},
                                      .Report = report_,
                                      .Access = {board, clock_, messages_},
                                      .Bitmap = [&board] { return board.Bitmap(); },
                                      .Chooser = chooser_,
                                      .Directory = {}},
      nullptr);
  window_->show();
  ASSERT_TRUE(QTest::qWaitFor([this] { return window_->HasDocument(); }));
  EXPECT_EQ(NumImages(), 2);
  EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("mine"));
}

TEST_F(PrintableReportWindowTest, WithoutAClipboardTheReportHasNoPicturesAndTheUserIsTold) {
  clipboard_.FailuresOfClear = 1000;
  Opened();
  EXPECT_EQ(NumImages(), 0);
  ASSERT_EQ(messages_.Shown.size(), 2U);
  EXPECT_EQ(messages_.Shown.front().Text, "Unable to access clipboard\r\nTry again later");
  EXPECT_THAT(Text(), testing::HasSubstr("The solution:"));
}

TEST_F(PrintableReportWindowTest, AReportThatLacksAPictureIsBuiltAgainAtTheNextActivation) {
  for (int* failures : {&clipboard_.FailuresOfClear, &clipboard_.FailuresOfPicture}) {
    *failures = 11;
    Opened();
    EXPECT_EQ(NumImages(), 1);
    QApplication::processEvents();
    EXPECT_EQ(NumImages(), 1) << "built again though nobody has come back to the window";
    Activate();
    EXPECT_EQ(NumImages(), 2);
    const QTextDocument* document = Box().document();
    Activate();
    EXPECT_EQ(Box().document(), document) << "built again though nothing is missing";
  }
}

TEST_F(PrintableReportWindowTest, ItsOwnMessagesDoNotBuildItAgain) {
  progressDelay_ = 0;
  clipboard_.FailuresOfClear = 1000;
  Created();
  // The window becomes active when a message or the progress above it is closed.
  WhenProgressShows([this](QProgressDialog&) { Activate(); });
  window_->show();
  ASSERT_TRUE(QTest::qWaitFor([this] { return window_->HasDocument(); }));
  if (!window_->isActiveWindow()) Activate();
  QApplication::processEvents();
  EXPECT_EQ(messages_.Shown.size(), 2U) << "one for each picture";
  Activate();
  EXPECT_EQ(messages_.Shown.size(), 4U);
}

TEST_F(PrintableReportWindowTest, CancellingTheBuildClosesTheWindow) {
  progressDelay_ = 0;
  Created();
  WhenProgressShows(PressCancel);
  EXPECT_EQ(window_->exec(), QDialog::Rejected);
  EXPECT_FALSE(window_->HasDocument());
  EXPECT_FALSE(window_->IsBusy());
  EXPECT_NE(report_.windowTitle(), QStringLiteral("Report - the forces"));
}

TEST_F(PrintableReportWindowTest, ClosingTheWindowEndsTheBuild) {
  progressDelay_ = 0;
  Created();
  WhenProgressShows([this](QProgressDialog&) { window_->close(); });
  EXPECT_EQ(window_->exec(), QDialog::Rejected);
  EXPECT_FALSE(window_->HasDocument());
}

TEST_F(PrintableReportWindowTest, AnActivationDuringTheBuildChangesNothing) {
  progressDelay_ = 0;
  Created();
  WhenProgressShows([this](QProgressDialog&) {
    EXPECT_TRUE(window_->IsBusy());
    QEvent activation(QEvent::WindowActivate);
    QApplication::sendEvent(window_.get(), &activation);
    Click("cmdReportSaveAs");
    Click("cmdCopyToClipboard");
  });
  window_->show();
  ASSERT_TRUE(QTest::qWaitFor([this] { return window_->HasDocument(); }));
  QApplication::processEvents();
  EXPECT_EQ(NumPicturesPut(), 2);
  EXPECT_FALSE(clipboard_.HeldText);
  EXPECT_TRUE(chooser_.Saved.empty());
}

// --- keys

TEST_F(PrintableReportWindowTest, EscapeAndEnterCloseTheWindow) {
  for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return}) {
    Opened();
    QTest::keyClick(&Box(), key);
    EXPECT_FALSE(window_->isVisible()) << key;
  }
  Opened();
  Click("cmdReportClose");
  EXPECT_FALSE(window_->isVisible());
}

TEST_F(PrintableReportWindowTest, TabGoesFromTheTextThroughTheButtonsFromLeftToRight) {
  Opened();
  EXPECT_EQ(window_->focusWidget(), &Box());
  for (const char* name : {"cmdReportPrint", "chkReportWith(1)", "chkReportWith(2)", "cmdCopyToClipboard",
                           "cmdReportClose", "chkReportWith(3)", "chkReportWith(4)", "cmdReportSaveAs"}) {
    QTest::keyClick(window_->focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(window_->focusWidget(), &Child<QWidget>(*window_, name)) << name;
  }
  QTest::keyClick(window_->focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(window_->focusWidget(), &Box());
}

// --- sections beyond the usual ones

TEST_F(PrintableReportWindowTest, AddsWhyWhenItsBoxIsChecked) {
  Opened();
  const std::string usual = Text();
  auto& why = Child<QCheckBox>(*window_, "chkReportWith(2)");
  EXPECT_FALSE(why.isChecked()) << "the usual report at first";
  EXPECT_EQ(usual.find("Why this conclusion:"), std::string::npos);
  QTest::mouseClick(&why, Qt::LeftButton, {}, QPoint(8, why.height() / 2));
  ASSERT_TRUE(why.isChecked());
  ASSERT_TRUE(QTest::qWaitFor([&] { return Text().find("Why this conclusion:") != std::string::npos; }));
  EXPECT_TRUE(Text().starts_with(usual));
  QTest::keyClick(&why, Qt::Key_Space);
  EXPECT_TRUE(QTest::qWaitFor([&] { return Text() == usual; }));
}

TEST_F(PrintableReportWindowTest, SavesTheSectionsThatItShows) {
  Opened();
  Child<QCheckBox>(*window_, "chkReportWith(2)").click();
  ASSERT_TRUE(QTest::qWaitFor([&] { return Text().find("Why this conclusion:") != std::string::npos; }));
  chooser_.Choice = directory_ / "report.html";
  Click("cmdReportSaveAs");
  QFile file(QString::fromStdString(directory_ / "report.html"));
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_TRUE(file.readAll().contains("Why this conclusion:"));
}

}  // namespace
