// The printable report as files and on pages: that nothing is lost on the way, whatever the form.
#include "reports/PrintableReportFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QPrintPreviewWidget>
#include <QPrinter>
#include <algorithm>
#include <iterator>

#include "analysis/Analysis.h"
#include "document/TrussFile.h"
#include "paper/Page.h"
#include "paper/qt/PreviewPages.h"
#include "platform/qt/QtPicture.h"
#include "platform/qt/QtTextMeasure.h"
#include "reports/TrussPaint.h"
#include "support/OdtReading.h"
#include "support/PdfTools.h"
#include "support/ReportHeadings.h"
#include "support/RtfScan.h"
#include "support/TemporaryDirectory.h"
#include "support/TrussBuilder.h"

namespace {

using testing::Each;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Le;
using testing::Not;

constexpr DocumentFileFormat AllFormats[] = {DocumentFileFormat::Rtf, DocumentFileFormat::Pdf,
                                             DocumentFileFormat::Odt, DocumentFileFormat::Html};

struct Solved {
  explicit Solved(Truss truss) : Document(std::move(truss)), Analysis(SolveTruss(Document)) {}

  ReportSubject Subject() const { return {Document, Analysis, NumberFormat{}}; }
  QByteArray File(DocumentFileFormat format) const {
    return ReportFile(Subject(), format).value_or(QByteArray());
  }
  PdfUnderTest Pdf() const { return PdfUnderTest(File(DocumentFileFormat::Pdf)); }

