// The window of the printable report on its own: its places, its document, and what its buttons do.
#include "reports/PrintableReportWindow.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QProgressDialog>
#include <QPushButton>
#include <QTextBlock>
#include <QTextEdit>
#include <QTextFragment>
#include <algorithm>
#include <vector>

#include "document/FileBytes.h"
#include "platform/qt/DocumentFiles.h"
#include "platform/qt/QtClipboard.h"
#include "reports/ReportWindow.h"
#include "support/FakeFileChooser.h"
#include "support/FakeMessageBox.h"
#include "support/ModalDialog.h"
#include "support/TemporaryDirectory.h"
#include "support/TrussBuilder.h"

namespace {

// A clipboard whose next tries fail, and which remembers what was put on it.
class FakeClipboard : public Clipboard {
 public:
  bool Clear() override { return Try(); }
  bool PutRichText(const RichTextForms& text) override {
    if (!Try()) return false;
    Held.push_back(text);
    return true;
  }
  bool PutPicture(const Picture& /*picture*/) override {
    if (!Try()) return false;
    ++NumPictures;
    return true;
  }

  int Failures = 0;
  int NumPictures = 0;
  std::vector<RichTextForms> Held;

 private:
  bool Try() { return Failures == 0 || Failures-- == 0; }
};

class FakeClock : public Clock {
 public:
  void Pause(int milliseconds) override { Pauses.push_back(milliseconds); }
  std::vector<int> Pauses;
};

Truss LoadedTriangle() {
  return TrussBuilder()
      .Member(2, 2, 18, 2, "AB")
      .Member(2, 2, 10, 10, "AC")
      .Member(18, 2, 10, 10, "BC")
      .Clamp(2, 2, "Ax", "Ay")
      .Roller(18, 2, "By")
      .Force(10, 10, 0, -2000)
      .Joint(2, 2, "A")
      .Joint(18, 2, "B")
      .Joint(10, 10, "C");
}

// A rod that hangs on one roller: nothing holds its other end against the load.
Truss LooseRod() { return TrussBuilder().Member(2, 2, 8, 2, "AB").Roller(2, 2, "R").Force(8, 2, 5, 0); }

// Without a load four equations say twice of two forces that they are zero.
Truss IdleRod() { return TrussBuilder().Member(2, 2, 8, 2, "AB").Roller(2, 2, "R"); }

class PrintableReportWindowTest : public testing::Test {
 protected:
  void Analyse(const Truss& truss) {
    truss_ = truss;
    truss_.View = DeriveView(truss_.Settings, CanvasBounds{});
    analysis_ = SolveTruss(truss_);
  }

  // The window of the truss, not yet shown.
  PrintableReportWindow& Created(const Truss& truss = LoadedTriangle()) {
    window_.reset();
    Analyse(truss);
    window_ = std::make_unique<PrintableReportWindow>(
        PrintableReportWindow::Partners{.Subject = {truss_, analysis_, NumberFormat{}},
                                        .Report = report_,
                                        .Access = {clipboard_, clock_, messages_},
                                        .Bitmap = [this] { return bitmap_; },
                                        .Chooser = chooser_,
                                        .Directory = directory_ / "program",
                                        .ProgressDelay = progressDelay_},
        nullptr);
    return *window_;
  }

  // The window with its document.
  PrintableReportWindow& Opened(const Truss& truss = LoadedTriangle()) {
    Created(truss).show();
    // Progress that was shown has been active last.
    EXPECT_TRUE(progressDelay_ == 0 || QTest::qWaitForWindowActive(window_.get()));
    EXPECT_TRUE(QTest::qWaitFor([this] { return window_->HasDocument(); }));
    return *window_;
  }

  QTextEdit& Box() const { return Child<QTextEdit>(*window_, "RichTextBox1"); }
  QPushButton& Button(const char* name) const { return Child<QPushButton>(*window_, name); }
  void Click(const char* button) const { QTest::mouseClick(&Button(button), Qt::LeftButton); }
  std::string Text() const { return Box().toPlainText().toStdString(); }

  void Select(const char* text) const {
    Box().setTextCursor(Box().document()->find(QString::fromUtf8(text)));
    ASSERT_TRUE(Box().textCursor().hasSelection());
  }

  // The format of the first place of a text.
  QTextCharFormat FormatOf(const char* text) const {
    const QTextCursor found = Box().document()->find(QString::fromUtf8(text));
    EXPECT_FALSE(found.isNull()) << text;
    return found.charFormat();
  }

  int NumImages() const {
    int images = 0;
    for (QTextBlock block = Box().document()->begin(); block.isValid(); block = block.next()) {
      for (auto part = block.begin(); !part.atEnd(); ++part)
        images += part.fragment().charFormat().isImageFormat();
    }
    return images;
  }

