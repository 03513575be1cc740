// The largest font that fits a place.
#include "platform/qt/FittedText.h"

#include <gtest/gtest.h>

#include <QtWidgets>

namespace {

QFont LettersOf(double points) {
  QFont font(QStringLiteral("Arial"));
  font.setPointSizeF(points);
  return font;
}

TEST(FittedText, AFontThatFitsStaysAsItIs) {
  QFont wanted = LettersOf(11.25);
  wanted.setItalic(true);
  EXPECT_EQ(LargestFont(wanted, [](const QFont&) { return true; }), wanted);
}

TEST(FittedText, ElseItIsTheLargestOfTheHalfPointsThatFits) {
  for (const double limit : {6.0, 9.5, 13.0, 23.5}) {
    const auto fits = [&](const QFont& font) { return font.pointSizeF() <= limit; };
    EXPECT_EQ(LargestFont(LettersOf(24), fits).pointSizeF(), limit);
    EXPECT_EQ(LargestFont(LettersOf(23.8), fits).pointSizeF(), limit);
  }
}

TEST(FittedText, NoLettersAreMadeTooSmallToRead) {
  const auto never = [](const QFont&) { return false; };
  EXPECT_EQ(LargestFont(LettersOf(24), never).pointSizeF(), SmallestPoints);
  EXPECT_EQ(LargestFont(LettersOf(5), never).pointSizeF(), 5) << "the desktop's own";
}

TEST(FittedText, AFontGivenInPixelsIsMadeSmallerToo) {
  QFont wanted = LettersOf(10);
  wanted.setPixelSize(40);
  const auto fits = [](const QFont& font) { return QFontInfo(font).pixelSize() <= 16; };
  EXPECT_LE(QFontInfo(LargestFont(wanted, fits)).pixelSize(), 16);
  EXPECT_NEAR(PointsOf(ScaledFont(wanted, 0.5)), PointsOf(wanted) / 2, 0.01);
}

TEST(FittedText, TextFitsFromItsOwnSizeOn) {
  const QString text = QStringLiteral("Equations");
  const QFontMetrics metrics(LettersOf(12));
  const auto smallest = [&](auto roomOf) {
    int side = 0;
    while (!TextFits(LettersOf(12), text, roomOf(side), 0)) ++side;
    return side;
  };
  EXPECT_NEAR(smallest([](int width) { return QSize(width, 500); }), metrics.horizontalAdvance(text), 3);
  EXPECT_NEAR(smallest([](int height) { return QSize(500, height); }), metrics.height(), 2);
}

TEST(FittedText, WordsWrapButALongWordDoesNot) {
  const QSize narrow(QFontMetrics(LettersOf(12)).horizontalAdvance(QStringLiteral("several words")), 500);
  EXPECT_TRUE(
      TextFits(LettersOf(12), QStringLiteral("several words in several lines"), narrow, Qt::TextWordWrap));
  EXPECT_FALSE(TextFits(LettersOf(12), QString(60, QLatin1Char('w')), narrow, Qt::TextWordWrap));
}

TEST(FittedText, ShortenedTextIsTheLongestBeginningThatFits) {
  const QString text = QStringLiteral("a text of several words that is far too long for its place");
  const QSize room(160, 60);
  const QString shown = ShortenedText(LettersOf(14), text, room, Qt::TextWordWrap);
  ASSERT_TRUE(shown.endsWith(QChar(0x2026)));
  const QString beginning = shown.chopped(1);
  EXPECT_TRUE(text.startsWith(beginning));
  EXPECT_TRUE(TextFits(LettersOf(14), shown, room, Qt::TextWordWrap));
  EXPECT_FALSE(
      TextFits(LettersOf(14), text.first(beginning.size() + 2) + QChar(0x2026), room, Qt::TextWordWrap));
  EXPECT_EQ(ShortenedText(LettersOf(14), QStringLiteral("short"), room, 0), QStringLiteral("short"));
}

TEST(FittedText, NoRoomAtAllLeavesAnEllipsis) {
  EXPECT_EQ(ShortenedText(LettersOf(14), QStringLiteral("text"), QSize(0, 0), 0), QString(QChar(0x2026)));
}

TEST(FittedText, ButtonsOfOneRowHaveOneFont) {
  QWidget row;
  QPushButton wide(QStringLiteral("&Save as ..."), &row), narrow(QStringLiteral("So&lutions"), &row);
  wide.setGeometry(0, 0, 200, 30);
  narrow.setGeometry(0, 0, 76, 30);
  FitCaptions({&wide, &narrow}, LettersOf(18));
  EXPECT_EQ(wide.font(), narrow.font());
  EXPECT_LT(narrow.font().pointSizeF(), 18);
  EXPECT_LE(narrow.fontMetrics().horizontalAdvance(QStringLiteral("Solutions")), 76);
  narrow.setGeometry(0, 0, 200, 40);
  wide.setGeometry(0, 0, 200, 40);
  FitCaptions({&wide, &narrow}, LettersOf(18));
  EXPECT_EQ(wide.font().pointSizeF(), 18);
}

TEST(FittedText, AWidgetShrinksWithAllItContains) {
  QWidget panel;
  QVBoxLayout rows(&panel);
  QLabel label(QStringLiteral("a label of some length"));
  QPushButton button(QStringLiteral("and a button below it"));
  rows.addWidget(&label);
  rows.addWidget(&button);
  const QSize room(220, 90);
  FitWidget(panel, LettersOf(24), room);
  EXPECT_LE(panel.sizeHint().width(), room.width());
  EXPECT_LE(panel.sizeHint().height(), room.height());
  EXPECT_EQ(label.font().pointSizeF(), panel.font().pointSizeF());
  const double smaller = panel.font().pointSizeF();
  EXPECT_LT(smaller, 24);
  FitWidget(panel, LettersOf(24), QSize(2000, 2000));
  EXPECT_EQ(button.font().pointSizeF(), 24) << "a place that grows brings larger letters back";
}

}  // namespace
