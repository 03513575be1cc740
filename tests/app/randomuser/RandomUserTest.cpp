// Random events on the real windows, from a seed. After each event tables, drawing and files must agree and
// what Step 3 says must be about the truss.
#include "RandomUser.h"

namespace {

class RandomUserRun : public RandomUser {
 protected:
  void Run(unsigned usualEvents) {
    const unsigned events = Begin(usualEvents);
    StartProgram();
    AnswerDialogs();
    for (unsigned i = 1; i <= events && !HasFailure(); ++i) {
      SCOPED_TRACE("after event " + std::to_string(i));
      AnyEvent();
      CheckStep3();
      CheckDocument();
      CheckDrawing();
      CheckSaving();
      if (i % 100 != 0) continue;
      if (InStep1()) GiveUpDrawing();  // so that each run works on a finished drawing now and then
      CheckAnalysis();
      messages_.Shown.clear();
      chooser_.Opened.clear();
      chooser_.Saved.clear();
    }
  }
};

TEST_F(RandomUserRun, NeverBreaksTheDocument) { Run(1500); }

TEST_F(RandomUserRun, NeverBreaksTheDocumentWithADecimalComma) {
  numbers_.DecimalSeparator = ",";
  Run(500);
}

TEST_F(RandomUserRun, LeavesThePrintableReportInAnyWay) {
  const unsigned openings = Begin(1500) / 300;
  StartProgram();
  OpenInStep3(LoadedTriangle());
  AnswerDialogs();
  for (unsigned i = 1; i <= openings && !HasFailure(); ++i) {
    messages_.Answers = {YesOrNo()};
    Trigger("mnuFilePrint");
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  }
}

}  // namespace
