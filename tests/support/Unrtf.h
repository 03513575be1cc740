// What an RTF reader that is not ours makes of a file: unrtf, a program of the system.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>
#include <map>
#include <string>
#include <vector>

/// Texts are UTF-8.
struct UnrtfReading {
  std::string
      Text;  ///< lines with LF between them, blank ones left out; runs of blanks and tabs are one blank
  std::string BoldText;                             ///< all bold letters, without blanks
  std::map<std::string, std::string> TextByColour;  ///< all letters of a colour ("#800000"), without blanks
  std::vector<QImage> Pictures;
};

/// Fails the test when unrtf is not installed or does not read the file.
UnrtfReading ReadWithUnrtf(const QByteArray& rtf);

/// A text as UnrtfReading has it: each run of blanks and tabs is one blank, none at the ends of lines; no
/// blank lines and no pictures.
std::string AsUnrtfTells(QString text);
