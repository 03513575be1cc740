// Finding and zooming in the help viewer, and its pictures: real keys and wheels on the real window.
#include "HelpViewerFixture.h"

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
  Open();
  viewer_.resize(520, 500);
  for (const QString& name : HelpPages()) {
    if (HelpPage(name).Pictures.isEmpty()) continue;
    ASSERT_TRUE(Browser().ShowPage(name));
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
