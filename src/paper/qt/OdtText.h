// The text of an OpenDocument file, and the styles that are met in it.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>
#include <string>
#include <vector>

#include "paper/qt/DeflateStream.h"
#include "paper/qt/DocumentWalk.h"

/// A length as the file has it.
QByteArray OdtPoints(double points);

/// Text in which every blank that a reader might take for layout is an element of its own: all but a single
/// one between two characters of the same run. It is packed as it is written, because it is fifty times as
/// long as the file that holds it.
class OdtText {
 public:
  void Write(QStringView text);
  void Markup(QByteArrayView markup);

  /// Packs what was written so far. To be called once, at the end.
  Deflated Take();

 private:
  void Pack();
  void WriteLetters(QStringView letters);
  void WriteBlanks(qsizetype count);

  std::string bytes_;          // quicker than an array of the toolkit's for appending little by little
  qsizetype blanks_ = 0;       // that were written last
  std::string blanksElement_;  // and how
  DeflateStream packed_;       // what stands before them
};

/// The styles that were met, in the order of their first appearance, named "P1", "P2" ... or "T1", "T2" ...
class OdtStyles {
 public:
  OdtStyles(char initial, const char* family) : initial_(initial), family_(family) {}

  /// Valid until the next style is met.
  const QByteArray& NameOf(const Letters& letters) { return NameOf(Style{.Look = letters}); }
  const QByteArray& NameOf(const Paragraph& paragraph);

  /// The styles themselves, as elements.
  QByteArray Bytes() const;

  struct Style {
    Letters Look;
    int HeadingLevel = 0;
    bool StaysWithNext = false, StaysWhole = false;

    friend bool operator==(const Style&, const Style&) = default;
  };
  const std::vector<Style>& Met() const { return met_; }

 private:
  const QByteArray& NameOf(const Style& style);

  char initial_;
  const char* family_;
  std::vector<Style> met_;
  std::vector<QByteArray> names_;  // of those met
};
