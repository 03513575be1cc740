// The help viewer as its reader uses it: real keys, clicks and wheels on the real window and the built file.
#include "app/HelpViewer.h"

#include <QAction>
#include <QApplication>
#include <QDesktopServices>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTreeWidget>
#include <QWheelEvent>

#include "app/HelpBrowser.h"
#include "app/HelpTopics.h"
#include "support/BuiltHelp.h"
#include "support/FakeMessageBox.h"
#include "support/TemporaryDirectory.h"

namespace {

// Stands in for the browser and the mail program of the desktop.
class Desktop final : public QObject {
  Q_OBJECT

 public:
  Desktop() {
    for (const char* scheme : {"http", "https", "mailto", "file"}) {
      QDesktopServices::setUrlHandler(QString::fromLatin1(scheme), this, "Open");
    }
  }
  ~Desktop() override {
    for (const char* scheme : {"http", "https", "mailto", "file"}) {
      QDesktopServices::unsetUrlHandler(QString::fromLatin1(scheme));
    }
  }

  Q_INVOKABLE void Open(const QUrl& address) { Opened.append(address); }

  QList<QUrl> Opened;
};

class HelpViewerTest : public BuiltHelpTest {
 protected:
  void Open(const char* topic = ProgramHelpTopic) {
    ASSERT_TRUE(viewer_.ShowTopic(ProgramDirectory() + topic));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&viewer_));
    QTest::qWait(0);
  }

  HelpBrowser& Browser() { return *viewer_.findChild<HelpBrowser*>(); }
  QAction& Action(const char* name) { return *viewer_.findChild<QAction*>(QString::fromLatin1(name)); }
  QTreeWidget& Contents() { return *viewer_.findChild<QTreeWidget*>(); }
  QLineEdit& FindLine() { return *viewer_.findChild<QLineEdit*>(QStringLiteral("txtFind")); }
  QString FindResult() { return viewer_.findChild<QLabel*>(QStringLiteral("lblFound"))->text(); }
  std::string Page() { return Browser().Page().toStdString(); }
  QString Selected() { return Browser().textCursor().selectedText(); }

  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    viewer_.activateWindow();
    QWidget* target = viewer_.focusWidget() != nullptr ? viewer_.focusWidget() : &viewer_;
    QTest::keyClick(target, key, modifiers);
    QTest::qWait(0);
  }

  // Clicks on the first link of the page that is written so.
  void ClickLink(const QString& written) {
    QTextDocument& page = *Browser().document();
    for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) {
      for (auto part = block.begin(); !part.atEnd(); ++part) {
        if (part.fragment().charFormat().anchorHref() != written) continue;
        QTextCursor cursor(&page);
        cursor.setPosition(part.fragment().position());
        Browser().setTextCursor(cursor);
        const QRect left = Browser().cursorRect(cursor);
        QTest::mouseClick(Browser().viewport(), Qt::LeftButton, Qt::NoModifier, left.center() + QPoint(4, 0));
        QTest::qWait(0);
        return;
      }
    }
    ADD_FAILURE() << "no link " << written.toStdString();
  }

  // A page that is not in the help, with links that its pages do not have.
  void ShowInstead(const QString& markup) { Browser().document()->setHtml(markup); }

  void TurnWheel(int eighths) {
    const QPointF at(50, 50);
    QWheelEvent wheel(at, Browser().viewport()->mapToGlobal(at), {}, QPoint(0, eighths), Qt::NoButton,
                      Qt::ControlModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(Browser().viewport(), &wheel);
  }

  // The first picture of the page, as it is laid out.
  QSizeF PictureSize() {
    QTextDocument& page = *Browser().document();
    for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) {
      for (auto part = block.begin(); !part.atEnd(); ++part) {
        const QTextCharFormat format = part.fragment().charFormat();
        if (!format.isImageFormat()) continue;
        const auto* handler = page.documentLayout()->handlerForObject(QTextFormat::ImageObject);
        return const_cast<QTextObjectInterface*>(handler)->intrinsicSize(&page, 0, format);
      }
    }
    ADD_FAILURE() << "no picture";
    return {};
  }

  void ExpectOnlyMessage(const std::string& text) {
    ASSERT_EQ(messages_.Shown.size(), 1U);
    EXPECT_EQ(messages_.Shown[0], (Message{.Text = text, .Icon = MessageIcon::Exclamation}));
  }

  FakeMessageBox messages_;
  Desktop desktop_;
  TemporaryDirectory directory_;
  HelpViewer viewer_{messages_};
};

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

