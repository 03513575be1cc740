// What the help shows as the program's own output is what the program writes, to the letter. A listing is a
// <pre> with data-run="ARGUMENTS"; with data-part="lines" it shows some consecutive lines of that output.
#include <gtest/gtest.h>

#include <QDir>
#include <QDirIterator>
#include <QRegularExpression>
#include <QVector>
#include <utility>

#include "program/RunProgram.h"

namespace {

struct Listing {
  QString Page;  ///< the page's path inside the help
  QStringList Arguments;
  bool IsPart = false;
  QByteArray Text;  ///< without the line end of its last line
};

QString Unescaped(QString text) {
  for (const auto& [entity, character] :
       {std::pair{"&lt;", "<"}, std::pair{"&gt;", ">"}, std::pair{"&quot;", "\""}, std::pair{"&amp;", "&"}}) {
    text.replace(QString::fromLatin1(entity), QString::fromLatin1(character));
  }
  return text;
}

QByteArray WithoutLastLineEnd(QByteArray text) {
  while (text.endsWith('\n')) text.chop(1);
  return text;
}

QString AttributeOf(const QString& tag, const char* name) {
  const QRegularExpression attribute(QStringLiteral("\\s%1=\"([^\"]*)\"").arg(QString::fromLatin1(name)));
  return Unescaped(attribute.match(tag).captured(1));
}

QVector<Listing> ListingsOf(const QString& page, const QString& html) {
  static const QRegularExpression preformatted(QStringLiteral("<pre(\\s[^>]*)>\n?(.*?)</pre>"),
                                               QRegularExpression::DotMatchesEverythingOption);
  QVector<Listing> listings;
  auto matches = preformatted.globalMatch(html);
  while (matches.hasNext()) {
    const auto match = matches.next();
    const QString tag = match.captured(1);
    const QString run = AttributeOf(tag, "data-run");
    if (run.isEmpty()) continue;
    listings.append(Listing{page, run.split(u' ', Qt::SkipEmptyParts),
                            AttributeOf(tag, "data-part") == QStringLiteral("lines"),
                            WithoutLastLineEnd(Unescaped(match.captured(2)).toUtf8())});
  }
  return listings;
}

QVector<Listing> ListingsOfTheHelp() {
  const QDir help(QStringLiteral(ORVANE_HELP_DIR));
  QVector<Listing> listings;
  QDirIterator pages(help.path(), {QStringLiteral("*.htm")}, QDir::Files, QDirIterator::Subdirectories);
  while (pages.hasNext()) {
    const QString path = pages.next();
    listings += ListingsOf(help.relativeFilePath(path), QString::fromUtf8(BytesOf(path)));
  }
  return listings;
}

bool Shows(const Listing& listing, const QByteArray& output) {
  // Tables for spreadsheets end their lines with CR LF.
  const QByteArray written = WithoutLastLineEnd(QByteArray(output).replace("\r\n", "\n"));
  if (!listing.IsPart) return listing.Text == written;
  return !listing.Text.isEmpty() && QByteArray('\n' + written + '\n').contains('\n' + listing.Text + '\n');
}

// The listings name their files as one types them in the source directory.
class HelpListings : public testing::Test {
 protected:
  HelpListings() { EXPECT_TRUE(QDir::setCurrent(QStringLiteral(ORVANE_HELP_DIR "/.."))); }
  ~HelpListings() override { QDir::setCurrent(before_); }

 private:
  QString before_ = QDir::currentPath();
};

TEST_F(HelpListings, AreWhatTheProgramWrites) {
  const QVector<Listing> listings = ListingsOfTheHelp();
  ASSERT_FALSE(listings.isEmpty()) << "no page under " << ORVANE_HELP_DIR << " has a listing";
  for (const Listing& listing : listings) {
    const Ended run = RunProgram(listing.Arguments);
    EXPECT_EQ(run.Status, 0);
    EXPECT_EQ(run.Err, "");
    EXPECT_TRUE(Shows(listing, run.Out))
        << listing.Page.toStdString() << ": " << listing.Arguments.join(u' ').toStdString() << "\nshown:\n"
        << listing.Text.toStdString() << "\nwritten:\n"
        << run.Out.toStdString();
  }
}

TEST_F(HelpListings, AreFoundWithTheirArgumentsAndTheirMarkupTakenAway) {
  const QVector<Listing> listings =
      ListingsOf(QStringLiteral("page"),
                 QStringLiteral("<pre>no listing</pre><pre class=\"report\" data-run=\"--help\">\n"
                                "a &lt;b&gt; &amp;lt; c\n</pre>\n"
                                "<pre data-part=\"lines\" data-run=\"-a  b\">x\n\ny</pre>"));
  ASSERT_EQ(listings.size(), 2);
  EXPECT_EQ(listings[0].Arguments, QStringList{QStringLiteral("--help")});
  EXPECT_FALSE(listings[0].IsPart);
  EXPECT_EQ(listings[0].Text, "a <b> &lt; c");
  EXPECT_EQ(listings[1].Arguments, QStringList({QStringLiteral("-a"), QStringLiteral("b")}));
  EXPECT_TRUE(listings[1].IsPart);
  EXPECT_EQ(listings[1].Text, "x\n\ny");
}

TEST_F(HelpListings, HoldEveryLineOrAsManyAsTheyShow) {
  const QByteArray output = "A 1\nB 2\nC 3\n";
  const auto showsAll = [&](const char* text) { return Shows(Listing{{}, {}, false, text}, output); };
  const auto showsPart = [&](const char* text) { return Shows(Listing{{}, {}, true, text}, output); };
  EXPECT_TRUE(showsAll("A 1\nB 2\nC 3"));
  EXPECT_FALSE(showsAll("A 1\nB 2"));
  EXPECT_FALSE(showsAll("A 1\nB 2\nC 4"));
  EXPECT_TRUE(showsPart("B 2\nC 3"));
  EXPECT_FALSE(showsPart("A 1\nC 3"));
  EXPECT_FALSE(showsPart("B"));
  EXPECT_FALSE(showsPart(""));
}

}  // namespace
