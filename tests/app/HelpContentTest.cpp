// The help as it was compiled: whatever its pages point at is there, and whatever is there is pointed at.
#include <QImage>
#include <QQueue>

#include "app/HelpTopics.h"
#include "support/BuiltHelp.h"
#include "support/TrussBuilder.h"

namespace {

bool LeadsOut(const QString& address) {
  static const QRegularExpression scheme(QStringLiteral("^[A-Za-z][A-Za-z0-9+.-]*:"));
  return scheme.match(address).hasMatch();
}

QStringList Captures(const QString& text, const char* pattern) {
  const QRegularExpression expression(QString::fromLatin1(pattern),
                                      QRegularExpression::CaseInsensitiveOption);
  QStringList found;
  for (auto match = expression.globalMatch(text); match.hasNext();) found.append(match.next().captured(1));
  return found;
}

QStringList ContentsPages() {
  QStringList pages;
  const std::string list = BuiltHelp().Read(QStringLiteral("contents.hhc")).toStdString();
  for (const HelpContentsEntry& entry : ReadHelpContents(list)) {
    EXPECT_FALSE(entry.Title.empty());
    if (!entry.Page.empty()) pages.append(QString::fromStdString(entry.Page));
  }
  return pages;
}

// That "page#place" is in the file, and the place on the page.
void ExpectThere(const QString& target, const QString& from) {
  const QString name = target.section(u'#', 0, 0);
  ASSERT_TRUE(BuiltHelp().Contains(name)) << from.toStdString() << " points at " << target.toStdString();
  if (!target.contains(u'#')) return;
  EXPECT_TRUE(HelpPage(name).Places.contains(target.section(u'#', 1)))
      << from.toStdString() << " points at " << target.toStdString();
}

TEST(HelpContent, EveryLinkLeadsToAPageAndPlaceThatIsThere) {
  int links = 0;
  for (const QString& name : HelpPages()) {
    const HelpPage page(name);
    for (const QString& link : page.Links) {
      if (LeadsOut(link)) continue;
      ExpectThere(page.Target(link), name);
      ++links;
    }
  }
  EXPECT_GT(links, 60);
}

TEST(HelpContent, NoLinkIsLostOnTheWayToTheScreen) {
  for (const QString& name : HelpPages()) {
    const HelpPage page(name);
    for (const QString& link : Captures(page.Markup, R"(<a\b[^>]*\bhref="([^"]*)\")")) {
      EXPECT_TRUE(page.Links.contains(link)) << name.toStdString() << ": " << link.toStdString();
    }
  }
}

TEST(HelpContent, EveryPictureIsThereAndCanBeShown) {
  int pictures = 0;
  for (const QString& name : HelpPages()) {
    const HelpPage page(name);
    EXPECT_EQ(page.Pictures.size(), page.Markup.count(QStringLiteral("<img"))) << name.toStdString();
    for (const QString& picture : page.Pictures) {
      const QByteArray bytes = BuiltHelp().Read(page.Target(picture));
      EXPECT_FALSE(QImage::fromData(bytes).isNull()) << name.toStdString() << ": " << picture.toStdString();
      ++pictures;
    }
  }
  EXPECT_GT(pictures, 30);
}

TEST(HelpContent, FiguresSayThatTwoOfTheirDotsAreOnePixel) {
  for (const QString& name : BuiltHelp().Names()) {
    if (!name.startsWith(QStringLiteral("figures/"))) continue;
    EXPECT_EQ(QImage::fromData(BuiltHelp().Read(name)).dotsPerMeterX(), 7559)
        << name.toStdString() << ": 192 dpi";
  }
}

TEST(HelpContent, EveryPageCanBeReachedFromTheContents) {
  const QStringList contents = ContentsPages();
  for (const QString& page : contents) ExpectThere(page, QStringLiteral("contents.hhc"));
  for (const QString& page : HelpPages()) EXPECT_TRUE(contents.contains(page)) << page.toStdString();
}

TEST(HelpContent, EntriesOfTheContentsAreCalledLikeTheirPages) {
  for (const HelpContentsEntry& entry :
       ReadHelpContents(BuiltHelp().Read(QStringLiteral("contents.hhc")).toStdString())) {
    if (entry.Page.empty()) continue;
    const HelpPage page(QString::fromStdString(entry.Page));
    EXPECT_EQ(page.Document.metaInformation(QTextDocument::DocumentTitle).toStdString(), entry.Title);
  }
}

TEST(HelpContent, NothingLiesUnusedInTheFile) {
  QSet<QString> used = {QStringLiteral("contents.hhc"), QStringLiteral("style.css")};
  for (const QString& name : HelpPages()) {
    used.insert(name);
    const HelpPage page(name);
    for (const QString& picture : page.Pictures) used.insert(page.Target(picture));
  }
  for (const QString& name : BuiltHelp().Names()) EXPECT_TRUE(used.contains(name)) << name.toStdString();
}

TEST(HelpContent, TheThreeTopicsOfTheMenuAreLinkedToEachOther) {
  const QStringList topics = {QStringLiteral("index.htm"), QStringLiteral("truss help/truss_theory.htm"),
                              QStringLiteral("gauss help/backgd3.htm")};
  for (const QString& from : topics) {
    const HelpPage page(from);
    QSet<QString> targets;
    for (const QString& link : page.Links) targets.insert(page.Target(link).section(u'#', 0, 0));
    for (const QString& to : topics) {
      EXPECT_TRUE(to == from || targets.contains(to)) << from.toStdString() << " to " << to.toStdString();
    }
  }
}

TEST(HelpContent, EveryTopicThatKeysLeadToIsThere) {
  for (const char* topic :
       {HelpTopicForStep(1, true), HelpTopicForStep(1, false), HelpTopicForStep(2, false),
        HelpTopicForStep(3, false), TrussHelpTopic, SettingsHelpTopic, PrintingHelpTopic, WhyHelpTopic,
        StepsHelpTopic, ByJointHelpTopic, ChecksHelpTopic, RoundingHelpTopic}) {
    ExpectThere(QString::fromStdString(PlaceOfHelpTopic(ProgramDirectory() + topic)->Page),
                QString::fromLatin1(topic));
  }
}

TEST(HelpContent, EveryConclusionOfAReportHasItsPlace) {
  const auto expectThere = [](Truss truss) {
    const TrussAnalysis analysis = SolveTruss(truss);
    using enum ReportKind;
    for (const ReportKind report : {Counting, Equations, RREF, Solutions}) {
      const char* topic = HelpTopicForReport(report, analysis, false);
      ExpectThere(QString::fromStdString(PlaceOfHelpTopic(ProgramDirectory() + topic)->Page),
                  QString::fromLatin1(topic));
    }
  };
  const TrussBuilder inLine = TrussBuilder().Member(0, 0, 2, 0).Member(2, 0, 4, 0).Clamp(0, 0).Clamp(4, 0);
  expectThere(TrussBuilder(inLine).Force(2, 0, 0, -1));
  expectThere(TrussBuilder(inLine).Force(2, 0, 1, 0));
  expectThere(TrussBuilder().Member(0, 0, 4, 0).Clamp(0, 0).Clamp(4, 0));
  expectThere(TrussBuilder().Member(0, 0, 4, 0).Clamp(0, 0).Roller(4, 0));
  expectThere(TrussBuilder().Member(0, 0, 4, 0).Clamp(0, 0));
  expectThere(TrussBuilder());
}

TEST(HelpContent, EveryPageHasATitleAHeadingAndTheCommonStyle) {
  for (const QString& name : HelpPages()) {
    const HelpPage page(name);
    EXPECT_FALSE(page.Document.metaInformation(QTextDocument::DocumentTitle).isEmpty()) << name.toStdString();
    EXPECT_EQ(page.Markup.count(QStringLiteral("<h1")), 1) << name.toStdString();
    const QString style = name.contains(u'/') ? QStringLiteral("../style.css") : QStringLiteral("style.css");
    const QString link = QStringLiteral(R"(<link rel="stylesheet" type="text/css" href="%1">)").arg(style);
    EXPECT_TRUE(page.Markup.contains(link)) << name.toStdString();
  }
}

TEST(HelpContent, NoPageHasScriptsOrNeedsTheNetwork) {
  for (const QString& name : HelpPages() + QStringList(QStringLiteral("style.css"))) {
    const QString text = QString::fromUtf8(BuiltHelp().Read(name));
    for (const char* pattern :
         {R"((<(?:script|iframe|object|embed|form|base|video|audio)\b))", R"((<[^>]*\son\w+\s*=))",
          R"((url\s*\())", R"((@import))", R"((javascript:))", R"(<[^>]*\ssrc\s*=\s*["']?(\w+:))",
          R"(<link[^>]*href\s*=\s*["']?(\w+:))", R"((http-equiv="refresh"))"}) {
      EXPECT_EQ(Captures(text, pattern), QStringList()) << name.toStdString() << ": " << pattern;
    }
  }
}

// The viewer's zoom enlarges points and words such as "large", not pixels.
TEST(HelpContent, NoLettersAreMeasuredInPixels) {
  for (const QString& name : HelpPages() + QStringList(QStringLiteral("style.css"))) {
    const QString text = QString::fromUtf8(BuiltHelp().Read(name));
    EXPECT_EQ(Captures(text, R"(font(?:-size)?\s*:([^;}"]*\dpx))"), QStringList()) << name.toStdString();
  }
}

}  // namespace
