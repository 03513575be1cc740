// Bytes that grow at their end, and go to a temporary file while they are many: a report whose names have
// thousands of characters has tables of gigabytes.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QTemporaryFile>
#include <memory>

#include "platform/ManyBytes.h"

class SpooledBytes {
 public:
  using size_type = qsizetype;

  SpooledBytes& operator+=(QByteArrayView bytes) {
    kept_ += bytes;
    if (kept_.size() > MostKept) Spool();
    return *this;
  }
  SpooledBytes& operator+=(char byte) {
    kept_ += byte;
    return *this;
  }
  void append(const char* bytes, size_type count) { *this += QByteArrayView(bytes, count); }

  qint64 Size() const { return inFile_ + kept_.size(); }

  /// As ManyBytes::Tell, also where the bytes could not be kept in the file.
  int Tell(const ManyBytes::Take& take) const;

 private:
  static constexpr qsizetype MostKept = 16 << 20;

  void Spool();

  QByteArray kept_;  // what follows the file's bytes
  std::unique_ptr<QTemporaryFile> file_;
  qint64 inFile_ = 0;
  int error_ = 0;  // the system's number
};

/// All of the bytes together; empty when they could not be told.
QByteArray Joined(const ManyBytes& bytes);

/// The bytes with what stands before and behind them.
ManyBytes ManyBytesOf(QByteArray head, SpooledBytes body, QByteArray tail);
