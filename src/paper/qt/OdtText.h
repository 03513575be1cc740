// The text of an OpenDocument file, and the styles that are met in it.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringView>
#include <vector>

#include "paper/qt/DocumentWalk.h"

/// A length as the file has it.
QByteArray OdtPoints(double points);

/// Text in which every blank that a reader might take for layout is an element of its own: all but a single
/// one between two characters of the same run.
class OdtText {
 public:
  void Write(QStringView text);
  void Markup(const QByteArray& markup) { bytes_ += markup; }
  const QByteArray& Bytes() const { return bytes_; }

 private:
  void WriteLetters(QStringView letters);
  void WriteBlanks(qsizetype count);

  QByteArray bytes_;
};

/// The styles that were met, in the order of their first appearance, named "P1", "P2" ... or "T1", "T2" ...
class OdtStyles {
 public:
  OdtStyles(char initial, const char* family) : initial_(initial), family_(family) {}

  QByteArray NameOf(const Letters& letters) { return NameOf(Style{.Look = letters}); }
  QByteArray NameOf(const Paragraph& paragraph);

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
  QByteArray NameOf(const Style& style);

  char initial_;
  const char* family_;
  std::vector<Style> met_;
};
