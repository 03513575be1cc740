// The way through the three steps: 1 design the truss, 2 name forces and joints, 3 view the reports. Each
// change of step does its part of the work on the truss here; the window shows the result.
#pragma once

#include <memory>
#include <string>

#include "analysis/Analysis.h"
#include "document/Truss.h"

class Steps {
 public:
  /// 1, 2 or 3.
  int Current() const { return step_; }

  /// The status bar of the current step, or why the step could not be left. A single-byte text.
  const std::string& StatusText() const { return statusText_; }

  /// Name labels and arrows are on the drawing in steps 2 and 3, but for those that are tagged as deleted.
  bool NamesAreShown() const { return step_ > 1; }

  /// 1 -> 2: brings the joint list up to date. When the truss has too many joints to be numbered, Step 1
  /// stays, StatusText says why, and the result is false. In other steps nothing happens: false.
  bool Next1(Truss& truss);

  /// 2 -> 1. False, and nothing happens, in other steps; so with the other two.
  bool Prev2();

  /// 2 -> 3: analyses the truss.
  bool Next2(Truss& truss);

  /// 3 -> 2. The analysis stays until the next one.
  bool Prev3();

  /// To Step 1 from anywhere, as emptying the document does. The analysis is given up.
  void Restart();

  /// The analysis of the last change to Step 3; empty before it. Whoever shows it holds it, so that a later
  /// analysis never pulls it away.
  const std::shared_ptr<const TrussAnalysis>& Analysis() const { return analysis_; }

 private:
  bool Enter(int step);

  int step_ = 1;
  std::string statusText_;
  std::shared_ptr<const TrussAnalysis> analysis_;
};