  Truss Document;
  TrussAnalysis Analysis;
};

Solved Example(const std::string& name) {
  const std::string path = std::string(ORVANE_EXAMPLES_DIR) + '/' + name;
  Truss truss;
  CanvasBounds bounds;
  EXPECT_EQ(ReadTruss(truss, bounds, path), std::nullopt) << name;
  truss.FileName = path;
  return Solved(std::move(truss));
}

// A triangle on a clamp and a roller with a load.
TrussBuilder Triangle() {
  return TrussBuilder()
      .Member(0, 0, 4, 0, "AB")
      .Member(0, 0, 2, 3, "AC")
      .Member(4, 0, 2, 3, "BC")
      .Clamp(0, 0, "Ax", "Ay")
      .Roller(4, 0, "By")
      .Force(2, 3, 0, -10)
      .Joint(0, 0, "A")
      .Joint(4, 0, "B")
      .Joint(2, 3, "C");
}

// A strip whose members are named T1, T2 ...: its tables are far wider than paper.
Truss Strip(int panels) {
  TrussBuilder builder;
  int members = 0;
  const auto add = [&](int x1, int y1, int x2, int y2) {
    std::string name = "T";
    name.append(std::to_string(++members));
    builder.Member(static_cast<float>(x1), static_cast<float>(y1), static_cast<float>(x2),
                   static_cast<float>(y2), name);
  };
  for (int x = 0; x < panels; ++x) {
    add(x, 0, x + 1, 0);
    add(x, 1, x + 1, 1);
    add(x, 0, x, 1);
    add(x, 0, x + 1, 1);
  }
  add(panels, 0, panels, 1);
  builder.Clamp(0, 0, "Rx", "Ry")
      .Roller(static_cast<float>(panels), 0, "Rr")
      .Force(1, 1, 0, -1)
      .Joint(0, 0, "A");
  return builder;
}

// Long to write and to read, so it is done once.
const PdfUnderTest& PdfOfStrip() {
  static const PdfUnderTest pdf = Solved(Strip(25)).Pdf();
  return pdf;
}

void ExpectAllHeadingsInOrder(const std::string& text) {
  std::size_t from = 0;
  for (const char* heading : ReportHeadings) {
    const std::size_t found = text.find(heading, from);
    ASSERT_NE(found, std::string::npos) << heading;
    from = found + 1;
  }
}

std::string TextOfHtml(const QByteArray& html) {
  QTextDocument document;
  document.setHtml(QString::fromUtf8(html));
  return document.toPlainText().toStdString();
}

TEST(ReportFile, EverySectionStandsInThePdfInItsOrder) {
  for (const char* example :
       {"bowstring.trs", "crane.trs", "inconsistent.trs", "redundant.trs", "undetermined.trs"}) {
    SCOPED_TRACE(example);
    const std::string text = Example(example).Pdf().Text();
    ExpectAllHeadingsInOrder(text);
    EXPECT_THAT(text, HasSubstr(std::string(example) + " "));
  }
}

TEST(ReportFile, EverySectionStandsInRtfAndHtmlInItsOrder) {
  const Solved solved = Example("bowstring.trs");
  ExpectAllHeadingsInOrder(solved.File(DocumentFileFormat::Rtf).toStdString());
  ExpectAllHeadingsInOrder(TextOfHtml(solved.File(DocumentFileFormat::Html)));
}

TEST(ReportFile, FilesBeginAsTheirKindDoes) {
  const Solved solved(Triangle());
  EXPECT_TRUE(solved.File(DocumentFileFormat::Rtf).startsWith("{\\rtf1"));
  EXPECT_TRUE(solved.File(DocumentFileFormat::Pdf).startsWith("%PDF-"));
  EXPECT_TRUE(solved.File(DocumentFileFormat::Odt).startsWith("PK"));
  EXPECT_TRUE(solved.File(DocumentFileFormat::Html).trimmed().startsWith("<!DOCTYPE"));
}

TEST(ReportFile, TheTablesCellsStandInThePdf) {
  const std::string text = Solved(Triangle()).Pdf().Text();
  // 5 each at the supports; half of the load's 10 goes down each of the two sloping members.
  EXPECT_THAT(text, testing::ContainsRegex("Eqn. +Ax +Ay +By +AB +AC +BC +RHS"));
  EXPECT_THAT(text, testing::ContainsRegex("Ay +5\n"));
  EXPECT_THAT(text, testing::ContainsRegex("AC +6.009\n"));
}

TEST(ReportFile, ATrussWithoutAFileIsTitledWithTheProgramsName) {
  const auto pdf = Solved(Triangle()).Pdf();
  EXPECT_THAT(pdf.Text(), Not(HasSubstr("Name of file")));
  EXPECT_THAT(pdf.Text(), testing::ContainsRegex("Orvane +Page 1"));
}

TEST(ReportFile, AFileNameWithALineBreakStandsOnOneLineInTheFooter) {
  Truss truss = Triangle();
  truss.FileName = "two\nlines.trs";
  EXPECT_THAT(Solved(std::move(truss)).Pdf().Text(), testing::ContainsRegex("twolines.trs +Page 1"));
}

TEST(ReportFile, TheSameReportGivesTheSameBytes) {
  const Solved solved = Example("bowstring.trs");
  for (const DocumentFileFormat format : AllFormats) {
    const QByteArray bytes = solved.File(format);
    EXPECT_FALSE(bytes.isEmpty());
    EXPECT_TRUE(bytes == solved.File(format)) << static_cast<int>(format);
    EXPECT_FALSE(bytes.contains("CreationDate")) << static_cast<int>(format);
  }
}

TEST(ReportFile, ATableWiderThanPaperIsBrokenIntoBlocksWithItsFirstColumnAgain) {
  const std::vector<PdfWord>& words = PdfOfStrip().Words();
  const auto count = [&words](const std::string& text) {
    return std::ranges::count(words, text, &PdfWord::Text);
  };
  // One more time in each table than there are blocks beside the first.
  EXPECT_GE(count("Eqn."), 2 * 4);
  EXPECT_GE(count("A-x"), 4);

  constexpr double textEdge = (210 - 20) / 25.4 * 72;
  for (const PdfWord& word : words) EXPECT_LE(word.Right, textEdge + 1) << word.Text;
  // No column of either table is lost: each unknown heads a column of each and stands in the solution.
  for (int member = 1; member <= Strip(25).NumMembers; ++member) {
    std::string name = "T";
    name.append(std::to_string(member));
    EXPECT_GE(count(name), 3) << name;
  }
}

// --- what the files say of their parts

TEST(ReportFile, EveryPageOfATableInThePdfBeginsWithItsHeader) {
  const PdfUnderTest& pdf = PdfOfStrip();
  const std::vector<PdfWord>& words = pdf.Words();
  int pagesOfTables = 0;
  for (int page = pdf.Word("augmented").Page + 1; page <= pdf.NumPages(); ++page) {
    const auto first = std::ranges::find(words, page, &PdfWord::Page);
    ASSERT_NE(first, words.end());
    EXPECT_THAT((std::vector<std::string>{"Eqn.", "Force", "The"}), testing::Contains(first->Text)) << page;
    ++pagesOfTables;
  }
  EXPECT_GE(pagesOfTables, 4);
}

TEST(ReportFile, TheEquationsOfAJointStandOnOnePageOfThePdf) {
  const std::vector<PdfWord>& words = PdfOfStrip().Words();
  int joints = 0;
  for (std::size_t i = 0; i + 2 < words.size(); ++i) {
    if (words[i].Text != "Equations" || words[i + 1].Text != "for") continue;
    ++joints;
    const auto up = std::find_if(words.begin() + static_cast<std::ptrdiff_t>(i), words.end(),
                                 [](const PdfWord& word) { return word.Text == "up"; });
    ASSERT_NE(up, words.end());
    EXPECT_EQ(up->Page, words[i].Page);
  }
  EXPECT_EQ(joints, 52);
}

TEST(ReportFile, RtfHasItsTitleOutlineTablesAndDescriptions) {
  const Solved solved = Example("k-truss.trs");
  const RtfDocument rtf = ScanRtf(solved.File(DocumentFileFormat::Rtf));
  EXPECT_EQ(rtf.Title, QStringLiteral("k-truss.trs"));
  std::vector<std::string> headings;
  int headerRows = 0, rows = 0, joined = 0;
  for (const RtfParagraph& paragraph : rtf.Paragraphs) {
    if (paragraph.Layout.OutlineLevel == 1) headings.push_back(paragraph.Runs.front().Text.toStdString());
    headerRows += paragraph.Layout.IsHeaderRow;
    rows += paragraph.Layout.IsRow && !paragraph.Layout.IsHeaderRow;
    joined += paragraph.Layout.StaysWhole;
  }
  EXPECT_THAT(headings, testing::ElementsAreArray(ReportHeadings));
  EXPECT_EQ(headerRows, 2 + 2 + 1) << "two blocks of each matrix, and the solution";
  EXPECT_EQ(rows, 5 * 32);
  EXPECT_EQ(joined, 3 * 16 + 2);
  ASSERT_EQ(rtf.Pictures.size(), 2U);
  EXPECT_THAT(rtf.Pictures[0].Description.toStdString(), HasSubstr("29 members, 16 joints"));
  EXPECT_THAT(rtf.Pictures[1].Description.toStdString(), HasSubstr("are named"));
}

TEST(ReportFile, OdtHasItsTitleOutlineTablesAndDescriptions) {
  const OdtReading odt(Example("k-truss.trs").File(DocumentFileFormat::Odt));
  EXPECT_THAT(odt.File("meta.xml"), HasSubstr("<dc:title>k-truss.trs</dc:title>"));
  EXPECT_EQ(odt.Headings.size(), 1 + std::size(ReportHeadings));
  EXPECT_EQ(odt.Headings.front().first, 1);
  EXPECT_EQ(odt.HeaderRows.size(), 5U);
  EXPECT_EQ(odt.Rows.size(), 5U * 32U);
  EXPECT_EQ(std::ranges::count(odt.StaysWhole, true), 3 * 16 + 2);
  ASSERT_EQ(odt.Descriptions.size(), 2U);
  EXPECT_THAT(odt.Descriptions[0], HasSubstr("29 members, 16 joints"));
}

TEST(ReportFile, HtmlHasItsTitleHeadingsAndDescriptions) {
  const std::string html = Example("k-truss.trs").File(DocumentFileFormat::Html).toStdString();
  EXPECT_THAT(html, HasSubstr("<title>k-truss.trs</title>"));
  EXPECT_THAT(html, HasSubstr("alt=\"Drawing of a truss with 29 members, 16 joints"));
  const auto count = [&html](const std::string& text) {
    int found = 0;
    for (auto at = html.find(text); at != std::string::npos; at = html.find(text, at + 1)) ++found;
    return found;
  };
  EXPECT_EQ(count("<h1 "), 1);
  EXPECT_EQ(count("<h2 "), static_cast<int>(std::size(ReportHeadings)));
}

TEST(ReportFile, ATitleOfOddCharactersIsTold) {
  Truss truss = Triangle();
  truss.FileName = "/x/\xCE\xB1 {b} <&>\x01 \xE2\x80\x93.trs";
  const Solved solved(std::move(truss));
  const QString title = QString::fromUtf8("\xCE\xB1 {b} <&> \xE2\x80\x93.trs");
  EXPECT_EQ(ScanRtf(solved.File(DocumentFileFormat::Rtf)).Title, title);
  const std::string escaped = title.toHtmlEscaped().toStdString();
  EXPECT_THAT(solved.File(DocumentFileFormat::Html).toStdString(), HasSubstr("<title>" + escaped + "<"));
  EXPECT_THAT(OdtReading(solved.File(DocumentFileFormat::Odt)).File("meta.xml"),
              HasSubstr("<dc:title>" + escaped + "<"));
}

TEST(ReportFile, HtmlHasNoPagesAndKeepsATableWhole) {
  const std::string text = TextOfHtml(Solved(Strip(25)).File(DocumentFileFormat::Html));
  std::size_t headers = 0;
  for (auto at = text.find("Eqn."); at != std::string::npos; at = text.find("Eqn.", at + 1)) ++headers;
  EXPECT_EQ(headers, 2U);
}

TEST(ReportFile, NamesWithMarkupAndHighBytesComeThrough) {
  const Solved solved(TrussBuilder(Triangle()).Member(0, 0, -3, 0, "<b>{\\\xC4\x80}"));
  const std::string name = "<b>{\\\xC3\x84\xE2\x82\xAC}";
  EXPECT_THAT(solved.Pdf().Text(), HasSubstr(name));
  EXPECT_THAT(TextOfHtml(solved.File(DocumentFileFormat::Html)), HasSubstr(name));
  const QByteArray rtf = solved.File(DocumentFileFormat::Rtf);
  EXPECT_TRUE(std::ranges::all_of(rtf, [](char c) { return c > 0; })) << "RTF has 7 bits";
  EXPECT_TRUE(rtf.contains("<b>\\{\\\\"));
}

TEST(ReportFile, ProgressGoesUpToTheWhole) {
  const Solved solved = Example("bowstring.trs");
  for (const DocumentFileFormat format : AllFormats) {
    std::vector<double> parts;
    const auto bytes = ReportFile(solved.Subject(), format, [&parts](double done) {
      parts.push_back(done);
      return true;
    });
    ASSERT_TRUE(bytes.has_value());
    ASSERT_THAT(parts, Not(IsEmpty()));
    EXPECT_THAT(parts, Each(Le(1.0)));
    EXPECT_TRUE(std::ranges::is_sorted(parts));
    EXPECT_NEAR(parts.back(), 1, 1e-6);
  }
}

TEST(ReportFile, ThereIsNoFileWhenTheUserWantsNoMore) {
  const Solved solved = Example("bowstring.trs");
  for (const DocumentFileFormat format : AllFormats) {
    int calls = 0;
    EXPECT_EQ(ReportFile(solved.Subject(), format, [&calls](double) { return ++calls < 3; }), std::nullopt);
    EXPECT_EQ(calls, 3) << "went on after it";
  }
}

// --- pictures

// Where an image is dark.
class DarkDots {
 public:
  explicit DarkDots(const QImage& image) : grey_(image.convertToFormat(QImage::Format_Grayscale8)) {}

