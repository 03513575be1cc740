// What a failing disk, a lack of memory and a sudden end leave behind: at every call of the system, one after
// the other.
#include <gtest/gtest.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <algorithm>
#include <cerrno>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "program/FaultyProgram.h"
#include "support/HowMany.h"

namespace {

// How the target stands before the program writes it.
enum class Target { Absent, There, Linked, WithTwoNames };

constexpr FaultPlan Full{.Calls = FaultyCalls::Changes, .Error = ENOSPC};
constexpr FaultPlan Broken{.Calls = FaultyCalls::Changes, .Error = EIO};
constexpr FaultPlan Forbidden{.Calls = FaultyCalls::Changes, .Error = EPERM};
constexpr FaultPlan Short{.Calls = FaultyCalls::Changes, .Kind = FaultKind::Short};

class Faults : public testing::Test {
 protected:
  static constexpr const char* Old = "the old file, which is no truss\r\n";

  void SetUp() override { input_ = files_.File(QStringLiteral("in.trs"), TriangleText()); }

  // A folder as it was before the first run.
  void Prepare(Target target, const QString& name) {
    QDir(files_.Path(QStringLiteral("out"))).removeRecursively();
    QDir(files_.Path({})).mkdir(QStringLiteral("out"));
    output_ = files_.Path(QStringLiteral("out/") + name);
    const QString other = files_.Path(QStringLiteral("out/other"));
    if (target == Target::There) files_.File(QStringLiteral("out/") + name, Old);
    if (target == Target::Linked || target == Target::WithTwoNames)
      files_.File(QStringLiteral("out/other"), Old);
    if (target == Target::Linked) QFile::link(other, output_);
    if (target == Target::WithTwoNames) {
      ASSERT_EQ(link(other.toUtf8().constData(), output_.toUtf8().constData()), 0);
    }
    before_ = Names();
  }

  QStringList Names() const {
    return QDir(files_.Path(QStringLiteral("out")))
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
  }

  // Nothing when the program was killed.
  std::optional<Ended> Run(const QString& options, const FaultPlan& fault) {
    QStringList words;
    for (const QString& word : options.split(u' ')) words.append(QString(word).replace(u'%', output_));
    words.append(input_);
    if (!program_ || program_->Arguments() != words) program_ = std::make_unique<FaultyProgram>(words);
    return program_->Run(fault);
  }

  // Nothing when there is no such file.
  static QByteArray Bytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }

  // Every call fails once in each way.
  void FailEveryCall(const QString& options, const QString& name, Target target,
                     const std::vector<FaultPlan>& kinds) {
    Prepare(target, name);
    const std::optional<Ended> whole = Run(options, {.Calls = FaultyCalls::Changes});
    ASSERT_TRUE(whole && whole->Status == 0) << whole->Err.toStdString();
    const QByteArray expected = Bytes(output_);
    const QStringList after = Names();
    const int numCalls = program_->NumCalls();
    ASSERT_GT(numCalls, 3);
    for (const FaultPlan& kind : kinds) {
      for (int at = 1; at <= numCalls; ++at) {
        SCOPED_TRACE("kind " + std::to_string(static_cast<int>(kind.Kind)) + ", error " +
                     std::to_string(kind.Error) + " at call " + std::to_string(at));
        Prepare(target, name);
        FaultPlan fault = kind;
        fault.At = at;
        const std::optional<Ended> ended = Run(options, fault);
        ASSERT_TRUE(ended.has_value());
        const QByteArray bytes = Bytes(output_);
        const bool isNew = bytes == expected;
        EXPECT_TRUE(isNew || bytes == (target == Target::Absent ? QByteArray() : QByteArray(Old)))
            << bytes.size() << " bytes";
        EXPECT_TRUE(ended->Status == 0 || ended->Status == 1) << ended->Status;
        if (!isNew) {
          EXPECT_EQ(ended->Status, 1) << "what is not written is told";
        }
        if (ended->Status == 1) {
          EXPECT_TRUE(ended->Err.startsWith("orvane: ")) << ended->Err.toStdString();
          EXPECT_EQ(ended->Err.count('\n'), 1) << ended->Err.toStdString();
        }
        const QStringList left = Names();
        EXPECT_TRUE(left == after || left == before_ || IsTold(left, *ended))
            << left.join(u' ').toStdString();
      }
    }
  }

  // What cannot even be removed is named in the message.
  bool IsTold(const QStringList& left, const Ended& ended) const {
    for (const QString& name : left) {
      const bool isUsual = before_.contains(name) || output_.endsWith(u'/' + name);
      if (!isUsual && !ended.Err.contains(name.toUtf8())) return false;
    }
    return true;
  }

  TestFiles files_;
  QString input_, output_;
  QStringList before_;
  std::unique_ptr<FaultyProgram> program_;
};

TEST_F(Faults, AtEveryCallOfASaveLeaveTheOldFileOrTheNew) {
  for (const Target target : {Target::Absent, Target::There, Target::Linked, Target::WithTwoNames}) {
    SCOPED_TRACE("target " + std::to_string(static_cast<int>(target)));
    FailEveryCall(QStringLiteral("--convert=%"), QStringLiteral("out.trs"), target,
                  {Full, Broken, Forbidden, Short});
  }
}

// All formats are written by one procedure, and take long to make.
TEST_F(Faults, AtEveryCallOfADocumentLeaveTheOldFileOrTheNew) {
  FailEveryCall(QStringLiteral("--document=%"), QStringLiteral("out.odt"), Target::There, {Full});
  FailEveryCall(QStringLiteral("--document=%"), QStringLiteral("out.pdf"), Target::There, {Full, Short});
}

