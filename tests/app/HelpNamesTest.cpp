// The help has one name for one thing: whatever names a page, by its title, its heading, the contents or a
// link, uses the same words. And every picture that tells something says it in words, too.
#include <QMap>

#include "app/HelpTopics.h"
#include "support/BuiltHelp.h"

namespace {

struct Link {
  QString Text, Target;
};

struct Tag {
  QString Attributes, Inside;
};

QString PlainText(QString markup) {
  static const QRegularExpression tags(QStringLiteral("<[^>]*>"));
  QTextDocument text;
  text.setHtml(markup.remove(tags));
  return text.toPlainText().simplified();
}

QVector<Tag> TagsOf(const QString& markup, const char* name) {
  const QRegularExpression expression(
      QStringLiteral("<%1\\b([^>]*)>(.*?)</%1>").arg(QString::fromLatin1(name)),
      QRegularExpression::DotMatchesEverythingOption);
  QVector<Tag> tags;
  for (auto match = expression.globalMatch(markup); match.hasNext();) {
    const auto tag = match.next();
    tags.append({tag.captured(1), tag.captured(2)});
  }
  return tags;
}

QString Attribute(const QString& attributes, const char* name) {
  const QRegularExpression expression(QStringLiteral("\\b%1=\"([^\"]*)\"").arg(QString::fromLatin1(name)));
  return PlainText(expression.match(attributes).captured(1));
}

QVector<Link> LinksOf(const HelpPage& page, const QString& markup) {
  QVector<Link> links;
  for (const Tag& link : TagsOf(markup, "a")) {
    const QString address = Attribute(link.Attributes, "href");
    if (!address.isEmpty()) links.append({PlainText(link.Inside), page.Target(address)});
  }
  return links;
}

QString Title(const HelpPage& page) {
  return page.Document.metaInformation(QTextDocument::DocumentTitle).simplified();
}

// The titles of all pages by their names.
const QMap<QString, QString>& Titles() {
  static const QMap<QString, QString> titles = [] {
    QMap<QString, QString> found;
    for (const QString& name : HelpPages()) found.insert(name, Title(HelpPage(name)));
    return found;
  }();
  return titles;
}

// What the page named "index.htm" lists as the contents, page by page.
QVector<Link> ContentsOnTheFirstPage() {
  const HelpPage page(QStringLiteral("index.htm"));
  QVector<Link> links;
  for (const Tag& item : TagsOf(page.Markup.section(QStringLiteral("<h2 id=\"contents\">"), 1), "li")) {
    links += LinksOf(page, item.Inside);
  }
  return links;
}

TEST(HelpNames, TheHeadingOfAPageIsItsTitle) {
  for (const QString& name : HelpPages()) {
    const HelpPage page(name);
    const QVector<Tag> headings = TagsOf(page.Markup, "h1");
    ASSERT_EQ(headings.size(), 1) << name.toStdString();
    EXPECT_EQ(PlainText(headings[0].Inside).toStdString(), Title(page).toStdString()) << name.toStdString();
  }
}

TEST(HelpNames, TheContentsOfTheFirstPageAreThoseOfTheViewer) {
  QVector<Link> viewer;
  const std::string list = BuiltHelp().Read(QStringLiteral("contents.hhc")).toStdString();
  for (const HelpContentsEntry& entry : ReadHelpContents(list)) {
    const QString page = QString::fromStdString(entry.Page);
    if (page.isEmpty() || page == QStringLiteral("index.htm")) continue;
    viewer.append({QString::fromStdString(entry.Title), page});
  }
  const QVector<Link> first = ContentsOnTheFirstPage();
  ASSERT_EQ(first.size(), viewer.size());
  for (qsizetype i = 0; i < first.size(); ++i) {
    EXPECT_EQ(first[i].Text.toStdString(), viewer[i].Text.toStdString());
    EXPECT_EQ(first[i].Target.toStdString(), viewer[i].Target.toStdString());
  }
}

// In the run of a sentence a link may have any words; with a capital letter it is a name.
TEST(HelpNames, ALinkThatNamesAPageUsesItsTitle) {
  int names = 0;
  for (const QString& name : HelpPages()) {
    const HelpPage page(name);
    for (const Link& link : LinksOf(page, page.Markup)) {
      const bool isName = !link.Text.isEmpty() && link.Text[0].isUpper() && !link.Target.contains(u'#');
      const bool isContents = link.Text == QStringLiteral("Contents");
      if (!isName || isContents) continue;
      EXPECT_EQ(link.Text.toStdString(), Titles()[link.Target].toStdString()) << "on " << name.toStdString();
      ++names;
    }
  }
  EXPECT_GT(names, 60);
}

// A picture without words is an ornament. Only the icons in a table are: the name stands beside them.
TEST(HelpNames, EveryPictureThatTellsSomethingSaysItInWords) {
  static const QRegularExpression image(QStringLiteral("<img\\b([^>]*)>"));
  static const QRegularExpression icon(QStringLiteral("<td><img [^>]*></td>"));
  int told = 0;
  for (const QString& name : HelpPages()) {
    QString markup = HelpPage(name).Markup;
    for (auto match = image.globalMatch(markup.remove(icon)); match.hasNext();) {
      const QString attributes = match.next().captured(1);
      const QString words = Attribute(attributes, "alt");
      EXPECT_GE(words.size(), 8) << name.toStdString() << ":" << attributes.toStdString();
      ++told;
    }
  }
  EXPECT_GT(told, 50);
}

}  // namespace
