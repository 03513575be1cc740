// What an independent reader (poppler's pdftotext and pdftoppm) finds in a PDF.
#pragma once

#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <optional>
#include <string>
#include <vector>

/// The output of a program; a missing or failing program fails the test.
inline QByteArray OutputOf(const QString& program, const QStringList& arguments) {
  QProcess process;
  process.start(program, arguments);
  const bool ended = process.waitForStarted() && process.waitForFinished(60'000);
  EXPECT_TRUE(ended) << program.toStdString() << " did not run; these tests need poppler-utils";
  EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
  return process.readAllStandardOutput();
}

/// A word on a page; points from the left and the top of the paper.
struct PdfWord {
  int Page = 0;  ///< from 1
  double Left = 0, Top = 0, Right = 0, Bottom = 0;
  std::string Text;
};

class PdfUnderTest {
 public:
  explicit PdfUnderTest(const QByteArray& bytes) : path_(directory_.filePath(QStringLiteral("test.pdf"))) {
    QFile file(path_);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(file.write(bytes), bytes.size());
  }

  /// The text as it is laid out, of a page from 1 or of all.
  std::string Text(int page = 0) const {
    QStringList arguments{QStringLiteral("-layout"), QStringLiteral("-nopgbrk")};
    if (page > 0) {
      const QString number = QString::number(page);
      arguments << QStringLiteral("-f") << number << QStringLiteral("-l") << number;
    }
    return OutputOf(QStringLiteral("pdftotext"), arguments << path_ << QStringLiteral("-")).toStdString();
  }

  /// All its words.
  const std::vector<PdfWord>& Words() const {
    if (!words_) words_ = ReadWords();
    return *words_;
  }

  /// The first place of a word; a missing word fails the test.
  PdfWord Word(const std::string& text) const {
    for (const PdfWord& word : Words()) {
      if (word.Text == text) return word;
    }
    ADD_FAILURE() << "no word \"" << text << "\" in the PDF";
    return {};
  }

  int NumPages() const {
    const QString output = QString::fromUtf8(OutputOf(QStringLiteral("pdfinfo"), {path_}));
    static const QRegularExpression pages(QStringLiteral("Pages: +([0-9]+)"));
    return pages.match(output).captured(1).toInt();
  }

  /// A page from 1 as it is painted.
  QImage Page(int page, int dotsPerInch) const {
    const QString number = QString::number(page);
    const QString target = directory_.filePath(QStringLiteral("page"));
    OutputOf(QStringLiteral("pdftoppm"), {QStringLiteral("-png"), QStringLiteral("-singlefile"),
                                          QStringLiteral("-f"), number, QStringLiteral("-l"), number,
                                          QStringLiteral("-r"), QString::number(dotsPerInch), path_, target});
    return QImage(target + QStringLiteral(".png"));
  }

 private:
  std::vector<PdfWord> ReadWords() const {
    static const QRegularExpression tag(QStringLiteral(
        "<page |<word xMin=\"([0-9.-]+)\" yMin=\"([0-9.-]+)\" xMax=\"([0-9.-]+)\" yMax=\"([0-9.-]+)\">(.*?)"
        "</word>"));
    const QStringList arguments{QStringLiteral("-bbox"), path_, QStringLiteral("-")};
    const QString output = QString::fromUtf8(OutputOf(QStringLiteral("pdftotext"), arguments));
    std::vector<PdfWord> words;
    int page = 0;
    for (auto matches = tag.globalMatch(output); matches.hasNext();) {
      const auto match = matches.next();
      const auto number = [&match](int group) { return match.captured(group).toDouble(); };
      if (match.captured(0).startsWith(QStringLiteral("<page"))) {
        ++page;
      } else {
        words.push_back({page, number(1), number(2), number(3), number(4), match.captured(5).toStdString()});
      }
    }
    return words;
  }

  QTemporaryDir directory_;
  QString path_;
  mutable std::optional<std::vector<PdfWord>> words_;  // the reader is started once
};
