// Pictures as bitmaps and files: pixel by pixel what the canvas shows, and the same bytes every time.
#include "platform/qt/QtPicture.h"

#include "paper/qt/PictureFiles.h"

#include <gtest/gtest.h>

#include <QPainter>
#include <QRegularExpression>
#include <QSvgRenderer>
#include <cmath>
#include <cstdlib>

#include "canvas/PaintDrawing.h"
#include "canvas/RedrawTruss.h"
#include "platform/Palette.h"
#include "platform/qt/QtSurface.h"
#include "platform/qt/QtTextMeasure.h"
#include "reports/TrussPaint.h"
#include "support/FakeMessageBox.h"
#include "support/TrussBuilder.h"

namespace {

TextMeasure Measure() {
  return [measure = std::make_shared<QtTextMeasure>()](const TextFont& font, std::string_view text) {
    return measure->Measure(font, text);
  };
}

// Reaches beyond the world window, so that its picture is drawn at the smallest scale: 28 pixels to the unit.
constexpr CanvasBounds WideBounds{.PixL = 40, .PixR = 600, .PixT = 40, .PixB = 320};

Truss Wide() {
  Truss truss = TrussBuilder()
                    .Member(-3, 0, 10, 5, "AB")
                    .Member(10, 5, 23, 0, "BC")
                    .Member(-3, 0, 23, 0, "AC")
                    .Clamp(-3, 0, "Ax", "Ay")
                    .Roller(23, 0, "C")
                    .Force(10, 5, 300, -400)
                    .Joint(-3, 0, "A");
  truss.Settings.RulersOn = truss.Settings.GridOn = false;
  truss.View = DeriveView(truss.Settings, WideBounds);
  return truss;
}

Picture PictureOf(const Truss& truss) {
  return TrussPaint(truss, {}, Measure(), {.ForceValues = false, .Names = true});
}

// The part of the canvas that the picture shows, magnified.
QImage CanvasOf(Truss truss, const PixelRect& frame, int scale) {
  const QSize size(static_cast<int>(frame.Width()) * scale, static_cast<int>(frame.Height()) * scale);
  QImage image(size, QImage::Format_RGB32);
  QPainter painter(&image);
  painter.scale(scale, scale);
  painter.translate(-double{frame.Left}, -double{frame.Top});
  QtSurface surface(painter, QRectF(-10000, -10000, 20000, 20000));
  Drawing drawing;
  drawing.LabelsShown = true;
  FakeMessageBox messages;
  const CanvasContext context{.Bounds = WideBounds, .Numbers = {}, .Measure = Measure()};
  EXPECT_TRUE(RedrawTruss(truss, drawing, surface, context, messages));
  PaintDrawing(surface, drawing, truss);
  return image;
}

// One line of this length.
Picture Stroke(float width, float height) {
  Picture picture(Measure());
  picture.Line(0, 0, width, height);
  picture.Crop(0);
  return picture;
}

TEST(QtPicture, ShowsWhatTheCanvasShowsPixelByPixel) {
  const Picture picture = PictureOf(Wide());
  EXPECT_EQ(ToImage(picture, 96), CanvasOf(Wide(), picture.Frame(), 1));
  EXPECT_EQ(ToImage(picture, 288), CanvasOf(Wide(), picture.Frame(), 3));
}

TEST(QtPicture, HasThreeDotsToThePixel) {
  const Picture picture = PictureOf(Wide());
  const QImage image = ToImage(picture);
  EXPECT_EQ(image.width(), static_cast<int>(3 * picture.Frame().Width()));
  EXPECT_EQ(image.height(), static_cast<int>(3 * picture.Frame().Height()));
  EXPECT_EQ(image.dotsPerMeterX(), std::lround(288 / 0.0254));
  EXPECT_EQ(image.dotsPerMeterY(), image.dotsPerMeterX());
}

TEST(QtPicture, ImagesSayHowLargeTheyAreMeantToBe) {
  const Picture picture = PictureOf(Wide());
  const QSizeF size(double{picture.Frame().Width()}, double{picture.Frame().Height()});
  EXPECT_EQ(SizeOnScreen(ToImage(picture)), size);
  EXPECT_EQ(SizeOnScreen(ToImage(picture, 96)), size);
  EXPECT_EQ(SizeOnScreen(ToImage(picture, 200)).toSize(), size.toSize());
}

TEST(QtPicture, ImagesWithoutAMeasureAreAsLargeAsTheirDots) {
  QImage image(30, 20, QImage::Format_RGB32);
  image.setDotsPerMeterX(0);
  image.setDotsPerMeterY(0);
  EXPECT_EQ(SizeOnScreen(image), QSizeF(30, 20));
}

TEST(QtPicture, HugePicturesHaveFewerDotsToTheInch) {
  for (const auto& [width, height] :
       {std::pair{9000.0F, 9000.0F}, {1e6F, 50.0F}, {50.0F, 1e6F}, {2e6F, 2e6F}}) {
    const QImage image = ToImage(Stroke(width, height));
    ASSERT_FALSE(image.isNull());
    EXPECT_LE(double{1} * image.width() * image.height(), 64.2e6);
    EXPECT_LE(std::max(image.width(), image.height()), 32'001);
    EXPECT_LT(image.dotsPerMeterX(), std::lround(288 / 0.0254));
    EXPECT_NEAR(SizeOnScreen(image).width() / double{width}, 1, width > 1000 ? 0.1 : 1);
  }
}

TEST(QtPicture, WithoutAnythingDrawnIsNoImage) {
  EXPECT_TRUE(ToImage(Picture(Measure())).isNull());
  Picture cropped(Measure());
  cropped.Crop(6);
  EXPECT_TRUE(ToImage(cropped).isNull());
}

TEST(QtPictureFile, AsPngIsTheImage) {
  const Picture picture = PictureOf(Wide());
  const QImage read = QImage::fromData(PictureFile(picture, PictureFileFormat::Png), "PNG");
  EXPECT_EQ(read.convertToFormat(QImage::Format_RGB32), ToImage(picture));
  EXPECT_EQ(SizeOnScreen(read), SizeOnScreen(ToImage(picture)));
}

// How much darker or lighter two images are, averaged over all pixels, of 255.
double Difference(const QImage& a, const QImage& b) {
  double sum = 0;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) sum += std::abs(qGray(a.pixel(x, y)) - qGray(b.pixel(x, y)));
  }
  return sum / (double{1} * a.width() * a.height());
}

