// A zip file in memory, without dates.
#pragma once

#include <QByteArray>
#include <utility>
#include <vector>

class ZipFile {
 public:
  enum class Method { Stored, Deflated };

  /// `name` is ASCII; folders are written with "/". Every file is dated 1 January 1980, the first day that
  /// the format knows.
  void Add(const QByteArray& name, const QByteArray& contents, Method method) {
    AddJoined(name, {contents}, method);
  }

  /// The pieces stand in the file one after the other. They are shared, not copied.
  void AddJoined(const QByteArray& name, std::vector<QByteArray> pieces, Method method) {
    entries_.push_back({name, std::move(pieces), method});
  }

  /// The file's bytes, with its directory; empty when it cannot be made.
  QByteArray Bytes() const;

 private:
  struct Entry {
    QByteArray Name;
    std::vector<QByteArray> Pieces;
    Method How;
  };
  std::vector<Entry> entries_;
};