TEST_F(Faults, AtEveryCallOfAPictureLeaveTheOldFileOrTheNew) {
  for (const char* name : {"out.svg", "out.pdf"})
    FailEveryCall(QStringLiteral("--picture=%"), QString::fromLatin1(name), Target::There, {Full, Short});
}

TEST_F(Faults, AtEveryReadAreTold) {
  Prepare(Target::Absent, QStringLiteral("out.trs"));
  const std::optional<Ended> whole = Run(QStringLiteral("--csv=solutions"), {.Calls = FaultyCalls::Reads});
  ASSERT_TRUE(whole && whole->Status == 0);
  for (int at = 1; at <= program_->NumCalls(); ++at) {
    const std::optional<Ended> ended =
        Run(QStringLiteral("--csv=solutions"), {.Calls = FaultyCalls::Reads, .At = at, .Error = EIO});
    ASSERT_TRUE(ended.has_value());
    if (ended->Out == whole->Out && ended->Status == 0) continue;
    EXPECT_EQ(ended->Status, 1);
    EXPECT_EQ(ended->Err.count('\n'), 1) << ended->Err.toStdString();
  }
}

// The libraries that draw letters do without, or end the program instead of telling; what is written is whole
// in any case.
TEST_F(Faults, OfMemoryAreToldInOneLineAndLeaveTheOldFileOrTheNew) {
  struct Work {
    const char* Options;
    const char* Name;
    bool IsTold;
    const char* End = "";  // of a whole file
  };
  for (const Work& work :
       {Work{"--convert=%", "out.trs", true}, Work{"--json --explain", "out.trs", true},
        Work{"--report=why,checks,steps,byjoint", "out.trs", true},
        Work{"--document=%", "out.odt", false, "PK\5\6"}, Work{"--picture=%", "out.svg", false, "</svg>"}}) {
    const QString options = QString::fromLatin1(work.Options);
    const QString name = QString::fromLatin1(work.Name);
    Prepare(Target::There, name);
    const std::optional<Ended> whole = Run(options, {.Calls = FaultyCalls::Memory});
    ASSERT_TRUE(whole && whole->Status == 0) << work.Options;
    const QByteArray expected = Bytes(output_);
    const int numCalls = program_->NumCalls();
    const int numFirst = work.IsTold ? 25 : 0;  // one by one
    const int numFurther = work.IsTold ? 30 : HowMany(30, 10);
    for (int at = 1; at <= numCalls; at += at < numFirst ? 1 : std::max(1, numCalls / numFurther)) {
      SCOPED_TRACE(std::string(work.Options) + " without memory at allocation " + std::to_string(at));
      Prepare(Target::There, name);
      const std::optional<Ended> ended =
          Run(options, {.Calls = FaultyCalls::Memory, .At = at, .Error = ENOMEM});
      ASSERT_TRUE(ended.has_value());
      const QByteArray bytes = Bytes(output_);
      if (!work.IsTold) {
        EXPECT_TRUE(bytes == Old || bytes.right(30).contains(work.End)) << bytes.size() << " bytes";
        continue;
      }
      EXPECT_TRUE(bytes == expected || bytes == Old) << bytes.size() << " bytes";
      EXPECT_TRUE(ended->Status == 0 || ended->Status == 1) << ended->Status << ended->Err.toStdString();
      if (ended->Status == 1) {
        EXPECT_EQ(ended->Err.count('\n'), 1) << ended->Err.toStdString();
      }
      EXPECT_EQ(Names().join(u' ').toStdString(), before_.join(u' ').toStdString());
    }
  }
}

// The power goes, or the user kills it. Where the file is written in place, its old bytes stand beside it.
TEST_F(Faults, OfTheWholeProgramLeaveAFileThatCanBeUsed) {
  const QString options = QStringLiteral("--convert=%");
  const QString name = QStringLiteral("out.trs");
  for (const Target target : {Target::Absent, Target::There, Target::Linked, Target::WithTwoNames}) {
    for (const FaultyCalls calls : {FaultyCalls::Changes, FaultyCalls::Reads, FaultyCalls::Memory}) {
      Prepare(target, name);
      ASSERT_TRUE(Run(options, {.Calls = calls}).has_value());
      const QByteArray expected = Bytes(output_);
      const int numCalls = program_->NumCalls();
      const int most = qEnvironmentVariableIntValue("ORVANE_KILLS") / 12;
      for (int at = 1; at <= numCalls; at += std::max(1, numCalls / std::max(most, 20))) {
        SCOPED_TRACE("target " + std::to_string(static_cast<int>(target)) + ", killed at " +
                     std::to_string(at) + " of " + std::to_string(static_cast<int>(calls)));
        Prepare(target, name);
        EXPECT_FALSE(Run(options, {.Calls = calls, .Kind = FaultKind::Kill, .At = at}).has_value());
        const QByteArray bytes = Bytes(output_);
        const QByteArray old = target == Target::Absent ? QByteArray() : QByteArray(Old);
        bool hasCopy = false;
        for (const QString& left : Names())
          hasCopy = hasCopy || (left != QLatin1String("other") && !output_.endsWith(u'/' + left) &&
                                Bytes(files_.Path(QStringLiteral("out/") + left)) == old);
        EXPECT_TRUE(bytes == expected || bytes == old || hasCopy) << bytes.size() << " bytes";
        if (bytes != expected && bytes != old) continue;  // a later save asks about the copy first
        const std::optional<Ended> again = Run(options, {});
        ASSERT_TRUE(again.has_value());
        if (again->Status == 0) {
          EXPECT_EQ(Bytes(output_), expected) << "the next save works";
        } else {
          EXPECT_TRUE(hasCopy) << again->Err.toStdString();
        }
      }
    }
  }
}

}  // namespace
