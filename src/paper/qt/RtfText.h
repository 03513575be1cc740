// The signs that RTF is made of: control words, symbols, groups and characters.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringView>
#include <utility>

#include "paper/qt/SpooledBytes.h"

/// A control word ends at the first character that cannot belong to it; where a character follows that could,
/// a blank ends it.
class RtfText {
 public:
  void Word(const char* word) {
    bytes_ += '\\';
    bytes_ += word;
    wordIsOpen_ = true;
  }
  void Word(const char* word, long number) {
    Word(word);
    bytes_ += QByteArray::number(static_cast<qlonglong>(number));
  }
  void Symbol(char symbol) {
    bytes_ += '\\';
    bytes_ += symbol;
    wordIsOpen_ = false;
  }
  void BeginGroup() {
    bytes_ += '{';
    wordIsOpen_ = false;
  }
  void EndGroup() {
    bytes_ += '}';
    wordIsOpen_ = false;
  }
  void EndLine() {
    bytes_ += "\r\n";
    wordIsOpen_ = false;
  }

  /// Every character as itself or escaped. Blanks that follow one another have an empty group between them
  /// where `separatesBlanks`: there are readers that take a run of blanks in proportional letters for a
  /// typist's way of setting a text, and change their width.
  void Text(const QString& text, bool separatesBlanks = false);

  /// The bytes in hexadecimal, on lines of their own.
  void Hexadecimal(const QByteArray& data);

  /// To be asked for once, at the end.
  SpooledBytes TakeBytes() { return std::move(bytes_); }

 private:
  void Character(char character) {
    if (wordIsOpen_) bytes_ += ' ';
    bytes_ += character;
    wordIsOpen_ = false;
  }
  void Letters(QStringView plain);
  void Write(char16_t code);
  void Unicode(char16_t code);

  SpooledBytes bytes_;
  bool wordIsOpen_ = true;  // whether the last thing written is a control word; what stands before ends so
  QHash<char16_t, QByteArray> escapes_;
};