  // Does something as soon as progress is shown.
  void WhenProgressShows(const std::function<void(QProgressDialog&)>& act) {
    auto* timer = new QTimer(window_.get());
    QObject::connect(timer, &QTimer::timeout, timer, [timer, act] {
      for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* progress = qobject_cast<QProgressDialog*>(widget);
        if (progress == nullptr || !progress->isVisible()) continue;
        timer->deleteLater();
        act(*progress);
        return;
      }
    });
    timer->start(0);
  }

  static void PressCancel(QProgressDialog& progress) {
    QTest::mouseClick(progress.findChild<QPushButton*>(), Qt::LeftButton);
  }

  TemporaryDirectory directory_;
  FakeClipboard clipboard_;
  FakeClock clock_;
  FakeMessageBox messages_;
  FakeFileChooser chooser_;
  QImage bitmap_ = [] {
    QImage image(30, 20, QImage::Format_RGB32);
    image.fill(Qt::green);
    return image;
  }();
  int progressDelay_ = 60'000;
  Truss truss_;
  TrussAnalysis analysis_;
  ReportWindow report_{NumberFormat{}};
  std::unique_ptr<PrintableReportWindow> window_;
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
  const std::vector<QWidget*> parts = {&Box(), &Button("cmdReportPrint"), &Button("cmdCopyToClipboard"),
                                       &Button("cmdReportClose"), &Button("cmdReportSaveAs")};
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
  const auto document = BuildReportDocument(
      subject, {clipboard_, clock_, messages_}, [this] { return bitmap_; }, 0);
  EXPECT_EQ(Text(), document->toPlainText().toStdString());
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
  EXPECT_EQ(clipboard_.NumPictures, 2);
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
  QEvent activation(QEvent::WindowActivate);
  QApplication::sendEvent(window_.get(), &activation);
  QApplication::processEvents();
  EXPECT_EQ(Box().document(), document);
  EXPECT_EQ(Box().textCursor().selectedText(), QStringLiteral("Counting the number"));
  EXPECT_EQ(clipboard_.NumPictures, 2);
}

TEST_F(PrintableReportWindowTest, AnActivationAfterAChangeBuildsTheDocumentAnew) {
  Opened();
  truss_.Settings.SigFigs = 7;
  QEvent activation(QEvent::WindowActivate);
  QApplication::sendEvent(window_.get(), &activation);
  QApplication::processEvents();
  EXPECT_THAT(Text(), testing::HasSubstr("1414.214"));
  EXPECT_EQ(clipboard_.NumPictures, 4);
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
  clipboard_.Failures = 1000;
  Opened();
  EXPECT_EQ(NumImages(), 0);
  ASSERT_EQ(messages_.Shown.size(), 2U);
  EXPECT_EQ(messages_.Shown.front().Text, "Unable to access clipboard\r\nTry again later");
  EXPECT_THAT(Text(), testing::HasSubstr("The solution:"));
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
  EXPECT_EQ(clipboard_.NumPictures, 2);
  EXPECT_TRUE(clipboard_.Held.empty());
  EXPECT_TRUE(chooser_.Saved.empty());
}

// --- copying

TEST_F(PrintableReportWindowTest, CopyTakesTheSelection) {
  Opened();
  Select("This truss contains");
  Click("cmdCopyToClipboard");
  ASSERT_EQ(clipboard_.Held.size(), 1U);
  EXPECT_EQ(clipboard_.Held[0].Plain, "This truss contains");
  EXPECT_THAT(clipboard_.Held[0].Rtf, testing::StartsWith("{\\rtf1"));
  EXPECT_THAT(clipboard_.Held[0].Rtf, testing::HasSubstr("This truss contains"));
  EXPECT_THAT(clipboard_.Held[0].Html, testing::HasSubstr("This truss contains"));
  EXPECT_EQ(Box().textCursor().selectedText(), QStringLiteral("This truss contains"));
}

TEST_F(PrintableReportWindowTest, CopyTakesEverythingWhenNothingIsSelected) {
  Opened();
  Click("cmdCopyToClipboard");
  ASSERT_EQ(clipboard_.Held.size(), 1U);
  EXPECT_EQ(clipboard_.Held[0], ToForms(QTextCursor(Box().document())));
  EXPECT_THAT(clipboard_.Held[0].Rtf, testing::HasSubstr("The solution:"));
}

