// What the toolkit's surface puts onto an image, pixel by pixel.
#include "platform/qt/QtSurface.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "canvas/Arrow.h"
#include "platform/Palette.h"

namespace {

struct Sheet {
  explicit Sheet(qreal devicePixelRatio)
      : Image((QSizeF(200, 150) * devicePixelRatio).toSize(), QImage::Format_RGB32) {
    Image.setDevicePixelRatio(devicePixelRatio);
    Image.fill(Qt::white);
  }

  template <class Paint>
  void On(Paint paint) {
    QPainter painter(&Image);
    QtSurface surface(painter, QRectF(0, 0, 200, 150));
    paint(surface);
  }

  QImage Image;
};

class QtSurfaceAtRatio : public testing::TestWithParam<qreal> {};

INSTANTIATE_TEST_SUITE_P(Ratios, QtSurfaceAtRatio, testing::Values(1.0, 1.25, 1.5, 2.0));

TEST_P(QtSurfaceAtRatio, TheExclusiveOrPenTakesAnArrowBackByteForByte) {
  Sheet sheet(GetParam());
  sheet.On([](Surface& surface) {
    surface.Line(10, 75, 190, 75);
    DrawArrow(surface, 20, 20, 180, 120, 2, 12, LightRed);
    surface.PrintText(90, 60, "a name");
    for (float x = 0; x < 200; x += 10) surface.SetPixel(x, 40);
  });
  const QImage before = sheet.Image;
  const auto arrows = [](Surface& surface) {
    surface.SetPen(Pen::ExclusiveOr);
    DrawArrow(surface, 30, 110, 150.5F, 33.25F, 2, 12, DarkGrey);
    DrawArrow(surface, 100, 10, 100, 140, 2, 12, DarkGrey);
    DrawArrow(surface, 190, 75, 5, 75, 2, 12, DarkGrey);
    surface.SetPen(Pen::Copy);
  };
  sheet.On(arrows);
  EXPECT_NE(sheet.Image, before);
  sheet.On(arrows);
  ASSERT_EQ(sheet.Image.sizeInBytes(), before.sizeInBytes());
  EXPECT_TRUE(
      std::equal(before.constBits(), before.constBits() + before.sizeInBytes(), sheet.Image.constBits()));
}

TEST(QtSurface, LinesAlongAnAxisAreAsSharpAsThePixels) {
  Sheet sheet(1);
  sheet.On([](Surface& surface) { surface.Line(10, 20, 30, 20); });
  EXPECT_EQ(sheet.Image.pixelColor(10, 20), Qt::black);
  EXPECT_EQ(sheet.Image.pixelColor(30, 20), Qt::black);
  EXPECT_EQ(sheet.Image.pixelColor(20, 19), Qt::white);
  EXPECT_EQ(sheet.Image.pixelColor(20, 21), Qt::white);
  EXPECT_EQ(sheet.Image.pixelColor(32, 20), Qt::white);
}

// How many pixels of the device are black in a row.
int BlackIn(const QImage& image, int row) {
  int count = 0;
  for (int x = 0; x < image.width(); ++x) count += image.pixelColor(x, row) == Qt::black;
  return count;
}

TEST_P(QtSurfaceAtRatio, LinesAlongAnAxisAreAllEquallyWide) {
  for (const int width : {1, 2}) {
    for (float x = 50; x < 60; ++x) {
      Sheet sheet(GetParam());
      sheet.On([&](Surface& surface) {
        surface.SetLineWidth(width);
        surface.Line(x, 20, x, 100);
      });
      EXPECT_EQ(BlackIn(sheet.Image, 80), std::max(1L, std::lround(width * GetParam()))) << x;
    }
  }
}

TEST_P(QtSurfaceAtRatio, DotsAreAllEquallyLarge) {
  for (float x = 50; x < 60; ++x) {
    Sheet sheet(GetParam());
    sheet.On([&](Surface& surface) { surface.SetPixel(x, 20); });
    int dots = 0;
    for (int row = 0; row < sheet.Image.height(); ++row) dots += BlackIn(sheet.Image, row);
    const long side = std::max(1L, std::lround(GetParam()));
    EXPECT_EQ(dots, side * side) << x;
  }
}

TEST(QtSurface, APixelIsTheNearestOne) {
  Sheet sheet(1);
  sheet.On([](Surface& surface) {
    surface.SetForeground(LightRed);
    surface.SetPixel(10.4F, 19.6F);
  });
  EXPECT_EQ(sheet.Image.pixelColor(10, 20), Qt::red);
  EXPECT_EQ(sheet.Image.pixelColor(11, 20), Qt::white);
  EXPECT_EQ(sheet.Image.pixelColor(10, 19), Qt::white);
}

// The rows and columns of the device on which there is anything black.
std::pair<std::vector<int>, std::vector<int>> BlackRowsAndColumns(const QImage& image) {
  std::pair<std::vector<int>, std::vector<int>> found;
  for (int y = 0; y < image.height(); ++y) {
    if (BlackIn(image, y) > 0) found.first.push_back(y);
  }
  for (int x = 0; x < image.width(); ++x) {
    bool isBlack = false;
    for (int y = 0; y < image.height(); ++y) isBlack = isBlack || image.pixelColor(x, y) == Qt::black;
    if (isBlack) found.second.push_back(x);
  }
  return found;
}

TEST_P(QtSurfaceAtRatio, ADotAndTheLinesThroughItComeToTheSamePixels) {
  for (const float part : {0.0F, 0.2F, 0.49999F, 0.5F, 0.50001F, 0.6F, 0.8F, 0.99999F}) {
    const float x = 50 + part;
    const float y = 70 + part;
    Sheet dot(GetParam());
    dot.On([&](Surface& surface) { surface.SetPixel(x, y); });
    Sheet across(GetParam());
    across.On([&](Surface& surface) { surface.Line(20, y, 90, y); });
    Sheet down(GetParam());
    down.On([&](Surface& surface) { surface.Line(x, 20, x, 120); });
    const auto [rows, columns] = BlackRowsAndColumns(dot.Image);
    EXPECT_EQ(rows, BlackRowsAndColumns(across.Image).first) << part;
    EXPECT_EQ(columns, BlackRowsAndColumns(down.Image).second) << part;
  }
}

TEST(QtSurface, WhatFallsShortOfAHalfByAnErrorOfArithmeticIsTheHalf) {
  for (const float x : {50.4999F, 50.5F, 50.5001F}) {
    Sheet sheet(1);
    sheet.On([&](Surface& surface) { surface.Line(x, 20, x, 30); });
    EXPECT_EQ(sheet.Image.pixelColor(51, 25), Qt::black) << x;
  }
}

TEST(QtSurface, LineToGoesOnFromTheLastLinesEnd) {
  Sheet sheet(1);
  sheet.On([](Surface& surface) {
    surface.Line(10, 10, 50, 10);
    surface.LineTo(50, 60);
  });
  EXPECT_EQ(sheet.Image.pixelColor(50, 40), Qt::black);
}

TEST(QtSurface, ClearingLeavesPenAndFontAsTheyAre) {
  Sheet sheet(1);
  sheet.On([](Surface& surface) {
    surface.SetForeground(LightRed);
    surface.SetFont({.Points = 10, .Bold = true});
    const TextExtent bold = surface.Extent("wide");
    surface.Line(0, 5, 20, 5);
    surface.Clear();
    EXPECT_EQ(surface.Extent("wide"), bold);
    surface.Line(0, 9, 20, 9);
  });
  EXPECT_EQ(sheet.Image.pixelColor(10, 5), Qt::white);
  EXPECT_EQ(sheet.Image.pixelColor(10, 9), Qt::red);
}

TEST(QtSurface, TextIsPlainAndOnOneLine) {
  Sheet sheet(1);
  sheet.On([](Surface& surface) {
    EXPECT_EQ(surface.Extent("<b>a</b>").Height, surface.Extent("a\r\nb").Height);
    EXPECT_GT(surface.Extent("<b>a</b>").Width, 3 * surface.Extent("a").Width);
    EXPECT_LT(surface.Extent(std::string(10'000, 'W')).Width, 5000);
    surface.PrintText(0, 0, std::string(10'000, 'W'));
  });
}

}  // namespace
