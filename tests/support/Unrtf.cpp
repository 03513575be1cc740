// The program writes HTML, which the toolkit reads, and the pictures as files beside it.
#include "support/Unrtf.h"

#include <gtest/gtest.h>

#include <QFont>
#include <QProcess>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFragment>

#include "support/TemporaryDirectory.h"

namespace {

QByteArray Html(const QByteArray& rtf, const TemporaryDirectory& directory) {
  QProcess unrtf;
  unrtf.setWorkingDirectory(QString::fromStdString(directory / ""));
  unrtf.start(QStringLiteral("unrtf"),
              {QStringLiteral("--html"), QString::fromStdString(directory.Put("it.rtf", rtf.toStdString()))});
  if (!unrtf.waitForStarted()) {
    ADD_FAILURE() << "unrtf is needed to read RTF; scripts/install-packages installs it";
    return {};
  }
  EXPECT_TRUE(unrtf.waitForFinished());
  EXPECT_EQ(unrtf.exitCode(), 0) << unrtf.readAllStandardError().toStdString();
  return unrtf.readAllStandardOutput();
}

// It tells of a character beyond 16 bits in two halves, which are none in HTML.
void JoinSurrogates(QString& html) {
  static const QRegularExpression pair(QStringLiteral("&#(5[5-6]\\d{3});&#(5[6-7]\\d{3});"));
  for (auto match = pair.match(html); match.hasMatch(); match = pair.match(html)) {
    const QString character =
        QString(QChar(match.captured(1).toUShort())) + QChar(match.captured(2).toUShort());
    html.replace(match.capturedStart(), match.capturedLength(), character);
  }
}

std::string WithoutBlanks(const QString& text) {
  QString letters;
  for (const QChar character : text) {
    if (!character.isSpace() && character != QChar(QChar::ObjectReplacementCharacter)) letters += character;
  }
  return letters.toStdString();
}

}  // namespace

std::string AsUnrtfTells(QString text) {
  static const QRegularExpression blanks(QStringLiteral("[ \\t\\x{A0}]+")),
      ends(QStringLiteral("\\s*\\n\\s*"));
  text.remove(QChar(QChar::ObjectReplacementCharacter));
  text.replace(blanks, QStringLiteral(" "));
  text.replace(ends, QStringLiteral("\n"));
  return text.trimmed().toStdString();
}

UnrtfReading ReadWithUnrtf(const QByteArray& rtf) {
  const TemporaryDirectory directory;
  QString html = QString::fromUtf8(Html(rtf, directory));
  JoinSurrogates(html);
  QTextDocument read;
  read.setHtml(html);

  UnrtfReading reading;
  reading.Text = AsUnrtfTells(read.toPlainText());
  for (QTextBlock block = read.begin(); block != read.end(); block = block.next()) {
    for (auto at = block.begin(); !at.atEnd(); ++at) {
      const QTextCharFormat format = at.fragment().charFormat();
      const std::string letters = WithoutBlanks(at.fragment().text());
      if (letters.empty()) continue;
      if (format.fontWeight() >= QFont::DemiBold) reading.BoldText += letters;
      reading.TextByColour[format.foreground().color().name().toStdString()] += letters;
    }
  }
  for (const std::string& name : directory.Names()) {
    if (!name.ends_with(".png")) continue;
    reading.Pictures.push_back(QImage::fromData(QByteArray::fromStdString(directory.Bytes(name))));
  }
  return reading;
}
