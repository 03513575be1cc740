#include "program/RunProgram.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <array>
#include <memory>

namespace {

constexpr int LongestRun = 60000;  // milliseconds; sanitizers are slow

// The toolkit wants an application object before it starts a process.
class WithApplication final : public testing::Environment {
  void SetUp() override {
    application_ = std::make_unique<QCoreApplication>(numArguments_, arguments_.data());
  }
  void TearDown() override { application_.reset(); }

  int numArguments_ = 1;
  char name_[5] = "test";
  std::array<char*, 2> arguments_ = {name_, nullptr};
  std::unique_ptr<QCoreApplication> application_;
};

const testing::Environment* const registered = testing::AddGlobalTestEnvironment(new WithApplication);

Ended Run(const QString& program, const ProgramCall& call) {
  QProcess process;
  process.setProcessEnvironment(EnvironmentFor(call));
  if (!call.OutputFile.isEmpty()) process.setStandardOutputFile(call.OutputFile);
  process.start(program, call.Arguments);
  process.write(call.Input);
  process.closeWriteChannel();
  if (!process.waitForFinished(LongestRun) || process.exitStatus() != QProcess::NormalExit) {
    ADD_FAILURE() << "the program did not end: " << process.errorString().toStdString() << '\n'
                  << process.readAllStandardError().toStdString();
    return {};
  }
  return Ended{process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

}  // namespace

QProcessEnvironment EnvironmentFor(const ProgramCall& call) {
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
    environment.remove(QString::fromLatin1(name));
  }
  environment.insert(QStringLiteral("LC_ALL"), call.LocaleName);
  for (const auto& [name, value] : call.Environment.toStdMap()) environment.insert(name, value);
  return environment;
}

Ended RunProgram(const ProgramCall& call) { return Run(QStringLiteral(ORVANE_PROGRAM), call); }

Ended RunShell(const QString& script, const QStringList& arguments, const QByteArray& input) {
  const QStringList words =
      QStringList{QStringLiteral("-c"), script, QStringLiteral(ORVANE_PROGRAM)} + arguments;
  return Run(QStringLiteral("/bin/sh"), ProgramCall{.Arguments = words, .Input = input, .OutputFile = {}});
}

Ended RunProgram(const QStringList& arguments, const QByteArray& input) {
  return RunProgram(ProgramCall{.Arguments = arguments, .Input = input, .OutputFile = {}});
}

QStringList Words(const char* words) { return QString::fromUtf8(words).split(u' ', Qt::SkipEmptyParts); }

QString Example(const char* name) {
  return QStringLiteral(ORVANE_EXAMPLES_DIR "/") + QString::fromLatin1(name);
}

QString TestFiles::File(const QString& name, const QByteArray& bytes) const {
  QFile file(Path(name));
  EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
  return Path(name);
}

QByteArray BytesOf(const QString& path) {
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
  return file.readAll();
}

QByteArray TriangleText() {
  return "Orvane 5\r\n#TRUE#,#TRUE#,#TRUE#,#FALSE#\r\n0\r\n20\r\n2\r\n0.5\r\n0\r\n0.5\r\n1000\r\n4\r\n"
         "2\r\n0,0,1\r\n\"Ax\",\"Ay\"\r\n8,0,5\r\n\"B\"\r\n"
         "3\r\n0,0,8,0,\"AB\",\"AB\"\r\n0,0,4,4,\"AC\",\"AC\"\r\n8,0,4,4,\"BC\",\"BC\"\r\n"
         "1\r\n4,4,0,-1000\r\n"
         "3\r\n0,0,\"A\"\r\n8,0,\"B\"\r\n4,4,\"C\"\r\n";
}

QByteArray BrokenTriangleText() { return TriangleText().replace("8,0,4,4", "8,zero,4,4"); }