// --- find in page

TEST_F(HelpViewerTest, FindsCapitalAndSmallLettersAndGoesRound) {
  Open();
  ShowInstead(QStringLiteral("<p>Pin one</p><p>a pin</p><p>PIN</p>"));
  Press(Qt::Key_F, Qt::ControlModifier);
  EXPECT_TRUE(FindLine().hasFocus());
  QTest::keyClicks(&FindLine(), QStringLiteral("pin"));
  EXPECT_EQ(Selected(), QStringLiteral("Pin"));
  Press(Qt::Key_Return);
  EXPECT_EQ(Selected(), QStringLiteral("pin"));
  Press(Qt::Key_F3);
  EXPECT_EQ(Selected(), QStringLiteral("PIN"));
  EXPECT_EQ(FindResult(), QString());
  Press(Qt::Key_F3);
  EXPECT_EQ(Selected(), QStringLiteral("Pin"));
  EXPECT_EQ(FindResult(), QStringLiteral("Continued from the top of the page"));
  Press(Qt::Key_Return, Qt::ShiftModifier);
  EXPECT_EQ(Selected(), QStringLiteral("PIN"));
  EXPECT_EQ(FindResult(), QStringLiteral("Continued from the end of the page"));
  Press(Qt::Key_F3, Qt::ShiftModifier);
  EXPECT_EQ(Selected(), QStringLiteral("pin"));
}

TEST_F(HelpViewerTest, SaysWhatIsNotFound) {
  Open();
  Press(Qt::Key_F, Qt::ControlModifier);
  QTest::keyClicks(&FindLine(), QStringLiteral("qqq"));
  EXPECT_EQ(FindResult(), QStringLiteral("Not found on this page"));
  EXPECT_TRUE(messages_.Shown.empty());
}

TEST_F(HelpViewerTest, EscapeClosesTheFindBarThenTheWindow) {
  Open();
  Press(Qt::Key_F, Qt::ControlModifier);
  Press(Qt::Key_Escape);
  EXPECT_FALSE(FindLine().isVisible());
  EXPECT_TRUE(viewer_.isVisible());
  EXPECT_TRUE(Browser().hasFocus());
  Press(Qt::Key_Escape);
  EXPECT_FALSE(viewer_.isVisible());
}

// --- zoom

