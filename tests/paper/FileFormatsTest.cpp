// Which kind of file is meant by a name's ending.
#include "paper/FileFormats.h"

#include <gtest/gtest.h>

TEST(FileFormats, OfPicturesAreToldByTheEnding) {
  EXPECT_EQ(PictureFormatOf("truss.png"), PictureFileFormat::Png);
  EXPECT_EQ(PictureFormatOf("truss.svg"), PictureFileFormat::Svg);
  EXPECT_EQ(PictureFormatOf("truss.pdf"), PictureFileFormat::Pdf);
}

TEST(FileFormats, OfDocumentsAreToldByTheEnding) {
  EXPECT_EQ(DocumentFormatOf("report.rtf"), DocumentFileFormat::Rtf);
  EXPECT_EQ(DocumentFormatOf("report.pdf"), DocumentFileFormat::Pdf);
  EXPECT_EQ(DocumentFormatOf("report.odt"), DocumentFileFormat::Odt);
  EXPECT_EQ(DocumentFormatOf("report.html"), DocumentFileFormat::Html);
}

TEST(FileFormats, CapitalLettersMeanTheSame) {
  EXPECT_EQ(PictureFormatOf("TRUSS.PNG"), PictureFileFormat::Png);
  EXPECT_EQ(DocumentFormatOf("Report.Html"), DocumentFileFormat::Html);
}

TEST(FileFormats, TheLastEndingCounts) {
  EXPECT_EQ(PictureFormatOf("a.svg.png"), PictureFileFormat::Png);
  EXPECT_EQ(PictureFormatOf("a.png.txt"), std::nullopt);
  EXPECT_EQ(DocumentFormatOf("folder.rtf/report"), std::nullopt);
}

TEST(FileFormats, AnotherEndingOrNoneIsNoFormat) {
  for (const char* path : {"", "png", "apng", "truss", "truss.", "truss.jpg", "truss.png ", "truss.rtf"}) {
    EXPECT_EQ(PictureFormatOf(path), std::nullopt) << path;
  }
  for (const char* path : {"", "rtf", "report.htm", "report.docx", "report.png"}) {
    EXPECT_EQ(DocumentFormatOf(path), std::nullopt) << path;
  }
}

TEST(FileFormats, AnEndingAloneIsEnough) { EXPECT_EQ(DocumentFormatOf(".odt"), DocumentFileFormat::Odt); }
