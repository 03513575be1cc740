#include "app/Steps.h"

#include <array>

#include "app/StepTexts.h"
#include "document/JointList.h"

bool Steps::Next1(Truss& truss) {
  if (step_ != 1) return false;
  if (!CheckJoints(truss)) {
    statusText_ = " Step 2 is not possible: ";
    statusText_.append(TooManyJointsText).append(" ");
    return false;
  }
  return Enter(2);
}

bool Steps::Prev2() { return step_ == 2 && Enter(1); }

bool Steps::Next2(Truss& truss) {
  if (step_ != 2) return false;
  analysis_ = std::make_shared<const TrussAnalysis>(SolveTruss(truss));
  return Enter(3);
}

bool Steps::Prev3() { return step_ == 3 && Enter(2); }

void Steps::Restart() {
  step_ = 1;
  statusText_.clear();
  analysis_.reset();
}

bool Steps::Enter(int step) {
  static constexpr std::array texts = {Step1StatusText, Step2StatusText, Step3StatusText};
  step_ = step;
  statusText_ = texts[static_cast<std::size_t>(step - 1)];
  return true;
}
