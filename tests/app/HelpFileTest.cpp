// The help file is opened only when it is the very one that was built, and says plainly what else it is.
#include "app/HelpFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "app/HelpFileIdentity.h"
#include "support/BuiltHelp.h"
#include "support/TemporaryDirectory.h"

namespace {

std::string BuiltBytes() {
  QFile file(QString::fromStdString(HelpFilePath()));
  EXPECT_TRUE(file.open(QIODevice::ReadOnly));
  return file.readAll().toStdString();
}

class HelpFileTest : public BuiltHelpTest {
 protected:
  // Why a file with these bytes is refused.
  std::string ProblemWith(const std::string& bytes) { return Problem(directory_.Put("orvane.chm", bytes)); }

  static std::string Problem(const std::string& path) {
    HelpFile file;
    EXPECT_FALSE(file.Open(QString::fromStdString(path)));
    EXPECT_FALSE(file.IsOpen());
    EXPECT_TRUE(file.Names().isEmpty());
    return file.Problem().toStdString();
  }

  std::string Damaged() const {
    return "The help file " + directory_ / "orvane.chm" +
           " is damaged or belongs to another version of the program, so help cannot be shown.  Installing "
           "the "
           "program again mends it.";
  }

  TemporaryDirectory directory_;
};

TEST_F(HelpFileTest, TheBuiltFileHoldsItsTopics) {
  HelpFile file;
  ASSERT_TRUE(file.Open(QString::fromStdString(HelpFilePath()))) << file.Problem().toStdString();
  EXPECT_EQ(file.Problem(), QString());
  for (const char* name :
       {"index.htm", "truss help/truss_theory.htm", "gauss help/backgd3.htm", "contents.hhc"}) {
    EXPECT_TRUE(file.Contains(QString::fromLatin1(name))) << name;
  }
  EXPECT_FALSE(file.Contains(QStringLiteral("none.htm")));
  EXPECT_EQ(file.Read(QStringLiteral("none.htm")), QByteArray());
}

TEST_F(HelpFileTest, WhatIsReadIsWhatWasWritten) {
  int files = 0;
  for (const QString& name : BuiltHelp().Names()) {
    if (name.startsWith(QStringLiteral("figures/"))) continue;
    QFile source(QStringLiteral(ORVANE_HELP_SOURCES "/") + name);
    ASSERT_TRUE(source.open(QIODevice::ReadOnly)) << name.toStdString();
    EXPECT_EQ(BuiltHelp().Read(name), source.readAll()) << name.toStdString();
    ++files;
  }
  EXPECT_GT(files, 22);
}

TEST_F(HelpFileTest, ACopyElsewhereIsAsGood) {
  HelpFile file;
  EXPECT_TRUE(file.Open(QString::fromStdString(directory_.Put("other name.chm", BuiltBytes()))));
  EXPECT_EQ(file.Names(), BuiltHelp().Names());
}

TEST_F(HelpFileTest, WhatIsOpenStaysWhenTheFileIsGone) {
  const QString path = QString::fromStdString(directory_.Put("orvane.chm", BuiltBytes()));
  HelpFile file;
  ASSERT_TRUE(file.Open(path));
  ASSERT_TRUE(QFile::remove(path));
  EXPECT_FALSE(file.Open(path));
  EXPECT_FALSE(file.Read(QStringLiteral("index.htm")).isEmpty());
}

TEST_F(HelpFileTest, AMissingFileIsSaidToBeMissing) {
  EXPECT_EQ(Problem(directory_ / "orvane.chm"),
            "The help file was not found, so help cannot be shown: " + directory_ / "orvane.chm");
}

TEST_F(HelpFileTest, ADirectoryInItsPlaceIsNoFile) {
  EXPECT_EQ(Problem(directory_ / "."),
            "The help file " + directory_ / "." + " cannot be read, so help cannot be shown: it is no file");
}

TEST_F(HelpFileTest, AFileThatMayNotBeReadIsSaidToBeUnreadable) {
  const std::string path = directory_.Put("orvane.chm", BuiltBytes());
  QFile::setPermissions(QString::fromStdString(path), QFile::Permissions());
  if (QFile(QString::fromStdString(path)).open(QIODevice::ReadOnly))
    GTEST_SKIP() << "this user may read everything";
  EXPECT_TRUE(
      Problem(path).starts_with("The help file " + path + " cannot be read, so help cannot be shown: "));
}

TEST_F(HelpFileTest, AnEmptyFileIsRefused) { EXPECT_EQ(ProblemWith(""), Damaged()); }

TEST_F(HelpFileTest, ATruncatedFileIsRefused) {
  const std::string bytes = BuiltBytes();
  for (const std::size_t length : {std::size_t{1}, std::size_t{96}, bytes.size() / 2, bytes.size() - 1}) {
    EXPECT_EQ(ProblemWith(bytes.substr(0, length)), Damaged()) << length;
  }
}

TEST_F(HelpFileTest, OneByteTooManyIsRefused) { EXPECT_EQ(ProblemWith(BuiltBytes() + '\0'), Damaged()); }

TEST_F(HelpFileTest, OneFlippedBitIsRefusedWhereverItIs) {
  const std::string bytes = BuiltBytes();
  for (std::size_t part = 0; part <= 16; ++part) {
    std::string flipped = bytes;
    flipped[(bytes.size() - 1) * part / 16] ^= 1;
    EXPECT_EQ(ProblemWith(flipped), Damaged()) << part;
  }
}

TEST_F(HelpFileTest, ARandomFileOfTheSameSizeIsRefused) {
  EXPECT_EQ(ProblemWith(std::string(static_cast<std::size_t>(BuiltHelpFile().Size), 'I')), Damaged());
}

// As good a help file as ours, but for the language in its header.
TEST_F(HelpFileTest, AnotherProgramsHelpFileIsRefused) {
  std::string other = BuiltBytes();
  ASSERT_EQ(other.substr(0, 4), "ITSF");
  other[0x14] = 7;
  EXPECT_EQ(ProblemWith(other), Damaged());
}

}  // namespace
