// Runs the built program in an environment without a display and in the C locale.
#pragma once

#include <QByteArray>
#include <QMap>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// How one run of the program ended.
struct Ended {
  int Status = -1;  ///< the exit status; -1 when it crashed or ran too long
  QByteArray Out;
  QByteArray Err;
};

struct ProgramCall {
  QStringList Arguments;
  QByteArray Input;                          ///< what stands on standard input
  QString OutputFile;                        ///< where standard output goes; "": to Ended::Out
  QString LocaleName = QStringLiteral("C");  ///< LC_ALL
  QMap<QString, QString> Environment = {};   ///< variables to be set besides
};

/// The environment in which the program runs.
QProcessEnvironment EnvironmentFor(const ProgramCall& call);

Ended RunProgram(const ProgramCall& call);
Ended RunProgram(const QStringList& arguments, const QByteArray& input = {});

/// Runs a script of the shell in the same way; in it the program is "$0" and the arguments are "$1" and so
/// on.
Ended RunShell(const QString& script, const QStringList& arguments, const QByteArray& input);

/// The arguments of a call, written with blanks between them.
QStringList Words(const char* words);

/// The path of one of the example trusses.
QString Example(const char* name);

/// A directory with files for one test.
class TestFiles {
 public:
  QString Path(const QString& name) const { return directory_.filePath(name); }
  /// Writes a file and gives its path.
  QString File(const QString& name, const QByteArray& bytes) const;

 private:
  QTemporaryDir directory_;
};

QByteArray BytesOf(const QString& path);

/// A triangle on a clamp and a roller: reactions Ax, Ay, B, members AB, AC, BC, joints A, B, C, and a load of
/// 1000 on top. The rulers are off.
QByteArray TriangleText();

/// TriangleText with its third member's line broken, which is line 19.
QByteArray BrokenTriangleText();
inline constexpr const char* BrokenTriangleWhy = "line 19: a number should stand here, not \"zero\"";
