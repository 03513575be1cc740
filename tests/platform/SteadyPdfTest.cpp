// Taking the date out of a PDF file without harm to the rest of it.
#include "platform/qt/SteadyPdf.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>

namespace {

// A file of two objects, of which the first says when it was made.
QByteArray SmallPdf(const QByteArray& date) {
  QByteArray pdf = "%PDF-1.4\n1 0 obj\n<<\n/Title ()\n" + date + "\n>>\nendobj\n";
  const QByteArray second = QByteArray::number(pdf.size()).rightJustified(10, '0');
  pdf += "2 0 obj\n<<\n/Type /Catalog\n>>\nendobj\n";
  const QByteArray table = QByteArray::number(pdf.size());
  return pdf + "xref\n0 3\n0000000000 65535 f \n0000000009 00000 n \n" + second +
         " 00000 n \ntrailer\n<<\n/Size 3\n>>\nstartxref\n" + table + "\n%%EOF\n";
}

TEST(SteadyPdf, RemovesTheDateAndCorrectsEveryOffset) {
  EXPECT_EQ(WithoutDates(SmallPdf("/CreationDate (D:20240229235959Z)")), SmallPdf(""));
}

TEST(SteadyPdf, IsTheSameForEveryTimeZone) {
  EXPECT_EQ(WithoutDates(SmallPdf("/CreationDate (D:20240229235959Z)")),
            WithoutDates(SmallPdf("/CreationDate (D:20250101000000+01'00')")));
}

TEST(SteadyPdf, LeavesAFileWithoutADateAsItIs) {
  EXPECT_EQ(WithoutDates(SmallPdf("")), SmallPdf(""));
  EXPECT_EQ(WithoutDates(""), "");
  EXPECT_EQ(WithoutDates("/CreationDate (D:2024"), "/CreationDate (D:2024");
}

TEST(SteadyPdf, LeavesAFileWithABrokenTableAsItIs) {
  const QByteArray whole = SmallPdf("/CreationDate (D:20240229235959Z)");
  for (const auto& [right, wrong] : {std::pair{"startxref\n", "startxref\n9999"},
                                     {"startxref\n", "startxref\n-"},
                                     {"startxref\n", "startxref\nx"},
                                     {"startxref", "start"},
                                     {"xref\n0 3\n", "xref\n0 9\n"},
                                     {"xref\n0 3\n", "xref\n0 a\n"},
                                     {"0000000009 00000 n", "000000000x 00000 n"}}) {
    QByteArray broken = whole;
    broken.replace(broken.lastIndexOf(right), static_cast<qsizetype>(qstrlen(right)), wrong);
    EXPECT_EQ(WithoutDates(broken), broken) << wrong;
  }
  for (qsizetype length = 0; length < whole.size(); ++length) {
    EXPECT_LE(WithoutDates(whole.first(length)).size(), length);
  }
}

TEST(SteadyPdf, KnowsWhatTheToolkitWrites) {
  QByteArray pdf;
  QBuffer buffer(&pdf);
  ASSERT_TRUE(buffer.open(QIODevice::WriteOnly));
  {
    QPdfWriter writer(&buffer);
    QPainter painter(&writer);
    painter.drawText(100, 100, QStringLiteral("a page"));
  }
  ASSERT_TRUE(pdf.contains("/CreationDate"));
  const QByteArray steady = WithoutDates(pdf);
  EXPECT_FALSE(steady.contains("/CreationDate"));

  const qsizetype table =
      steady.mid(steady.lastIndexOf("startxref") + 10).split('\n').first().trimmed().toLongLong();
  const QList<QByteArray> lines = steady.mid(table).split('\n');
  ASSERT_EQ(lines[0], "xref");
  const int numObjects = lines[1].split(' ').last().toInt();
  ASSERT_GT(numObjects, 5);
  for (int i = 1; i < numObjects; ++i) {
    const qsizetype offset = lines[2 + i].first(10).toLongLong();
    EXPECT_TRUE(steady.mid(offset).startsWith(QByteArray::number(i) + " 0 obj")) << i;
  }
}

}  // namespace