TEST_F(PrintableReportWindowTest, TheKeyboardSelectsAndCopies) {
  Opened();
  Box().setFocus();
  QTest::keyClick(&Box(), Qt::Key_Down);
  QTest::keyClick(&Box(), Qt::Key_End, Qt::ShiftModifier);
  EXPECT_EQ(Box().textCursor().selectedText(), QStringLiteral("Orvane"));
  QTest::keyClick(&Box(), Qt::Key_C, Qt::ControlModifier);
  Box().moveCursor(QTextCursor::Start);
  QTest::keyClick(&Box(), Qt::Key_C, Qt::ControlModifier);
  ASSERT_EQ(clipboard_.Held.size(), 2U);
  EXPECT_EQ(clipboard_.Held[0].Plain, "Orvane");
  EXPECT_THAT(clipboard_.Held[1].Plain, testing::HasSubstr("The solution:"));
}

TEST_F(PrintableReportWindowTest, TheTextCannotBeChanged) {
  Opened();
  const std::string before = Text();
  Box().setFocus();
  QTest::keyClicks(&Box(), QStringLiteral("x"));
  QTest::keyClick(&Box(), Qt::Key_V, Qt::ControlModifier);
  QTest::keyClick(&Box(), Qt::Key_Delete);
  EXPECT_EQ(Text(), before);
}

TEST_F(PrintableReportWindowTest, AClipboardThatFailsThreeTimesIsTriedAgain) {
  Opened();
  clipboard_.Failures = 3;
  Click("cmdCopyToClipboard");
  EXPECT_EQ(clipboard_.Held.size(), 1U);
  EXPECT_EQ(clock_.Pauses, std::vector<int>({100, 100, 100}));
  EXPECT_TRUE(messages_.Shown.empty());
}

