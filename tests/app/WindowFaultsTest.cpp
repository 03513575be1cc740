// What a failing disk does to the window: at every call of the system that a command makes, one after the
// other. The old file stands or the new one, a message says why, and the window works on as before.
#include <cerrno>
#include <span>

#include "document/DocumentLifecycle.h"
#include "document/TrussChanged.h"
#include "program/FaultyCalls.h"
#include "reports/PrintableReportWindow.h"
#include "support/HowMany.h"
#include "support/MainFormFixture.h"

namespace {

constexpr FaultPlan FailingDisks[] = {{.Calls = FaultyCalls::Changes, .Error = ENOSPC},
                                      {.Calls = FaultyCalls::Changes, .Error = EIO},
                                      {.Calls = FaultyCalls::Changes, .Error = EPERM},
                                      {.Calls = FaultyCalls::Changes, .Kind = FaultKind::Short}};

// Documents take longer to make.
constexpr std::span<const FaultPlan> OnFullDisks(FailingDisks, 1);

class WindowFaults : public MainFormTest {
 protected:
  // `run` does something with the armed fault and returns how many calls there were; every call, or each
  // `step`th one, fails once in each way. Ends when a run makes fewer calls than the one that is to fail.
  static void FailEveryCall(const std::function<long(const FaultPlan&)>& run,
                            std::span<const FaultPlan> disks = FailingDisks, long step = 1) {
    for (const FaultPlan& disk : disks) {
      for (long at = 1; !HasFailure(); at += step) {
        SCOPED_TRACE("kind " + std::to_string(static_cast<int>(disk.Kind)) + ", error " +
                     std::to_string(disk.Error) + ", call " + std::to_string(at));
        FaultPlan plan = disk;
        plan.At = at;
        if (run(plan) < at) {
          EXPECT_GT(at, 3) << "it writes";
          break;
        }
      }
    }
  }

  // A truss from a file, changed since. Returns its bytes when it is saved.
  std::string OpenAndChange() {
    OpenInStep2(LoadedTriangle());
    truss_.Forces[1].Fy = -4000;
    old_ = directory_.Bytes("a.trs");
    Truss copy = truss_;
    messages_.Shown.clear();
    return TrussText(copy);
  }

  void ExpectReason() const {
    ASSERT_EQ(messages_.Shown.size(), 1U);
    EXPECT_FALSE(messages_.Shown.front().Details.empty()) << messages_.Shown.front().Text;
  }

  // What could not even be removed is named in the message.
  void ExpectNothingElse(const std::set<std::string>& expected) const {
    for (const std::string& name : directory_.Names()) {
      const bool isTold =
          !messages_.Shown.empty() && messages_.Shown.front().Details.find(name) != std::string::npos;
      EXPECT_TRUE(expected.contains(name) || isTold) << name;
      if (!expected.contains(name)) std::filesystem::remove(directory_ / name);
    }
  }

  void ExpectWindowLives() {
    EXPECT_TRUE(form_->isVisible());
    if (Widget("picStep2")->isVisible()) Click("cmdPrev2");
    EXPECT_TRUE(Widget("picToolBox")->isVisible());
    Click("cmdNext1");
    EXPECT_TRUE(Widget("picStep2")->isVisible());
  }

  void ExpectTitle(const std::string& file) const {
    EXPECT_EQ(truss_.FileName, file);
    EXPECT_EQ(form_->windowTitle().toStdString(), MainWindowCaption(file));
  }

