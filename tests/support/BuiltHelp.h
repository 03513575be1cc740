// The help file of this build, and its pages as the viewer's toolkit understands them.
#pragma once

#include <gtest/gtest.h>

#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>
#include <QTextBlock>
#include <QTextDocument>
#include <QUrl>
#include <string>

#include "app/HelpFile.h"

/// Where the program and its help file were built; UTF-8.
inline std::string ProgramDirectory() { return ORVANE_PROGRAM_DIRECTORY; }
inline std::string HelpFilePath() { return ProgramDirectory() + "/orvane.chm"; }

/// Tests whose fixture is this one fail at once, and say why, when the help was not built.
class BuiltHelpTest : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(QFileInfo::exists(QString::fromStdString(HelpFilePath())))
        << HelpFilePath() << " is not built";
  }
};

inline const HelpFile& BuiltHelp() {
  static const HelpFile help = [] {
    HelpFile file;
    EXPECT_TRUE(file.Open(QString::fromStdString(HelpFilePath()))) << file.Problem().toStdString();
    return file;
  }();
  return help;
}

/// The names of all pages.
inline QStringList HelpPages() {
  return BuiltHelp().Names().filter(QRegularExpression(QStringLiteral("\\.htm$")));
}

/// A page with its links, places and pictures, as the viewer sees them.
struct HelpPage {
  explicit HelpPage(const QString& name) : Name(name), Markup(QString::fromUtf8(BuiltHelp().Read(name))) {
    Document.setHtml(Markup);
    for (QTextBlock block = Document.begin(); block.isValid(); block = block.next()) {
      for (auto part = block.begin(); !part.atEnd(); ++part) Take(part.fragment().charFormat());
    }
  }

  /// What an address on this page leads to: "program/files.htm#place".
  QString Target(const QString& address) const {
    QUrl here;
    here.setScheme(QStringLiteral("help"));
    here.setPath(u'/' + Name);
    const QUrl there = here.resolved(QUrl(address));
    if (there.scheme() != here.scheme()) return address;
    const QString path = there.path().mid(1);
    return there.hasFragment() ? path + u'#' + there.fragment() : path;
  }

  QString Name;
  QString Markup;
  QTextDocument Document;
  QStringList Links;     // as they are written
  QStringList Pictures;  // as they are written
  QSet<QString> Places;  // what "#place" can lead to

 private:
  void Take(const QTextCharFormat& format) {
    if (!format.anchorHref().isEmpty()) Links.append(format.anchorHref());
    for (const QString& place : format.anchorNames()) Places.insert(place);
    if (format.isImageFormat()) Pictures.append(format.toImageFormat().name());
  }
};
