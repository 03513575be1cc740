// What stands in an OpenDocument text.
#pragma once

#include <gtest/gtest.h>

#include <QProcess>
#include <QXmlStreamReader>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "support/TemporaryDirectory.h"

/// An OpenDocument text, unpacked by a program that is not ours and read as its standard tells: blanks in a
/// paragraph count once, and not at all at its ends, unless they are elements.
class OdtReading {
 public:
  explicit OdtReading(QByteArray bytes) : Bytes(std::move(bytes)) {
    directory_.Put("it.odt", Bytes.toStdString());
    QProcess unpack;
    unpack.setWorkingDirectory(QString::fromStdString(directory_ / ""));
    unpack.start(QStringLiteral(ORVANE_CMAKE), {QStringLiteral("-E"), QStringLiteral("tar"),
                                                QStringLiteral("xf"), QStringLiteral("it.odt")});
    EXPECT_TRUE(unpack.waitForFinished());
    EXPECT_EQ(unpack.exitCode(), 0) << unpack.readAllStandardError().toStdString();
    ReadContent();
  }

  std::string File(const std::string& name) const { return directory_.Bytes(name); }

  struct Run {
    QString Text;
    std::map<QString, QString> Properties;  // of its style
  };

  std::string Text() const {
    QString text;
    for (const std::vector<Run>& paragraph : Paragraphs) {
      if (&paragraph != &Paragraphs.front()) text += u'\n';
      for (const Run& run : paragraph) text += run.Text;
    }
    return text.toStdString();
  }

  QByteArray Bytes;
  std::vector<std::vector<Run>> Paragraphs;
  std::vector<bool> StaysWithNext;  // of each paragraph
  std::vector<bool> StaysWhole;
  std::vector<std::pair<int, std::size_t>> Headings;  // level and paragraph (from 0)
  std::vector<std::size_t> HeaderRows, Rows;          // their paragraphs
  std::vector<std::string> Descriptions;

 private:
  void ReadContent() {
    QXmlStreamReader xml(QByteArray::fromStdString(File("content.xml")));
    std::map<QString, std::map<QString, QString>> styles;
    std::set<QString> keepingStyles, wholeStyles;
    bool isHeader = false;
    QString style, paragraphStyle;
    while (!xml.atEnd()) {
      xml.readNext();
      const auto attribute = [&xml](const char* name) {
        for (const QXmlStreamAttribute& each : xml.attributes()) {
          if (each.name() == QLatin1String(name)) return each.value().toString();
        }
        return QString();
      };
      const QString name = xml.name().toString();
      if (xml.isStartElement()) {
        if (name == QLatin1String("style")) style = attribute("name");
        if (name == QLatin1String("text-properties")) {
          for (const QXmlStreamAttribute& each : xml.attributes()) {
            styles[style][each.name().toString()] = each.value().toString();
          }
        }
        if (name == QLatin1String("paragraph-properties") && !attribute("keep-with-next").isEmpty()) {
          keepingStyles.insert(style);
        }
        if (name == QLatin1String("paragraph-properties") && !attribute("keep-together").isEmpty()) {
          wholeStyles.insert(style);
        }
        if (name == QLatin1String("desc")) Descriptions.push_back(xml.readElementText().toStdString());
        if (name == QLatin1String("table-header-rows")) isHeader = true;
        if (name == QLatin1String("table-row")) (isHeader ? HeaderRows : Rows).push_back(Paragraphs.size());
        if (name == QLatin1String("h")) {
          Headings.emplace_back(attribute("outline-level").toInt(), Paragraphs.size());
        }
        if (name == QLatin1String("p") || name == QLatin1String("h")) {
          Paragraphs.emplace_back();
          paragraphStyle = attribute("style-name");
          StaysWithNext.push_back(keepingStyles.contains(paragraphStyle));
          StaysWhole.push_back(wholeStyles.contains(paragraphStyle));
          style = paragraphStyle;
          inParagraph_ = true;
        }
        if (name == QLatin1String("span")) style = attribute("style-name");
        if (name == QLatin1String("s")) {
          const QString count = attribute("c");
          Put(QString(count.isEmpty() ? 1 : count.toInt(), u' '), styles.at(style), true);
        }
        if (name == QLatin1String("tab")) Put(QStringLiteral("\t"), styles.at(style), true);
        if (name == QLatin1String("line-break")) Put(QStringLiteral("\u2028"), styles.at(style), true);
        if (name == QLatin1String("image")) Put(QStringLiteral("\uFFFC"), styles.at(style), true);
      } else if (xml.isEndElement()) {
        if (name == QLatin1String("p") || name == QLatin1String("h")) inParagraph_ = false;
        if (name == QLatin1String("table-header-rows")) isHeader = false;
        if (name == QLatin1String("span")) style = paragraphStyle;
      } else if (xml.isCharacters() && inParagraph_) {
        Put(xml.text().toString(), styles.at(style), false);
      }
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
  }

  void Put(const QString& text, const std::map<QString, QString>& properties, bool isElement) {
    EXPECT_TRUE(isElement || !text.contains(QStringLiteral("  "))) << "blanks that a reader joins";
    EXPECT_TRUE(isElement || text.simplified() == text) << "blanks that a reader may drop";
    std::vector<Run>& runs = Paragraphs.back();
    if (runs.empty() || runs.back().Properties != properties) runs.push_back({{}, properties});
    runs.back().Text += text;
  }

  TemporaryDirectory directory_;
  bool inParagraph_ = false;
};
