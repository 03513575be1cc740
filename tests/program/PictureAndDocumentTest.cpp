// What --picture and --document write: every format, on a machine without a display, and the same bytes every
// time.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFileInfo>
#include <QImage>
#include <QProcess>
#include <QStandardPaths>

#include "program/RunProgram.h"

namespace {

using testing::HasSubstr;

QStringList PictureWords(const QString& out, const QString& file, bool named = false) {
  QStringList words{QStringLiteral("--picture=") + out, file};
  if (named) words.append(QStringLiteral("--named"));
  return words;
}

QStringList DocumentWords(const QString& out, const QString& file) {
  return {QStringLiteral("--document=") + out, file};
}

// The bytes that a run writes into a file with this ending.
QByteArray Written(const char* option, const char* ending, const QString& file, const QStringList& more = {},
                   const QMap<QString, QString>& environment = {}) {
  const TestFiles files;
  const QString out = files.Path(QStringLiteral("out") + QString::fromLatin1(ending));
  const Ended run =
      RunProgram(ProgramCall{.Arguments = QStringList{QString::fromLatin1(option) + out, file} + more,
                             .Input = {},
                             .OutputFile = {},
                             .Environment = environment});
  EXPECT_EQ(run.Status, 0) << ending;
  EXPECT_EQ(run.Out + run.Err, "") << ending;
  return BytesOf(out);
}

bool LooksLike(const char* ending, const QByteArray& bytes) {
  if (qstrcmp(ending, ".png") == 0) return bytes.startsWith("\x89PNG\r\n");
  if (qstrcmp(ending, ".svg") == 0) return bytes.startsWith("<?xml") && bytes.contains("<svg");
  if (qstrcmp(ending, ".pdf") == 0) return bytes.startsWith("%PDF-") && bytes.trimmed().endsWith("%%EOF");
  if (qstrcmp(ending, ".rtf") == 0) return bytes.startsWith("{\\rtf1") && bytes.trimmed().endsWith('}');
  if (qstrcmp(ending, ".odt") == 0) return bytes.startsWith("PK");
  return bytes.contains("<html") && bytes.contains("</html>");
}

// Everything in an environment that may differ from one desktop to another.
const QMap<QString, QString>& OtherDesktop() {
  static const QMap<QString, QString> variables = {
      {QStringLiteral("TZ"), QStringLiteral("Asia/Tokyo")},
      {QStringLiteral("QT_HASH_SEED"), QStringLiteral("0")},
      {QStringLiteral("QT_FATAL_WARNINGS"), QStringLiteral("1")},
      {QStringLiteral("QT_SCALE_FACTOR"), QStringLiteral("2")},
      {QStringLiteral("QT_FONT_DPI"), QStringLiteral("144")},
      {QStringLiteral("QT_SCREEN_SCALE_FACTORS"), QStringLiteral("1.5")},
      {QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb")},
      {QStringLiteral("QT_QPA_PLATFORMTHEME"), QStringLiteral("gtk3")},
      {QStringLiteral("QT_STYLE_OVERRIDE"), QStringLiteral("Windows")}};
  return variables;
}

constexpr const char* PictureEndings[] = {".png", ".svg", ".pdf"};
constexpr const char* DocumentEndings[] = {".rtf", ".pdf", ".odt", ".html"};

TEST(ProgramPicture, IsWrittenInEveryFormat) {
  for (const char* ending : PictureEndings) {
    EXPECT_TRUE(LooksLike(ending, Written("--picture=", ending, Example("pratt.trs")))) << ending;
  }
}

TEST(ProgramPicture, ShowsAMotionInEveryFormat) {
  const QStringList motion{QStringLiteral("--motion=1")};
  for (const char* ending : PictureEndings) {
    const QByteArray bytes = Written("--picture=", ending, Example("parallelogram.trs"), motion);
    EXPECT_TRUE(LooksLike(ending, bytes)) << ending;
    EXPECT_NE(bytes, Written("--picture=", ending, Example("parallelogram.trs"))) << ending;
    EXPECT_EQ(bytes, Written("--picture=", ending, Example("parallelogram.trs"), motion, OtherDesktop()))
        << ending;
  }
}

TEST(ProgramPicture, SaysWhenThereIsNoSuchMotion) {
  const TestFiles files;
  const auto run = [&files](const char* motion, const char* example) {
    return RunProgram({.Arguments = {QStringLiteral("--picture=") + files.Path(QStringLiteral("out.png")),
                                     QString::fromLatin1(motion), Example(example)},
                       .Input = {},
                       .OutputFile = {},
                       .Environment = {}});
  };
  const Ended rigid = run("--motion=1", "triangle.trs");
  EXPECT_EQ(rigid.Status, 1);
  EXPECT_TRUE(rigid.Err.endsWith(": there is no motion 1: the truss has no motions\n"))
      << rigid.Err.toStdString();
  const Ended wrong = run("--motion=0", "parallelogram.trs");
  EXPECT_EQ(wrong.Status, 2);
  EXPECT_EQ(wrong.Err.count('\n'), 1) << wrong.Err.toStdString();
  EXPECT_FALSE(QFileInfo::exists(files.Path(QStringLiteral("out.png"))));
}

TEST(ProgramPicture, IsTheSameOnEveryDesktop) {
  for (const char* ending : PictureEndings) {
    const QStringList named{QStringLiteral("--named")};
    const QByteArray here = Written("--picture=", ending, Example("wind.trs"), named);
    EXPECT_EQ(Written("--picture=", ending, Example("wind.trs"), named), here) << ending;
    EXPECT_EQ(Written("--picture=", ending, Example("wind.trs"), named, OtherDesktop()), here) << ending;
  }
}

TEST(ProgramPicture, IsSharpOnPaperAndAsWideAsItsText) {
  const QImage image = QImage::fromData(Written("--picture=", ".png", Example("pratt.trs")));
  EXPECT_GE(image.dotsPerMeterX() * 0.0254, 200);
  EXPECT_NEAR(image.width() / (image.dotsPerMeterX() * 0.0254), 640.0 / 96, 0.1) << "inches";
}

TEST(ProgramPicture, HasNamesWhenAsked) {
  const auto svg = [](const QStringList& more) {
    return Written("--picture=", ".svg", Example("triangle.trs"), more).toStdString();
  };
  EXPECT_THAT(svg({}), testing::Not(HasSubstr(">AC</text>")));
  EXPECT_THAT(svg({}), HasSubstr(">1000</text>"));
  EXPECT_THAT(svg({QStringLiteral("--named")}), HasSubstr(">AC</text>"));
  EXPECT_THAT(svg({QStringLiteral("--named")}), HasSubstr(">1000</text>"));
}

TEST(ProgramPicture, IsDrawnAfterTheNaming) {
  const QStringList more{QStringLiteral("--named"), QStringLiteral("--autoname")};
  const QByteArray svg = Written("--picture=", ".svg", Example("unnamed.trs"), more);
  EXPECT_TRUE(svg.contains(">D</text>"));
  EXPECT_FALSE(svg.contains("[ ]"));
}

TEST(ProgramPicture, HasTheNumbersOfTheLocale) {
  const Ended run =
      RunProgram(ProgramCall{.Arguments = PictureWords(QStringLiteral("-"), Example("wind.trs")),
                             .Input = {},
                             .OutputFile = {},
                             .LocaleName = QStringLiteral("de_DE.UTF-8"),
                             .Environment = {}});
  EXPECT_EQ(run.Status, 0);
  EXPECT_NE(run.Out, RunProgram(PictureWords(QStringLiteral("-"), Example("wind.trs"))).Out);
}

TEST(ProgramPicture, IsAPngOnStandardOutput) {
  const Ended run = RunProgram(PictureWords(QStringLiteral("-"), QStringLiteral("-")), TriangleText());
  EXPECT_EQ(run.Status, 0);
  EXPECT_EQ(run.Err, "");
  EXPECT_TRUE(LooksLike(".png", run.Out));
}

TEST(ProgramPicture, HasWordsThatCanBeCopiedFromItsPdf) {
  const QString tool = QStandardPaths::findExecutable(QStringLiteral("pdftotext"));
  if (tool.isEmpty()) GTEST_SKIP() << "no pdftotext";
  const TestFiles files;
  const QString out = files.Path(QStringLiteral("out.pdf"));
  ASSERT_EQ(RunProgram(PictureWords(out, Example("wind.trs"), true)).Status, 0);
  QProcess reader;
  reader.start(tool, {QStringLiteral("-layout"), out, QStringLiteral("-")});
  ASSERT_TRUE(reader.waitForFinished());
  const QString text = QString::fromUtf8(reader.readAllStandardOutput());
  EXPECT_EQ(text.count(QStringLiteral("1000 at \u201353.13\u00b0")), 1) << text.toStdString();
  EXPECT_EQ(text.count(QStringLiteral(" at ")), 3) << text.toStdString();
  for (const char* name : {"Ax", "Ay", "AB", "GH"}) EXPECT_EQ(text.count(QLatin1String(name)), 1) << name;
}

TEST(ProgramPicture, ShowsWhatWasReadOfABrokenFile) {
  const Ended run = RunProgram(PictureWords(QStringLiteral("-"), QStringLiteral("-")), BrokenTriangleText());
  EXPECT_EQ(run.Status, 1);
  EXPECT_EQ(run.Err, QByteArray("orvane: -: ") + BrokenTriangleWhy + "\n");
  EXPECT_TRUE(LooksLike(".png", run.Out));
}

constexpr const char* EmptyTruss =
    "Orvane "
    "5\r\n#TRUE#,#TRUE#,#TRUE#,#TRUE#\r\n0\r\n20\r\n2\r\n.5\r\n0\r\n.5\r\n1000\r\n4\r\n0\r\n0\r\n0\r\n0\r\n";

TEST(ProgramPicture, NeedsSomethingToDraw) {
  const TestFiles files;
  const QString out = files.Path(QStringLiteral("out.png"));
  const Ended run = RunProgram(PictureWords(out, QStringLiteral("-")), EmptyTruss);
  EXPECT_EQ(run.Status, 1);
  EXPECT_EQ(run.Err, "orvane: -: there is nothing to draw\n");
  EXPECT_FALSE(QFileInfo::exists(out));
}

TEST(ProgramPicture, SaysWhenItCannotWrite) {
  const TestFiles files;
  const QString out = files.Path(QStringLiteral("none/out.png"));
  const Ended run = RunProgram(PictureWords(out, QStringLiteral("-")), TriangleText());
  EXPECT_EQ(run.Status, 1);
  EXPECT_EQ(run.Err,
            "orvane: " + out.toUtf8() + ": the file could not be written: its folder does not exist\n");
}

TEST(ProgramPicture, RefusesOtherFormats) {
  const Ended run = RunProgram(PictureWords(QStringLiteral("out.jpg"), QStringLiteral("-")), TriangleText());
  EXPECT_EQ(run.Status, 2);
  EXPECT_EQ(run.Err,
            "orvane: a picture is written as .png, .svg or .pdf, not as \"out.jpg\"; see orvane --help\n");
}

TEST(ProgramDocument, IsWrittenInEveryFormat) {
  for (const char* ending : DocumentEndings) {
    EXPECT_TRUE(LooksLike(ending, Written("--document=", ending, Example("pratt.trs")))) << ending;
  }
}

TEST(ProgramDocument, IsTheSameOnEveryDesktop) {
  for (const char* ending : DocumentEndings) {
    const QByteArray here = Written("--document=", ending, Example("wind.trs"));
    EXPECT_EQ(Written("--document=", ending, Example("wind.trs")), here) << ending;
    EXPECT_EQ(Written("--document=", ending, Example("wind.trs"), {}, OtherDesktop()), here) << ending;
  }
}

TEST(ProgramDocument, IsRtfOnStandardOutput) {
  const Ended run = RunProgram(DocumentWords(QStringLiteral("-"), QStringLiteral("-")), TriangleText());
  EXPECT_EQ(run.Status, 0);
  EXPECT_EQ(run.Err, "");
  EXPECT_TRUE(LooksLike(".rtf", run.Out));
}

TEST(ProgramDocument, IsWrittenForEveryConclusion) {
  for (const char* name : {"redundant.trs", "inconsistent.trs", "undetermined.trs", "not-enough.trs"}) {
    EXPECT_TRUE(LooksLike(".rtf", Written("--document=", ".rtf", Example(name)))) << name;
  }
}

TEST(ProgramDocument, ReportsWhatWasReadOfABrokenFile) {
  const Ended run = RunProgram(DocumentWords(QStringLiteral("-"), QStringLiteral("-")), BrokenTriangleText());
  EXPECT_EQ(run.Status, 1);
  EXPECT_EQ(run.Err, QByteArray("orvane: -: ") + BrokenTriangleWhy + "\n");
  EXPECT_TRUE(LooksLike(".rtf", run.Out));
}

TEST(ProgramDocument, NeedsUnknownForces) {
  const TestFiles files;
  const QString out = files.Path(QStringLiteral("out.pdf"));
  const Ended run = RunProgram(DocumentWords(out, QStringLiteral("-")), EmptyTruss);
  EXPECT_EQ(run.Status, 1);
  EXPECT_EQ(run.Err, "orvane: -: the truss has no unknown forces, so there is no report to write\n");
  EXPECT_FALSE(QFileInfo::exists(out));
}

TEST(ProgramDocument, SaysWhenItCannotWrite) {
  const TestFiles files;
  const QString out = files.Path(QStringLiteral("none/out.rtf"));
  const Ended run = RunProgram(DocumentWords(out, QStringLiteral("-")), TriangleText());
  EXPECT_EQ(run.Status, 1);
  EXPECT_EQ(run.Err,
            "orvane: " + out.toUtf8() + ": the file could not be written: its folder does not exist\n");
}

TEST(ProgramDocument, RefusesOtherFormats) {
  const Ended run = RunProgram(DocumentWords(QStringLiteral("out.doc"), QStringLiteral("-")), TriangleText());
  EXPECT_EQ(run.Status, 2);
  EXPECT_EQ(
      run.Err,
      "orvane: a document is written as .rtf, .pdf, .odt or .html, not as \"out.doc\"; see orvane --help\n");
}

}  // namespace
