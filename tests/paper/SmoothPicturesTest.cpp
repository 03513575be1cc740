// Pictures of a text document on the screen.
#include "paper/qt/SmoothPictures.h"

#include <gtest/gtest.h>

#include <QPainter>

#include "support/SampleRichText.h"

namespace {

// 3 dots to the pixel: every third column black, so that no pixel is the same as a single dot.
QImage Stripes() {
  QImage image = SampleImage();
  for (int x = 0; x < image.width(); ++x) {
    for (int y = 0; y < image.height(); ++y) image.setPixelColor(x, y, x % 3 == 0 ? Qt::black : Qt::white);
  }
  return image;
}

QImage Shown(RichTextUnderTest& text) {
  QImage screen(300, 150, QImage::Format_RGB32);
  screen.fill(Qt::red);
  QPainter painter(&screen);
  text.Document.drawContents(&painter);
  return screen;
}

TEST(SmoothPictures, EveryPixelHasTheDotsThatItCovers) {
  RichTextUnderTest text;
  text.Image = Stripes();
  text.Paste();
  ShowPicturesSmoothly(text.Document);
  text.Document.setTextWidth(300);
  EXPECT_NEAR(qGray(Shown(text).pixel(100, 50)), 170, 3);
}

TEST(SmoothPictures, AreAsLargeAsTheyWere) {
  RichTextUnderTest text;
  text.Image = Stripes();
  text.Paste();
  ShowPicturesSmoothly(text.Document);
  text.Document.setTextWidth(300);
  const int margin = static_cast<int>(text.Document.documentMargin());
  const QImage screen = Shown(text);
  EXPECT_EQ(screen.pixelColor(margin - 1, 50), QColor(Qt::red));
  EXPECT_NE(screen.pixelColor(margin, 50), QColor(Qt::red));
  EXPECT_NE(screen.pixelColor(margin + 199, 50), QColor(Qt::red));
  EXPECT_EQ(screen.pixelColor(margin + 200, 50), QColor(Qt::red));
}

TEST(SmoothPictures, AnImageThatTheDocumentDoesNotHoldShowsNothing) {
  RichTextUnderTest text;
  QTextCursor(&text.Document).insertImage(QStringLiteral("gone.png"));
  ShowPicturesSmoothly(text.Document);
  text.Document.setTextWidth(300);
  EXPECT_EQ(Shown(text).pixelColor(50, 50), QColor(Qt::red));
}

}  // namespace