TEST_F(PrintableReportWindowTest, AClipboardThatFailsToTheTenthRetryIsGivenUpWithAMessage) {
  Opened();
  clipboard_.Failures = 11;
  Click("cmdCopyToClipboard");
  EXPECT_TRUE(clipboard_.Held.empty());
  EXPECT_EQ(clock_.Pauses, std::vector<int>(10, 100));
  ASSERT_EQ(messages_.Shown.size(), 1U);
  EXPECT_EQ(messages_.Shown[0].Text, "Unable to access clipboard\r\nTry again later");
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
  for (const char* name : {"cmdReportPrint", "cmdCopyToClipboard", "cmdReportClose", "cmdReportSaveAs"}) {
    QTest::keyClick(window_->focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(window_->focusWidget(), &Button(name)) << name;
  }
  QTest::keyClick(window_->focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(window_->focusWidget(), &Box());
}

// --- saving

TEST_F(PrintableReportWindowTest, TheEndingOfTheNameDecidesTheKindOfFile) {
  Opened();
  const std::vector<std::pair<std::string, std::string>> kinds = {
      {"r.rtf", "{\\rtf1"}, {"r.pdf", "%PDF-"}, {"r.odt", "PK"}, {"r.html", "<!DOCTYPE"}, {"R.PDF", "%PDF-"}};
  for (const auto& [name, beginning] : kinds) {
    chooser_.Choice = directory_ / name;
    Click("cmdReportSaveAs");
    EXPECT_THAT(ReadWholeFile(*chooser_.Choice).Bytes, testing::StartsWith(beginning)) << name;
  }
  EXPECT_TRUE(messages_.Shown.empty());
  EXPECT_FALSE(window_->IsBusy());
}

TEST_F(PrintableReportWindowTest, TheChooserOffersTheKindsOfFilesBesideTheTruss) {
  Truss truss = LoadedTriangle();
  truss.FileName = directory_ / "a.trs";
  Opened(truss);
  QTest::keyClick(&Box(), Qt::Key_S, Qt::ControlModifier);
  ASSERT_EQ(chooser_.Saved.size(), 1U);
  EXPECT_EQ(chooser_.Saved[0].Filter,
            "Rich Text (*.rtf)|*.rtf|PDF (*.pdf)|*.pdf|OpenDocument Text (*.odt)|*.odt|Web Page "
            "(*.html)|*.html");
  EXPECT_EQ(chooser_.Saved[0].FilterIndex, 1);
  EXPECT_EQ(chooser_.Saved[0].InitialDirectory + "/a.trs", truss_.FileName);
}

TEST_F(PrintableReportWindowTest, ANameWithoutAKnownEndingGetsThatOfRichText) {
  Opened();
  chooser_.Choice = directory_ / "report.v2";
  Click("cmdReportSaveAs");
  EXPECT_THAT(ReadWholeFile(directory_ / "report.v2.rtf").Bytes, testing::StartsWith("{\\rtf1"));
  EXPECT_FALSE(FileExists(directory_ / "report.v2"));
  EXPECT_TRUE(messages_.Shown.empty());
}

TEST_F(PrintableReportWindowTest, AnEndingThatWasAddedReplacesNoFileUnasked) {
  Opened();
  const std::string existing = directory_.Put("report.rtf", "mine");
  chooser_.Choice = directory_ / "report";
  messages_.Answers = {MessageAnswer::No, MessageAnswer::Yes};
  Click("cmdReportSaveAs");
  EXPECT_EQ(ReadWholeFile(existing).Bytes, "mine");
  ASSERT_EQ(messages_.Shown.size(), 1U);
  EXPECT_EQ(messages_.Shown[0].Text, existing + " already exists.\nDo you want to replace it?");
  Click("cmdReportSaveAs");
  EXPECT_THAT(ReadWholeFile(existing).Bytes, testing::StartsWith("{\\rtf1"));
}

TEST_F(PrintableReportWindowTest, AFileThatCannotBeWrittenIsToldWithItsReason) {
  Opened();
  chooser_.Choice = directory_ / "missing/report.rtf";
  Click("cmdReportSaveAs");
  ASSERT_EQ(messages_.Shown.size(), 1U);
  EXPECT_EQ(messages_.Shown[0].Text,
            "The report could not be saved as " + *chooser_.Choice + ".\nThe folder does not exist.");
  EXPECT_EQ(messages_.Shown[0].Icon, MessageIcon::Exclamation);
}

TEST_F(PrintableReportWindowTest, ACancelledChooserSavesNothing) {
  Opened();
  Click("cmdReportSaveAs");
  EXPECT_EQ(chooser_.Saved.size(), 1U);
  EXPECT_TRUE(messages_.Shown.empty());
  chooser_.CannotBeShown = true;
  Click("cmdReportSaveAs");
  EXPECT_EQ(messages_.Shown.size(), 1U);
}

TEST_F(PrintableReportWindowTest, CancellingWhileSavingWritesNothing) {
  progressDelay_ = 0;
  Opened();
  for (const char* name : {"r.rtf", "r.pdf", "r.odt", "r.html"}) {
    chooser_.Choice = directory_ / name;
    WhenProgressShows(PressCancel);
    Click("cmdReportSaveAs");
    EXPECT_FALSE(FileExists(*chooser_.Choice)) << name;
  }
  EXPECT_TRUE(messages_.Shown.empty());
  EXPECT_TRUE(window_->isVisible());
}

// --- printing

TEST_F(PrintableReportWindowTest, PrintShowsThePagesFirst) {
  Opened();
  int pages = 0;
  WhenOpen<QPrintPreviewDialog>([&](QPrintPreviewDialog& preview) {
    pages = preview.findChild<QPrintPreviewWidget*>()->pageCount();
    preview.close();
  });
  QTest::keyClick(&Box(), Qt::Key_P, Qt::ControlModifier);
  EXPECT_GE(pages, 1);
  EXPECT_FALSE(window_->IsBusy());
  EXPECT_TRUE(window_->isVisible());
}

TEST_F(PrintableReportWindowTest, ThePaperHasItsMarginsAndThePrintItsPages) {
  Opened();
  const std::string path = directory_ / "out.pdf";
  WhenOpen<QPrintPreviewDialog>([&](QPrintPreviewDialog& preview) {
    QPrinter& printer = *preview.printer();
    const QMarginsF margins = printer.pageLayout().margins(QPageLayout::Millimeter);
    for (const double margin : {margins.left(), margins.top(), margins.right(), margins.bottom()}) {
      EXPECT_NEAR(margin, 20, 0.5);
    }
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(QString::fromStdString(path));
    preview.findChild<QPrintPreviewWidget*>()->print();
  });
  Click("cmdReportPrint");
  EXPECT_THAT(ReadWholeFile(path).Bytes, testing::StartsWith("%PDF-"));
  EXPECT_TRUE(messages_.Shown.empty());
}

TEST_F(PrintableReportWindowTest, APrinterThatFailsIsTold) {
  Opened();
  WhenOpen<QPrintPreviewDialog>([&](QPrintPreviewDialog& preview) {
    preview.printer()->setOutputFormat(QPrinter::PdfFormat);
    preview.printer()->setOutputFileName(QString::fromStdString(directory_ / "missing/out.pdf"));
    preview.findChild<QPrintPreviewWidget*>()->print();
  });
  Click("cmdReportPrint");
  ASSERT_EQ(messages_.Shown.size(), 1U);
  EXPECT_EQ(messages_.Shown[0].Text, "The report could not be printed.");
}

TEST_F(PrintableReportWindowTest, CancellingThePagesClosesThePreview) {
  progressDelay_ = 0;
  Opened();
  WhenProgressShows(PressCancel);
  Click("cmdReportPrint");
  EXPECT_TRUE(window_->isVisible());
  EXPECT_FALSE(window_->IsBusy());
  EXPECT_TRUE(messages_.Shown.empty());
}

}  // namespace
