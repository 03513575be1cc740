// Random mouse, key, button, menu, window and file events on the real window, from a seed. After each event
// what Step 3 says must be about the truss, and after each hundred the document must be sane.
#include "RandomUser.h"

namespace {

TEST_F(RandomUser, NeverBreaksTheDocument) {
  const unsigned events = Begin(3000);
  Start();
  AnswerDialogs();
  for (unsigned i = 1; i <= events && !HasFailure(); ++i) {
    SCOPED_TRACE("after event " + std::to_string(i));
    AnyEvent();
    CheckStep3();
    if (i % 100 != 0) continue;
    CheckDocument();
    GiveUpDrawing();  // a member that is still being drawn has no labels yet
    CheckSavingAndAnalysis();
    messages_.Shown.clear();
    chooser_.Opened.clear();
    chooser_.Saved.clear();
  }
}

TEST_F(RandomUser, LeavesThePrintableReportInAnyWay) {
  const unsigned openings = Begin(3000) / 300;
  Start();
  OpenInStep3(LoadedTriangle());
  AnswerDialogs();
  for (unsigned i = 1; i <= openings && !HasFailure(); ++i) {
    messages_.Answers = {YesOrNo()};
    Trigger("mnuFilePrint");
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  }
}

}  // namespace