TEST(QtPictureFile, AsSvgShowsTheSame) {
  const Picture picture = PictureOf(Wide());
  const QImage expected = ToImage(picture, 96);
  QSvgRenderer svg(PictureFile(picture, PictureFileFormat::Svg));
  ASSERT_TRUE(svg.isValid());
  EXPECT_EQ(svg.viewBox().size(), expected.size());
  QImage shown(expected.size(), QImage::Format_RGB32);
  shown.fill(Qt::black);
  QPainter painter(&shown);
  svg.render(&painter, QRectF(shown.rect()));
  painter.end();
  EXPECT_LT(Difference(shown, expected), 2);
  QImage blank(expected.size(), QImage::Format_RGB32);
  blank.fill(Qt::white);
  EXPECT_GT(Difference(blank, expected), 5) << "the comparison can fail";
}

TEST(QtPictureFile, AsSvgHasEachNameOnceAsText) {
  const QString svg = QString::fromUtf8(PictureFile(PictureOf(Wide()), PictureFileFormat::Svg));
  for (const char* name : {"AB", "BC", "AC", "Ax", "Ay", "A"}) {
    const QString text = QStringLiteral(">%1</text>").arg(QString::fromLatin1(name));
    EXPECT_EQ(svg.count(text), 1) << name;
  }
  EXPECT_TRUE(svg.contains(QStringLiteral("font-family=\"Arial\"")));
}

TEST(QtPictureFile, AsPdfIsAPageOfThePicturesSize) {
  const Picture picture = PictureOf(Wide());
  const QString pdf = QString::fromLatin1(PictureFile(picture, PictureFileFormat::Pdf));
  const auto box = QRegularExpression(QStringLiteral("/MediaBox \\[0 0 ([0-9.]+) ([0-9.]+)\\]")).match(pdf);
  ASSERT_TRUE(box.hasMatch());
  EXPECT_EQ(box.captured(1).toDouble(), std::ceil(0.75 * picture.Frame().Width()));
  EXPECT_EQ(box.captured(2).toDouble(), std::ceil(0.75 * picture.Frame().Height()));
  EXPECT_EQ(pdf.count(QStringLiteral("/Type /Page\n")), 1);
  EXPECT_FALSE(pdf.contains(QStringLiteral("Date")));
}

TEST(QtPictureFile, OfAnEmptyPictureIsOneWhitePixel) {
  const Picture empty(Measure());
  QImage png = QImage::fromData(PictureFile(empty, PictureFileFormat::Png));
  ASSERT_FALSE(png.isNull());
  EXPECT_EQ(png.pixelColor(0, 0), Qt::white);
  EXPECT_EQ(SizeOnScreen(png), QSizeF(1, 1));
  EXPECT_TRUE(QSvgRenderer(PictureFile(empty, PictureFileFormat::Svg)).isValid());
  EXPECT_TRUE(PictureFile(empty, PictureFileFormat::Pdf).startsWith("%PDF"));
}

TEST(QtPictureFile, IsTheSameEveryTime) {
  for (const auto format : {PictureFileFormat::Png, PictureFileFormat::Svg, PictureFileFormat::Pdf}) {
    EXPECT_EQ(PictureFile(PictureOf(Wide()), format), PictureFile(PictureOf(Wide()), format));
  }
}

TEST(QtPictureFile, OfHugePicturesIsMadeToo) {
  for (const auto format : {PictureFileFormat::Png, PictureFileFormat::Svg, PictureFileFormat::Pdf}) {
    EXPECT_FALSE(PictureFile(Stroke(2e6F, 3e4F), format).isEmpty());
  }
}

}  // namespace
