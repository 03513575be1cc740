// The desktop's clipboard, and pauses.
#include "platform/qt/QtClipboard.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <QMimeData>
#include <QTimer>
#include <QUrl>
#include <optional>
#include <vector>

#include "platform/Picture.h"
#include "platform/qt/QtPicture.h"
#include "support/SampleRichText.h"

namespace {

class QtClipboardTest : public testing::Test {
 protected:
  QtClipboardTest() { board->clear(); }
  ~QtClipboardTest() override { board->clear(); }

  QByteArray Data(const char* type) const { return board->mimeData()->data(QString::fromLatin1(type)); }
  bool IsEmpty() const { return board->mimeData() == nullptr || board->mimeData()->formats().isEmpty(); }

  QClipboard* board = QApplication::clipboard();
  QtClipboard clipboard;
};

Picture Square(float side) {
  Picture picture([](const TextFont&, std::string_view) { return TextExtent{}; });
  picture.FillPolygon(std::vector<PixelPoint>{{0, 0}, {side, 0}, {side, side}, {0, side}}, LightRed);
  return picture;
}

TEST_F(QtClipboardTest, RichTextIsOfferedInEveryForm) {
  EXPECT_TRUE(clipboard.PutRichText(
      {.Rtf = "{\\rtf1 a}", .Html = "<b>a</b> \xE2\x82\xAC", .Plain = "a \xE2\x82\xAC"}));
  EXPECT_EQ(Data("text/rtf"), "{\\rtf1 a}");
  EXPECT_EQ(Data("application/rtf"), "{\\rtf1 a}");
  EXPECT_EQ(board->mimeData()->html(), QStringLiteral("<b>a</b> \u20AC"));
  EXPECT_EQ(board->text(), QStringLiteral("a \u20AC"));
}

TEST_F(QtClipboardTest, WhatIsPutReplacesWhatWasThere) {
  board->setText(QStringLiteral("old"));
  EXPECT_TRUE(clipboard.PutPicture(Square(10)));
  EXPECT_FALSE(board->mimeData()->hasText());
  EXPECT_TRUE(clipboard.PutRichText({.Rtf = "{\\rtf1 a}", .Html = "a", .Plain = "a"}));
  EXPECT_FALSE(board->mimeData()->hasImage());
}

TEST_F(QtClipboardTest, ClearLeavesNothing) {
  board->setText(QStringLiteral("old"));
  EXPECT_TRUE(clipboard.Clear());
  EXPECT_TRUE(IsEmpty());
  EXPECT_TRUE(clipboard.Bitmap().isNull());
}

TEST_F(QtClipboardTest, APictureIsABitmapThatIsSharpOnPaper) {
  const Picture picture = Square(40);
  EXPECT_TRUE(clipboard.PutPicture(picture));
  const QImage bitmap = clipboard.Bitmap();
  EXPECT_EQ(bitmap, ToImage(picture));
  EXPECT_GE(bitmap.dotsPerMeterX() * 0.0254, 200);
  EXPECT_NEAR(SizeOnScreen(bitmap).width(), double{picture.Frame().Width()}, 0.5);
}

TEST_F(QtClipboardTest, AnEmptyPictureLeavesTheClipboardEmpty) {
  board->setText(QStringLiteral("old"));
  EXPECT_TRUE(clipboard.PutPicture(Picture([](const TextFont&, std::string_view) { return TextExtent{}; })));
  EXPECT_TRUE(IsEmpty());
}

TEST_F(QtClipboardTest, TheKeeperPutsBackWhatWasThere) {
  const QImage image = SampleImage();
  auto* before = new QMimeData;
  before->setText(QStringLiteral("a"));
  before->setHtml(QStringLiteral("<i>a</i>"));
  before->setData(QStringLiteral("text/rtf"), "{\\rtf1 a}");
  before->setData(QStringLiteral("application/rtf"), "{\\rtf1 b}");
  before->setImageData(image);
  before->setUrls({QUrl(QStringLiteral("file:///a.trs"))});
  board->setMimeData(before);
  {
    const ClipboardKeeper keeper;
    EXPECT_TRUE(clipboard.PutPicture(Square(10)));
    EXPECT_FALSE(board->mimeData()->hasText());
  }
  const QMimeData* after = board->mimeData();
  EXPECT_EQ(after->text(), QStringLiteral("a"));
  EXPECT_EQ(after->html(), QStringLiteral("<i>a</i>"));
  EXPECT_EQ(Data("text/rtf"), "{\\rtf1 a}");
  EXPECT_EQ(Data("application/rtf"), "{\\rtf1 b}");
  EXPECT_EQ(board->image(), image);
  EXPECT_EQ(after->urls(), QList<QUrl>{QUrl(QStringLiteral("file:///a.trs"))});
}

TEST_F(QtClipboardTest, TheKeeperLeavesNothingWhereNothingWas) {
  {
    const ClipboardKeeper keeper;
    EXPECT_TRUE(clipboard.PutPicture(Square(10)));
  }
  EXPECT_TRUE(IsEmpty());
}

TEST_F(QtClipboardTest, TheKeeperAddsNoFormThatWasNotThere) {
  board->setText(QStringLiteral("a"));
  { const ClipboardKeeper keeper; }
  EXPECT_EQ(board->mimeData()->formats(), QStringList{QStringLiteral("text/plain")});
}

TEST(QtClock, APauseLastsAndOtherEventsAreHandled) {
  bool handled = false;
  QTimer::singleShot(0, qApp, [&] { handled = true; });
  QElapsedTimer timer;
  timer.start();
  QtClock().Pause(20);
  EXPECT_GE(timer.elapsed(), 20);
  EXPECT_TRUE(handled);
}

TEST(QtClock, APauseOfNothingReturnsAtOnce) {
  bool handled = false;
  QObject context;
  QTimer::singleShot(0, &context, [&] { handled = true; });
  QtClock().Pause(0);
  QtClock().Pause(-5);
  EXPECT_FALSE(handled);
}

TEST(QtClock, APauseWithinAPauseEndsFirst) {
  std::vector<int> ended;
  QTimer::singleShot(0, qApp, [&] {
    QtClock().Pause(30);
    ended.push_back(2);
  });
  QtClock().Pause(10);
  ended.push_back(1);
  EXPECT_EQ(ended, (std::vector<int>{2, 1}));
}

}  // namespace
