// The help viewer as its reader uses it: real keys and clicks on the real window and the built file.
#include "HelpViewerFixture.h"

// --- topics

TEST_F(HelpViewerTest, ShowsTheTopicsOfTheMenu) {
  for (const auto& [topic, page] :
       {std::pair{ProgramHelpTopic, "index.htm"}, std::pair{TrussHelpTopic, "truss help/truss_theory.htm"},
        std::pair{MathHelpTopic, "gauss help/backgd3.htm"}}) {
    Open(topic);
    EXPECT_TRUE(viewer_.isVisible());
    EXPECT_FALSE(viewer_.isModal());
    EXPECT_EQ(Page(), page);
    EXPECT_GT(Browser().toPlainText().size(), 200);
  }
  EXPECT_TRUE(messages_.Shown.empty());
}

TEST_F(HelpViewerTest, ThePagesTitleIsTheWindows) {
  Open();
  EXPECT_EQ(viewer_.windowTitle(), Browser().documentTitle() + QStringLiteral(" - Orvane Help"));
}

TEST_F(HelpViewerTest, AllPagesAreShownWithTheirStyle) {
  Open();
  for (const QString& page : HelpPages()) {
    Press(Qt::Key_Home, Qt::AltModifier);  // from a page in another folder
    ASSERT_TRUE(Browser().ShowPage(page));
    const QTextBlock first = Browser().document()->begin();
    EXPECT_EQ(first.begin().fragment().charFormat().foreground().color(), QColor(0x1C, 0x3F, 0x66))
        << page.toStdString();
  }
}

TEST_F(HelpViewerTest, AMissingFileIsSaidAndOpensNoWindow) {
  EXPECT_FALSE(viewer_.ShowTopic(directory_ / "none" + ProgramHelpTopic));
  ExpectOnlyMessage("The help file was not found, so help cannot be shown: " +
                    directory_ / "none/orvane.chm");
  EXPECT_FALSE(viewer_.isVisible());
}

TEST_F(HelpViewerTest, ADamagedFileIsSaidAndOpensNoWindow) {
  const std::string path = directory_.Put("orvane.chm", "ITSF");
  EXPECT_FALSE(viewer_.ShowTopic(directory_ / "" + ProgramHelpTopic));
  ASSERT_EQ(messages_.Shown.size(), 1U);
  EXPECT_NE(messages_.Shown[0].Text.find("is damaged or belongs to another version"), std::string::npos);
  EXPECT_FALSE(viewer_.isVisible());
}

TEST_F(HelpViewerTest, AFileThatComesBackIsFound) {
  EXPECT_FALSE(viewer_.ShowTopic(directory_ / "none" + ProgramHelpTopic));
  Open();
}

TEST_F(HelpViewerTest, ATopicThatIsNotThereIsSaid) {
  EXPECT_FALSE(viewer_.ShowTopic(ProgramDirectory() + R"(\orvane.chm::\none.htm)"));
  ExpectOnlyMessage("The help has no topic none.htm.");
  EXPECT_FALSE(viewer_.isVisible());
}

// --- the way through the pages