  std::string old_;
};

TEST_F(WindowFaults, OfASaveLeaveTheOldFileOrTheNew) {
  Started();
  FailEveryCall([this](const FaultPlan& plan) {
    const std::string text = OpenAndChange();
    ArmFaults(plan);
    Trigger("mnuFileSave");
    const long numCalls = DisarmFaults();
    const std::string now = directory_.Bytes("a.trs");
    EXPECT_TRUE(now == old_ || now == text) << now.size() << " bytes";
    EXPECT_EQ(TrussChanged(truss_), now != text);
    if (now != text) ExpectReason();
    ExpectNothingElse({"a.trs"});
    ExpectTitle(directory_ / "a.trs");
    ExpectWindowLives();
    messages_.Answers = {MessageAnswer::Yes, MessageAnswer::Yes};
    Trigger("mnuFileSave");
    EXPECT_EQ(directory_.Bytes("a.trs"), text) << "the next save works";
    EXPECT_FALSE(TrussChanged(truss_));
    return numCalls;
  });
}

TEST_F(WindowFaults, OfASaveWithoutMemoryLoseNothing) {
  Started();
  // Only what is as large as the text of this truss; the toolkit asks for less.
  constexpr std::size_t large = 200'000;
  constexpr FaultPlan noMemory[] = {{.Calls = FaultyCalls::Memory, .LeastAllocation = large}};
  Truss truss = LoadedTriangle();
  truss.Labels[truss.Members[1].NameLabel1].Caption = truss.Labels[truss.Members[1].NameLabel2].Caption =
      std::string(large, 'x');
  OpenInStep2(truss);
  FailEveryCall(
      [this](const FaultPlan& plan) {
        truss_.Forces[1].Fy -= 1;
        Truss copy = truss_;
        const std::string text = TrussText(copy);
        const std::string before = directory_.Bytes("a.trs");
        messages_.Shown.clear();
        ArmFaults(plan);
        Trigger("mnuFileSave");
        const long numCalls = DisarmFaults();
        const std::string now = directory_.Bytes("a.trs");
        EXPECT_TRUE(now == before || now == text) << now.size() << " bytes";
        if (now != text) ExpectReason();
        ExpectNothingElse({"a.trs"});
        ExpectWindowLives();
        messages_.Answers = {MessageAnswer::Yes, MessageAnswer::Yes};
        Trigger("mnuFileSave");
        EXPECT_EQ(directory_.Bytes("a.trs"), text) << "the next save works";
        return numCalls;
      },
      noMemory);
}

TEST_F(WindowFaults, OfSaveAsLeaveTheTrussItsNameAndItsFile) {
  Started();
  for (const bool isThere : {false, true}) {
    SCOPED_TRACE(isThere ? "over another file" : "as a new file");
    FailEveryCall([this, isThere](const FaultPlan& plan) {
      const std::string text = OpenAndChange();
      std::filesystem::remove(directory_ / "b.trs");
      if (isThere) directory_.Put("b.trs", "another file");
      chooser_.Choice = directory_ / "b.trs";
      ArmFaults(plan);
      Trigger("mnuFileSaveAs");
      const long numCalls = DisarmFaults();
      const bool isSaved = directory_.Names().contains("b.trs") && directory_.Bytes("b.trs") == text;
      if (!isSaved) {
        ExpectReason();
        EXPECT_EQ(directory_.Names().contains("b.trs"), isThere);
        if (isThere) {
          EXPECT_EQ(directory_.Bytes("b.trs"), "another file");
        }
      }
      EXPECT_EQ(directory_.Bytes("a.trs"), old_);
      EXPECT_EQ(TrussChanged(truss_), !isSaved);
      ExpectTitle(directory_ / (isSaved ? "b.trs" : "a.trs"));
      ExpectNothingElse({"a.trs", "b.trs"});
      ExpectWindowLives();
      return numCalls;
    });
  }
}

TEST_F(WindowFaults, OfOpeningAreToldAndNoFileIsReplaced) {
  Started();
  Truss triangle = LoadedTriangle();
  const std::string whole = TrussText(triangle);
  for (long at = 1; !HasFailure(); ++at) {
    SCOPED_TRACE("read " + std::to_string(at));
    chooser_.Choice = directory_.Put("a.trs", whole);
    ArmFaults({.Calls = FaultyCalls::Reads, .At = at, .Error = EIO});
    Trigger("mnuFileOpen");
    if (DisarmFaults() < at) {
      EXPECT_GT(at, 2) << "it reads";
      break;
    }
    ExpectTitle(directory_ / "a.trs");
    const bool isWhole = NumLiveMembers(truss_) == NumLiveMembers(triangle);
    EXPECT_NE(Status().contains(QStringLiteral("a.trs")), isWhole) << Status().toStdString();
    ExpectWindowLives();
    chooser_.Choice = std::nullopt;
    chooser_.Saved.clear();
    Trigger("mnuFileSave");
    EXPECT_EQ(chooser_.Saved.empty(), isWhole) << "what was not read whole is not replaced";
    EXPECT_EQ(directory_.Bytes("a.trs"), whole);
  }
}

// --- documents

class DocumentFaults : public WindowFaults {
 protected:
  // Does something in the printable report, and leaves it.
  void InReport(const std::function<void(PrintableReportWindow&)>& act) {
    InModalWindow([act](QWidget& window) {
      auto* report = qobject_cast<PrintableReportWindow*>(&window);
      ASSERT_NE(report, nullptr);
      ASSERT_TRUE(QTest::qWaitFor([report] { return report->HasDocument(); }));
      act(*report);
      report->close();
    });
    Trigger("mnuFilePrint");
  }

  long SaveReport(PrintableReportWindow& report, const FaultPlan& plan) {
    messages_.Shown.clear();
    auto* button = report.findChild<QPushButton*>(QStringLiteral("cmdReportSaveAs"));
    ArmFaults(plan);
    QTest::mouseClick(button, Qt::LeftButton);
    const long numCalls = DisarmFaults();
    EXPECT_TRUE(report.isVisible());
    EXPECT_TRUE(button->isEnabled());
    return numCalls;
  }
};

TEST_F(DocumentFaults, OfASavedReportLeaveTheOldFileOrTheNew) {
  Started();
  OpenInStep3(LoadedTriangle());
  // All formats are written by one procedure, and take long to make.
  bool isFirst = true;
  for (const char* name : {"r.rtf", "r.odt", "r.html", "r.pdf"}) {
    SCOPED_TRACE(name);
    InReport([this, name, isFirst](PrintableReportWindow& report) {
      chooser_.Choice = directory_ / name;
      SaveReport(report, {});
      const std::size_t size = directory_.Bytes(name).size();
      ASSERT_GT(size, 0U);
      FailEveryCall(
          [&](const FaultPlan& plan) {
            directory_.Put(name, "an old document");
            const long numCalls = SaveReport(report, plan);
            const std::string now = directory_.Bytes(name);
            if (now == "an old document") {
              ExpectReason();
            } else {
              EXPECT_NEAR(static_cast<double>(now.size()), static_cast<double>(size), 64) << "whole";
            }
            ExpectNothingElse({"a.trs", "r.rtf", "r.odt", "r.html", "r.pdf"});
            return numCalls;
          },
          OnFullDisks, isFirst ? 1 : HowMany(1, 3));
    });
    isFirst = false;
  }
  Click("cmdPrev3");
  Click("cmdPrev2");
  ExpectWindowLives();
}

}  // namespace
