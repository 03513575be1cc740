// Taking the moment out of a PDF file without harm to the rest of it.
#include "paper/qt/SteadyPdf.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <QTest>
#include <QXmlStreamReader>

namespace {

// A file of two objects, of which the first says when it was made and changed, with a number at its end.
QByteArray SmallPdf(const QByteArray& made, const QByteArray& changed = "", const QByteArray& number = "") {
  QByteArray pdf = "%PDF-1.4\n1 0 obj\n<<\n/Title ()\n" + made + "\n" + changed + "\n>>\nendobj\n";
  const QByteArray second = QByteArray::number(pdf.size()).rightJustified(10, '0');
  pdf += "2 0 obj\n<<\n/Type /Catalog\n>>\nendobj\n";
  const QByteArray table = QByteArray::number(pdf.size());
  return pdf + "xref\n0 3\n0000000000 65535 f \n0000000009 00000 n \n" + second +
         " 00000 n \ntrailer\n<<\n/Size 3\n" + number + ">>\nstartxref\n" + table + "\n%%EOF\n";
}

QByteArray ToolkitPdf(const QString& title) {
  QByteArray pdf;
  QBuffer buffer(&pdf);
  EXPECT_TRUE(buffer.open(QIODevice::WriteOnly));
  QPdfWriter writer(&buffer);
  DescribePdf(writer, title);
  QPainter painter(&writer);
  painter.drawText(100, 100, QStringLiteral("a page"));
  painter.end();
  return pdf;
}

// What stands in the file's own description, its tags taken away.
QString DescriptionOf(const QByteArray& pdf) {
  const qsizetype begin = pdf.indexOf("<x:xmpmeta");
  QXmlStreamReader xml(pdf.mid(begin, pdf.indexOf("<?xpacket end") - begin));
  QString text;
  while (!xml.atEnd()) {
    xml.readNext();
    if (xml.isCharacters()) text += xml.text();
  }
  EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
  return text.simplified();
}

TEST(SteadyPdf, RemovesTheDateAndCorrectsEveryOffset) {
  EXPECT_EQ(SteadyPdf(SmallPdf("/CreationDate (D:20240229235959Z)")), SmallPdf(""));
}

TEST(SteadyPdf, RemovesTheDateOfTheLastChangeAndTheNumberToo) {
  EXPECT_EQ(SteadyPdf(SmallPdf("/CreationDate (D:20240229235959Z)", "/ModDate (D:20240301000000+01'00')",
                               "/ID [ <3032> <3033> ]\n")),
            SmallPdf(""));
}

TEST(SteadyPdf, IsTheSameForEveryTimeZone) {
  EXPECT_EQ(SteadyPdf(SmallPdf("/CreationDate (D:20240229235959Z)")),
            SteadyPdf(SmallPdf("/CreationDate (D:20250101000000+01'00')")));
}

TEST(SteadyPdf, LeavesAFileWithoutADateAsItIs) {
  EXPECT_EQ(SteadyPdf(SmallPdf("")), SmallPdf(""));
  EXPECT_EQ(SteadyPdf(""), "");
  EXPECT_EQ(SteadyPdf("/CreationDate (D:2024"), "/CreationDate (D:2024");
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
    EXPECT_EQ(SteadyPdf(broken), broken) << wrong;
  }
  for (qsizetype length = 0; length < whole.size(); ++length) {
    EXPECT_LE(SteadyPdf(whole.first(length)).size(), length);
  }
}

TEST(SteadyPdf, KnowsWhatTheToolkitWrites) {
  const QByteArray pdf = ToolkitPdf(QStringLiteral("a title"));
  ASSERT_TRUE(pdf.contains("/CreationDate"));
  const QByteArray steady = SteadyPdf(pdf);
  for (const char* moment : {"Date", "uuid", "/ID"}) EXPECT_FALSE(steady.contains(moment)) << moment;

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

TEST(SteadyPdf, IsTheSameASecondLater) {
  const QByteArray first = SteadyPdf(ToolkitPdf(QStringLiteral("a title")));
  QTest::qWait(1100);
  EXPECT_EQ(SteadyPdf(ToolkitPdf(QStringLiteral("a title"))), first);
}

TEST(DescribePdf, SaysTheTitleWhateverItsCharacters) {
  EXPECT_EQ(DescriptionOf(ToolkitPdf(QStringLiteral("Br\u00FCcke.trs"))),
            QStringLiteral("Br\u00FCcke.trs Orvane"));
  EXPECT_EQ(DescriptionOf(ToolkitPdf(QStringLiteral("a<b> & \"%2\"\u0001\u001B.trs"))),
            QStringLiteral("a<b> & \"%2\".trs Orvane"));
  EXPECT_EQ(DescriptionOf(ToolkitPdf(QString())), QStringLiteral("Orvane"));
}

}  // namespace
