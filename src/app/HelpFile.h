// The compiled help file: its topics and pictures, read only from the very file that was built with the
// program.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

/// The library that reads compiled help has memory faults on damaged files, so it is never shown one: size
/// and hash are compared first, and it reads from a copy that nobody else can change. Everything is unpacked
/// at once, so that later changes of the file do no harm either.
class HelpFile {
 public:
  /// False when the file cannot be used; Problem() then says why, and a file that was open before stays open.
  bool Open(const QString& path);

  /// A sentence or two for the user; empty after a file was opened.
  const QString& Problem() const { return problem_; }

  bool IsOpen() const { return !files_.isEmpty(); }

  /// Files are named as in "truss help/truss_theory.htm".
  bool Contains(const QString& name) const { return files_.contains(name); }

  /// The bytes of a file; empty when there is none of this name.
  QByteArray Read(const QString& name) const { return files_.value(name); }

  /// The names of all files, in order.
  QStringList Names() const;

 private:
  QHash<QString, QByteArray> files_;
  QString problem_;
};