TEST_F(HelpViewerTest, ZoomEnlargesLettersAndPictures) {
  Open("\\orvane.chm::\\program\\drawing.htm");
  viewer_.resize(1600, 900);
  QTest::qWait(0);
  const qreal height = Browser().document()->size().height();
  const QSizeF picture = PictureSize();
  for (int i = 0; i < 3; ++i) Press(Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_EQ(Browser().ZoomPercent(), 150);
  EXPECT_EQ(Action("actZoomReset").text(), QStringLiteral("150 %"));
  EXPECT_GT(Browser().document()->size().height(), 1.3 * height);
  EXPECT_NEAR(PictureSize().width(), 1.5 * picture.width(), 1);
  Press(Qt::Key_0, Qt::ControlModifier);
  EXPECT_EQ(Browser().ZoomPercent(), 100);
  EXPECT_EQ(Browser().document()->size().height(), height);
  Press(Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_EQ(Browser().ZoomPercent(), 90);
  EXPECT_NEAR(PictureSize().width(), 0.9 * picture.width(), 1);
}

TEST_F(HelpViewerTest, ZoomEndsAtHalfAndThreefold) {
  Open();
  for (int i = 0; i < 20; ++i) Press(Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_EQ(Browser().ZoomPercent(), 50);
  for (int i = 0; i < 20; ++i) Press(Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_EQ(Browser().ZoomPercent(), 300);
}

TEST_F(HelpViewerTest, TheWheelZoomsWithControl) {
  Open();
  TurnWheel(120);
  EXPECT_EQ(Browser().ZoomPercent(), 110);
  TurnWheel(-60);
  EXPECT_EQ(Browser().ZoomPercent(), 110) << "half a step";
  TurnWheel(-60);
  EXPECT_EQ(Browser().ZoomPercent(), 100);
}

TEST_F(HelpViewerTest, ZoomKeepsThePlace) {
  Open("\\orvane.chm::\\program\\drawing.htm");
  Browser().verticalScrollBar()->setValue(Browser().verticalScrollBar()->maximum() / 2);
  const int before = Browser().cursorForPosition(QPoint(1, 1)).blockNumber();
  Press(Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_EQ(Browser().cursorForPosition(QPoint(1, 1)).blockNumber(), before);
}

// --- pictures

TEST_F(HelpViewerTest, PicturesAreShownAtHalfTheirDots) {
  Open("\\orvane.chm::\\program\\drawing.htm");
  viewer_.resize(1600, 900);
  QTest::qWait(0);
  const HelpPage page(QStringLiteral("program/drawing.htm"));
  const QImage picture = QImage::fromData(BuiltHelp().Read(page.Target(page.Pictures.front())));
  EXPECT_EQ(PictureSize(), QSizeF((QSizeF(picture.size()) / 2).toSize()));
}

TEST_F(HelpViewerTest, PicturesAreNoWiderThanThePage) {
  for (const QString& name : HelpPages()) {
    if (HelpPage(name).Pictures.isEmpty()) continue;
    Open();
    ASSERT_TRUE(Browser().ShowPage(name));
    viewer_.resize(520, 500);
    QTest::qWait(0);
    EXPECT_LE(PictureSize().width(), Browser().viewport()->width()) << name.toStdString();
  }
}

TEST_F(HelpViewerTest, PicturesAreOnTheScreen) {
  Open();
  ShowInstead(QStringLiteral("<img src=\"figures/truss-triangle.png\">"));
  const QImage shown = Browser().viewport()->grab().toImage();
  int inked = 0;
  for (int y = 0; y < shown.height(); ++y) {
    for (int x = 0; x < shown.width(); ++x) inked += shown.pixelColor(x, y).lightness() < 128;
  }
  EXPECT_GT(inked, 200);
  EXPECT_EQ(shown.pixelColor(2, 2), QColor(Qt::white));
}

// --- links out of the help

class OutwardLinks : public HelpViewerTest, public testing::WithParamInterface<const char*> {
 protected:
  void ClickOn(const char* address) {
    Open();
    ShowInstead(
        QStringLiteral("<a href=\"%1\">a long text to be clicked on</a>").arg(QString::fromLatin1(address)));
    ClickLink(QString::fromLatin1(address));
    EXPECT_EQ(Page(), "index.htm");
  }
};

TEST_P(OutwardLinks, AskAndOpenOnYes) {
  messages_.Answers = {MessageAnswer::Yes};
  ClickOn(GetParam());
  ASSERT_EQ(messages_.Shown.size(), 1U);
  EXPECT_EQ(messages_.Shown[0].Buttons, MessageButtons::YesNo);
  EXPECT_NE(messages_.Shown[0].Text.find(GetParam()), std::string::npos) << "the address is shown";
  EXPECT_EQ(desktop_.Opened, QList<QUrl>({QUrl(QString::fromLatin1(GetParam()))}));
}

TEST_P(OutwardLinks, OpenNothingOnNo) {
  messages_.Answers = {MessageAnswer::No};
  ClickOn(GetParam());
  EXPECT_EQ(messages_.Shown.size(), 1U);
  EXPECT_TRUE(desktop_.Opened.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Schemes, OutwardLinks,
                         testing::Values("http://example.org/a", "https://example.org/?a=1&b=2#c",
                                         "mailto:someone@example.org"));

class RefusedLinks : public OutwardLinks {};

TEST_P(RefusedLinks, OpenNothingAtAll) {
  messages_.Answers = {MessageAnswer::Yes};
  ClickOn(GetParam());
  ExpectOnlyMessage("The help does not open this address: " + std::string(GetParam()));
  EXPECT_TRUE(desktop_.Opened.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Schemes, RefusedLinks,
                         testing::Values("file:///etc/hostname", "javascript:alert(1)", "ftp://example.org/a",
                                         "data:text/html,x"));

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

}  // namespace

#include "HelpViewerTest.moc"