  QSize Size() const { return grey_.size(); }
  bool At(int x, int y) const { return grey_.valid(x, y) && Row(y)[x] < 160; }

  QRect In(const QRect& within) const {
    QRect dark;
    for (int y = within.top(); y <= within.bottom(); ++y) {
      const uchar* row = Row(y);
      for (int x = within.left(); x <= within.right(); ++x) {
        if (row[x] < 160) dark |= QRect(x, y, 1, 1);
      }
    }
    return dark;
  }

  bool Near(int x, int y) const {
    if (At(x, y)) return true;
    constexpr int near = 3;
    for (int dy = -near; dy <= near; ++dy) {
      for (int dx = -near; dx <= near; ++dx) {
        if (At(x + dx, y + dy)) return true;
      }
    }
    return false;
  }

 private:
  const uchar* Row(int y) const { return grey_.constScanLine(y); }

  QImage grey_;
};

// The part of the dark dots of one image that have a dark dot of the other one near by.
double Matched(const DarkDots& image, const DarkDots& other) {
  int dark = 0, matched = 0;
  for (int y = 0; y < image.Size().height(); ++y) {
    for (int x = 0; x < image.Size().width(); ++x) {
      if (!image.At(x, y)) continue;
      ++dark;
      matched += other.Near(x, y);
    }
  }
  return dark == 0 ? 0 : static_cast<double>(matched) / dark;
}

void ExpectPictureBetween(const PdfUnderTest& pdf, const QImage& page, const char* above, const char* below,
                          const Picture& picture) {
  constexpr double dotsPerPoint = PictureDotsPerInch / 72.0;
  const int top = static_cast<int>(pdf.Word(above).Bottom * dotsPerPoint) + 4;
  const int bottom = static_cast<int>(pdf.Word(below).Top * dotsPerPoint) - 4;
  const QRect place = DarkDots(page).In(QRect(QPoint(0, top), QPoint(page.width() - 1, bottom)));
  const QImage image = ToImage(picture);
  const QRect drawn = DarkDots(image).In(image.rect());

  // Beside the tab there may be less room than the picture takes.
  constexpr double room = PixelsOf(PageTextWidth) - 48;
  const double scale = std::min(1.0, room / double{picture.Frame().Width()});
  EXPECT_NEAR(place.width(), scale * drawn.width(), 0.01 * drawn.width());
  EXPECT_NEAR(place.height(), scale * drawn.height(), 0.01 * drawn.height());

  const DarkDots shown(page.copy(place));
  const DarkDots expected(
      image.copy(drawn).scaled(place.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
  EXPECT_GT(Matched(shown, expected), 0.98);
  EXPECT_GT(Matched(expected, shown), 0.98);
}

TEST(ReportFile, ThePicturesInThePdfAreWhatTheCanvasDraws) {
  const Solved solved = Example("crane.trs");
  const auto pdf = solved.Pdf();
  const QImage page = pdf.Page(1, PictureDotsPerInch);
  QtTextMeasure measure;
  const auto draw = [&](PictureContent content) {
    return TrussPaint(
        solved.Document, {solved.Document.Settings.SigFigs, NumberFormat{}},
        [&measure](const TextFont& font, std::string_view text) { return measure.Measure(font, text); },
        content);
  };
  ASSERT_EQ(pdf.Word("Naming").Page, 1);
  ASSERT_EQ(pdf.Word("Counting").Page, 1);
  ExpectPictureBetween(pdf, page, "applied", "Naming", draw({.ForceValues = true, .Names = false}));
  ExpectPictureBetween(pdf, page, "Naming", "Counting", draw({.ForceValues = false, .Names = true}));
}

// --- printers

void ToA4(QPrinter& printer) {
  printer.setPageSize(QPageSize(QPageSize::A4));
  printer.setPageMargins(QMarginsF(20, 20, 20, 20), QPageLayout::Millimeter);
}

TEST(PrintReport, APrinterGetsTheSamePagesAsThePdf) {
  const Solved solved = Example("bowstring.trs");
  const TemporaryDirectory directory;
  QPrinter printer(QPrinter::HighResolution);
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setOutputFileName(QString::fromStdString(directory / "printed.pdf"));
  ToA4(printer);
  ASSERT_TRUE(PrintReport(solved.Subject(), printer));
  const PdfUnderTest printed(QByteArray::fromStdString(directory.Bytes("printed.pdf")));
  EXPECT_EQ(printed.Text(), solved.Pdf().Text());
}

TEST(PrintReport, ThePreviewShowsTheSamePagesAsThePdf) {
  const Solved solved = Example("bowstring.trs");
  QPrinter printer(QPrinter::HighResolution);
  printer.setOutputFormat(QPrinter::PdfFormat);
  ToA4(printer);
  QPrintPreviewWidget preview(&printer);
  RecordedPages pages;
  bool isPrinted = false;
  QObject::connect(&preview, &QPrintPreviewWidget::paintRequested, [&](QPrinter* device) {
    isPrinted = PrintReport(solved.Subject(), {*device, pages});
    PaintEmptyPages(*device, pages);
  });
  preview.updatePreview();
  EXPECT_TRUE(isPrinted);
  EXPECT_EQ(preview.pageCount(), solved.Pdf().NumPages());
}

TEST(PrintReport, NoFileIsLeftWhenTheUserWantsNoMore) {
  const Solved solved = Example("bowstring.trs");
  const TemporaryDirectory directory;
  QPrinter printer;
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setOutputFileName(QString::fromStdString(directory / "printed.pdf"));
  int calls = 0;
  EXPECT_FALSE(PrintReport(solved.Subject(), printer, [&calls](double) { return ++calls < 3; }));
  EXPECT_EQ(calls, 3);
  EXPECT_THAT(directory.Names(), IsEmpty());
}

TEST(PrintReport, APrinterThatCannotBeginIsAFailure) {
  const TemporaryDirectory directory;
  QPrinter printer;
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setOutputFileName(QString::fromStdString(directory / "missing"
                                                               "/printed.pdf"));
  EXPECT_FALSE(PrintReport(Solved(Triangle()).Subject(), printer));
}

// --- why this conclusion

TEST(ReportFile, WhyStandsInEveryKindOfFileWithItsPicture) {
  const Solved solved = Example("wrong-roller.trs");
  ReportSubject subject = solved.Subject();
  subject.With = {ReportExtra::Why};
  const auto file = [&subject](DocumentFileFormat format) {
    return ReportFile(subject, format).value_or(QByteArray());
  };
  const std::string picture = "Drawing of the truss in motion 1";
  const RtfDocument rtf = ScanRtf(file(DocumentFileFormat::Rtf));
  const auto isMotionHeading = [](const RtfParagraph& paragraph) {
    return paragraph.Layout.OutlineLevel == 1 &&
           paragraph.Runs.front().Text == QStringLiteral("How it can move:");
  };
  EXPECT_EQ(std::ranges::count_if(rtf.Paragraphs, isMotionHeading), 1);
  ASSERT_EQ(rtf.Pictures.size(), 3U);
  EXPECT_THAT(rtf.Pictures[2].Description.toStdString(), HasSubstr(picture));
  const OdtReading odt(file(DocumentFileFormat::Odt));
  EXPECT_GT(odt.Headings.size(), 1 + std::size(ReportHeadings));
  ASSERT_EQ(odt.Descriptions.size(), 3U);
  EXPECT_THAT(odt.Descriptions[2], HasSubstr(picture));
  const QByteArray html = file(DocumentFileFormat::Html);
  EXPECT_THAT(html.toStdString(), HasSubstr("alt=\"" + picture));
  EXPECT_THAT(TextOfHtml(html), HasSubstr("The whole truss turns"));
  const std::string pdf = PdfUnderTest(file(DocumentFileFormat::Pdf)).Text();
  EXPECT_THAT(pdf, HasSubstr("How it can move:"));
  EXPECT_THAT(pdf, HasSubstr("movable and"));
}

TEST(ReportFile, IsTheSameBytesWhetherItsReasonsAreKnownOrNot) {
  for (const char* name : {"triangle.trs", "tie.trs"}) {
    const Solved solved = Example(name);
    ExplanationOnDemand reasons(solved.Document, solved.Analysis);
    reasons.Whole();
    ReportSubject subject = solved.Subject();
    subject.Reasons = &reasons;
    EXPECT_EQ(ReportFile(subject, DocumentFileFormat::Rtf).value_or(QByteArray()),
              solved.File(DocumentFileFormat::Rtf));
  }
}

}  // namespace
