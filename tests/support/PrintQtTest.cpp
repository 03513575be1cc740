// Who reads a failed assertion reads texts and places, not bytes.
#include <gtest/gtest.h>

#include <QPoint>
#include <QSize>
#include <QString>

TEST(FailedAssertions, ShowTextsAsTheyAreRead) {
  EXPECT_EQ(testing::PrintToString(QStringLiteral("–3 °")), "\"–3 °\"");
  EXPECT_EQ(testing::PrintToString(QByteArray("<p>")), "\"<p>\"");
}

TEST(FailedAssertions, ShowPlacesAndSizes) {
  EXPECT_EQ(testing::PrintToString(QPoint(3, -4)), "QPoint(3,-4)");
  EXPECT_EQ(testing::PrintToString(QSize(640, 480)), "QSize(640, 480)");
}