TEST_F(HelpViewerTest, LinksLeadToOtherFoldersAndBack) {
  Open();
  ClickLink(QStringLiteral("truss%20help/truss_theory.htm"));
  EXPECT_EQ(Page(), "truss help/truss_theory.htm");
  Press(Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(Page(), "index.htm");
  EXPECT_FALSE(Action("actBack").isEnabled());
  Press(Qt::Key_Right, Qt::AltModifier);
  EXPECT_EQ(Page(), "truss help/truss_theory.htm");
  EXPECT_FALSE(Action("actForward").isEnabled());
}

TEST_F(HelpViewerTest, LinksMayBeWrittenWithBackslashesAndBlanks) {
  Open("\\orvane.chm::\\program\\drawing.htm");
  ShowInstead(QStringLiteral(R"(<a href="..\truss help\truss_theory.htm">theory</a>)"));
  ClickLink(QStringLiteral(R"(..\truss help\truss_theory.htm)"));
  EXPECT_EQ(Page(), "truss help/truss_theory.htm");
}

TEST_F(HelpViewerTest, ALinkToNowhereIsSaid) {
  Open();
  ShowInstead(QStringLiteral("<a href=\"program/none.htm\">nowhere</a>"));
  ClickLink(QStringLiteral("program/none.htm"));
  ExpectOnlyMessage("The help has no topic program/none.htm.");
  EXPECT_EQ(Page(), "index.htm");
}

TEST_F(HelpViewerTest, HomeIsTheFirstPage) {
  Open(MathHelpTopic);
  Press(Qt::Key_Home, Qt::AltModifier);
  EXPECT_EQ(Page(), "index.htm");
}

TEST_F(HelpViewerTest, ThePlaceOnAPageComesToTheTop) {
  for (const QString& name : HelpPages()) {
    for (const QString& link : HelpPage(name).Links) {
      const QString target = HelpPage(name).Target(link);
      if (!target.contains(u'#') || !target.contains(QStringLiteral(".htm"))) continue;
      Open();
      viewer_.resize(700, 300);
      ASSERT_TRUE(Browser().ShowPage(target));
      QTest::qWait(0);
      EXPECT_EQ(Browser().Page(), target);
      const QScrollBar& bar = *Browser().verticalScrollBar();
      EXPECT_GT(bar.value(), 0) << target.toStdString();
      return;
    }
  }
  FAIL() << "no page links to a place on another";
}

TEST_F(HelpViewerTest, TheContentsLeadToEveryPage) {
  Open();
  int pages = 0;
  for (QTreeWidgetItemIterator entry(&Contents()); *entry != nullptr; ++entry) {
    const QString page = (*entry)->data(0, Qt::UserRole).toString();
    if (page.isEmpty()) continue;
    Contents().scrollToItem(*entry);
    QTest::mouseClick(Contents().viewport(), Qt::LeftButton, Qt::NoModifier,
                      Contents().visualItemRect(*entry).center());
    EXPECT_EQ(Browser().Page(), page);
    ++pages;
  }
  EXPECT_EQ(pages, HelpPages().size());
}

TEST_F(HelpViewerTest, TheContentsAreUsedWithTheKeyboard) {
  Open();
  Contents().setFocus();
  const std::string before = Page();
  for (int i = 0; i < 2; ++i) Press(Qt::Key_Down);
  Press(Qt::Key_Return);
  EXPECT_NE(Page(), before);
}

TEST_F(HelpViewerTest, TheContentsShowWhereTheReaderIs) {
  Open(TrussHelpTopic);
  ASSERT_NE(Contents().currentItem(), nullptr);
  const auto marked = [this] {
    return Contents().currentItem()->data(0, Qt::UserRole).toString().toStdString();
  };
  EXPECT_EQ(marked(), "truss help/truss_theory.htm");
  Open(MathHelpTopic);
  EXPECT_EQ(marked(), "gauss help/backgd3.htm");
  Press(Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(marked(), "truss help/truss_theory.htm");
}

TEST_F(HelpViewerTest, TheContentsCanBeHidden) {
  Open();
  Press(Qt::Key_F9);
  EXPECT_FALSE(Contents().isVisible());
  Press(Qt::Key_F9);
  EXPECT_TRUE(Contents().isVisible());
}

// --- for everyone

TEST_F(HelpViewerTest, EveryCommandHasAKeyAToolTipAndAPictureOrText) {
  Open();
  int commands = 0;
  for (const QAction* action : viewer_.actions()) {
    if (!action->objectName().startsWith(QStringLiteral("act"))) continue;
    EXPECT_FALSE(action->shortcut().isEmpty()) << action->objectName().toStdString();
    EXPECT_TRUE(action->toolTip().contains(action->shortcut().toString(QKeySequence::NativeText)));
    ++commands;
  }
  EXPECT_EQ(commands, 11);
  for (const char* name :
       {"txtHelp", "treContents", "txtFind", "cmdFindNext", "cmdFindPrevious", "cmdFindClose"}) {
    const auto* widget = viewer_.findChild<QWidget*>(QString::fromLatin1(name));
    ASSERT_NE(widget, nullptr) << name;
    EXPECT_FALSE(widget->accessibleName().isEmpty()) << name;
  }
}

TEST_F(HelpViewerTest, SizeZoomAndPageStayWhileTheProgramRuns) {
  Open(TrussHelpTopic);
  viewer_.resize(640, 480);
  Press(Qt::Key_Plus, Qt::ControlModifier);
  viewer_.close();
  Open(TrussHelpTopic);
  EXPECT_EQ(viewer_.size(), QSize(640, 480));
  EXPECT_EQ(Browser().ZoomPercent(), 110);
}
