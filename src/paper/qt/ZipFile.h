// A zip file in memory, without dates.
#pragma once

#include <QByteArray>
#include <optional>
#include <utility>
#include <vector>

#include "paper/qt/DeflateStream.h"

class ZipFile {
 public:
  enum class Method { Stored, Deflated };

  /// `name` is ASCII; folders are written with "/". Every file is dated 1 January 1980, the first day that
  /// the format knows.
  void Add(const QByteArray& name, const QByteArray& contents, Method method) {
    entries_.push_back({name, contents, {}, method});
  }

  /// One that is packed already.
  void AddDeflated(const QByteArray& name, Deflated contents) {
    entries_.push_back({name, {}, std::move(contents), Method::Deflated});
  }

  /// The file's bytes, with its directory; empty when it cannot be made.
  QByteArray Bytes() const;

 private:
  struct Entry {
    QByteArray Name;
    QByteArray Contents;
    std::optional<Deflated> Packed;  // in place of the contents
    Method How;
  };
  std::vector<Entry> entries_;
};
