// What leaves the window of the printable report: copies, files and prints.
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <utility>
#include <vector>

#include "paper/qt/DocumentFiles.h"
#include "platform/FileBytes.h"
#include "support/PrintableReportWindowFixture.h"

namespace {

class PrintableReportOutput : public PrintableReportWindowFixture {};

// --- copying

TEST_F(PrintableReportOutput, CopyTakesTheSelection) {
  Opened();
  Select("This truss contains");
  Click("cmdCopyToClipboard");
  ASSERT_TRUE(clipboard_.HeldText);
  EXPECT_EQ(clipboard_.HeldText->Plain, "This truss contains");
  EXPECT_THAT(clipboard_.HeldText->Rtf, testing::StartsWith("{\\rtf1"));
  EXPECT_THAT(clipboard_.HeldText->Rtf, testing::HasSubstr("This truss contains"));
  EXPECT_THAT(clipboard_.HeldText->Html, testing::HasSubstr("This truss contains"));
  EXPECT_EQ(Box().textCursor().selectedText(), QStringLiteral("This truss contains"));
}

TEST_F(PrintableReportOutput, CopyTakesEverythingWhenNothingIsSelected) {
  Opened();
  Click("cmdCopyToClipboard");
  ASSERT_TRUE(clipboard_.HeldText);
  EXPECT_EQ(*clipboard_.HeldText, ToForms(QTextCursor(Box().document())));
  EXPECT_THAT(clipboard_.HeldText->Rtf, testing::HasSubstr("The solution:"));
}

TEST_F(PrintableReportOutput, TheKeyboardSelectsAndCopies) {
  Opened();
  Box().setFocus();
  QTest::keyClick(&Box(), Qt::Key_Down);
  QTest::keyClick(&Box(), Qt::Key_End, Qt::ShiftModifier);
  EXPECT_EQ(Box().textCursor().selectedText(), QStringLiteral("Orvane"));
  QTest::keyClick(&Box(), Qt::Key_C, Qt::ControlModifier);
  ASSERT_TRUE(clipboard_.HeldText);
  EXPECT_EQ(clipboard_.HeldText->Plain, "Orvane");
  Box().moveCursor(QTextCursor::Start);
  QTest::keyClick(&Box(), Qt::Key_C, Qt::ControlModifier);
  ASSERT_TRUE(clipboard_.HeldText);
  EXPECT_THAT(clipboard_.HeldText->Plain, testing::HasSubstr("The solution:"));
}

TEST_F(PrintableReportOutput, TheTextCannotBeChanged) {
  Opened();
  const std::string before = Text();
  Box().setFocus();
  QTest::keyClicks(&Box(), QStringLiteral("x"));
  QTest::keyClick(&Box(), Qt::Key_V, Qt::ControlModifier);
  QTest::keyClick(&Box(), Qt::Key_Delete);
  EXPECT_EQ(Text(), before);
}

TEST_F(PrintableReportOutput, AClipboardThatFailsThreeTimesIsTriedAgain) {
  Opened();
  clipboard_.FailuresOfText = 3;
  Click("cmdCopyToClipboard");
  EXPECT_TRUE(clipboard_.HeldText);
  EXPECT_EQ(clock_.Pauses, std::vector<int>({100, 100, 100}));
  EXPECT_TRUE(messages_.Shown.empty());
}

TEST_F(PrintableReportOutput, AClipboardThatFailsToTheTenthRetryIsGivenUpWithAMessage) {
  Opened();
  clipboard_.FailuresOfText = 11;
  Click("cmdCopyToClipboard");
  EXPECT_FALSE(clipboard_.HeldText);
  EXPECT_EQ(clock_.Pauses, std::vector<int>(10, 100));
  ASSERT_EQ(messages_.Shown.size(), 1U);
  EXPECT_EQ(messages_.Shown[0].Text, "Unable to access clipboard\r\nTry again later");
}

// --- saving

TEST_F(PrintableReportOutput, TheEndingOfTheNameDecidesTheKindOfFile) {
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

TEST_F(PrintableReportOutput, TheChooserOffersTheKindsOfFilesBesideTheTruss) {
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

TEST_F(PrintableReportOutput, TheChooserProposesTheNameOfTheTruss) {
  for (const auto& [file, proposed] : {std::pair("bridge.trs", "bridge.rtf"),
                                       {"v1.2.trs", "v1.2.rtf"},
                                       {"no ending", "no ending.rtf"},
                                       {"", "Orvane report.rtf"}}) {
    Truss truss = LoadedTriangle();
    if (*file != 0) truss.FileName = directory_ / file;
    Opened(truss);
    chooser_.Saved.clear();
    QTest::keyClick(&Box(), Qt::Key_S, Qt::ControlModifier);
    ASSERT_EQ(chooser_.Saved.size(), 1U);
    EXPECT_EQ(chooser_.Saved[0].ProposedName, proposed);
  }
}

TEST_F(PrintableReportOutput, ANameWithoutAKnownEndingGetsThatOfRichText) {
  Opened();
  chooser_.Choice = directory_ / "report.v2";
  Click("cmdReportSaveAs");
  EXPECT_THAT(ReadWholeFile(directory_ / "report.v2.rtf").Bytes, testing::StartsWith("{\\rtf1"));
  EXPECT_FALSE(FileExists(directory_ / "report.v2"));
  EXPECT_TRUE(messages_.Shown.empty());
}

TEST_F(PrintableReportOutput, AnEndingThatWasAddedReplacesNoFileUnasked) {
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

TEST_F(PrintableReportOutput, AFileThatCannotBeWrittenIsToldWithItsReason) {
  Opened();
  chooser_.Choice = directory_ / "missing/report.rtf";
  Click("cmdReportSaveAs");
  ASSERT_EQ(messages_.Shown.size(), 1U);
  EXPECT_EQ(messages_.Shown[0].Text, "The report could not be saved as " + *chooser_.Choice + ".");
  EXPECT_EQ(messages_.Shown[0].Details, "Its folder does not exist.");
  EXPECT_EQ(messages_.Shown[0].Icon, MessageIcon::Exclamation);
}

TEST_F(PrintableReportOutput, ACancelledChooserSavesNothing) {
  Opened();
  Click("cmdReportSaveAs");
  EXPECT_EQ(chooser_.Saved.size(), 1U);
  EXPECT_TRUE(messages_.Shown.empty());
  chooser_.CannotBeShown = true;
  Click("cmdReportSaveAs");
  EXPECT_EQ(messages_.Shown.size(), 1U);
}

TEST_F(PrintableReportOutput, CancellingWhileSavingWritesNothing) {
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

TEST_F(PrintableReportOutput, PrintShowsThePagesFirst) {
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

TEST_F(PrintableReportOutput, ThePaperHasItsMarginsAndThePrintItsPages) {
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

TEST_F(PrintableReportOutput, APrinterThatFailsIsTold) {
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

TEST_F(PrintableReportOutput, CancellingThePagesClosesThePreview) {
  progressDelay_ = 0;
  Opened();
  WhenProgressShows(PressCancel);
  Click("cmdReportPrint");
  EXPECT_TRUE(window_->isVisible());
  EXPECT_FALSE(window_->IsBusy());
  EXPECT_TRUE(messages_.Shown.empty());
}

}  // namespace
