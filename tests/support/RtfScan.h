// A reader of RTF that forgives nothing: whatever is not known, not closed or not where it belongs is an
// error.
#pragma once

#include <QByteArray>
#include <QColor>
#include <QImage>
#include <QString>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

/// What is wrong, and at which byte.
struct RtfError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

struct RtfLook {
  QString Font = {};
  int HalfPoints = 24;
  QRgb Colour = qRgb(0, 0, 0);
  bool Bold = false, Italic = false, Underlined = false;

  friend bool operator==(const RtfLook&, const RtfLook&) = default;
};

/// Characters that look the same.
struct RtfRun {
  RtfLook Look;
  QString Text;

  friend bool operator==(const RtfRun&, const RtfRun&) = default;
  friend std::ostream& operator<<(std::ostream& out, const RtfRun& run) {
    return out << '"' << run.Text.toStdString() << "\" in " << run.Look.Font.toStdString() << ' '
               << run.Look.HalfPoints << ' ' << QColor(run.Look.Colour).name().toStdString()
               << (run.Look.Bold ? " bold" : "") << (run.Look.Italic ? " italic" : "")
               << (run.Look.Underlined ? " underlined" : "");
  }
};

struct RtfPicture {
  QString Description;
  QImage Image;
  int WidthInTwips = 0, HeightInTwips = 0;
};

/// What belongs to a paragraph as a whole.
struct RtfLayout {
  int Style = 0;          ///< 1 and 2 are headings
  int OutlineLevel = -1;  ///< from 0; -1 for what is no heading
  bool StaysWithNext = false, StaysWhole = false;
  bool IsRow = false, IsHeaderRow = false;  ///< a row of a table is a paragraph
};

struct RtfParagraph {
  RtfLayout Layout;
  std::vector<RtfRun> Runs;  ///< a picture is U+FFFC
  RtfLook EndLook;           ///< of the paragraph's end, which is as high as its letters
};

struct RtfDocument {
  std::vector<RtfParagraph> Paragraphs;  ///< the last one is what follows the last \par
  std::vector<RtfPicture> Pictures;
  QString Title;
  bool HasHeadingStyles = false;
  int PaperWidth = 0, PaperHeight = 0, TextWidth = 0, DefaultTab = 0;  ///< twips

  /// Paragraphs with LF between them, UTF-8.
  std::string Text() const;

  /// The runs of all paragraphs that have something, for short documents.
  std::vector<RtfRun> Runs() const;
};

/// Throws RtfError.
RtfDocument ScanRtf(const QByteArray& rtf);
