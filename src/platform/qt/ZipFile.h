// A zip file in memory, without dates.
#pragma once

#include <QByteArray>

class ZipFile {
 public:
  enum class Method { Stored, Deflated };

  /// `name` is ASCII; folders are written with "/". Every file is dated 1 January 1980, the first day that
  /// the format knows. Name and contents are smaller than 2 GiB together with everything added before.
  void Add(const QByteArray& name, const QByteArray& contents, Method method);

  /// The file's bytes, with its directory. To be called once, after the last file.
  QByteArray Finish();

 private:
  QByteArray bytes_;
  QByteArray directory_;
  int numFiles_ = 0;
};
