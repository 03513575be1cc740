// A window system that cannot be reached is a problem like every other: one line on standard error and an
// exit status. The toolkit would write several remarks and abort.
#pragma once

#include <QtGlobal>

/// To live while the application object is being made, which is when the toolkit looks for its window system.
/// What else it remarks meanwhile is passed on afterwards.
class DisplayGuard {
 public:
  DisplayGuard();
  DisplayGuard(const DisplayGuard&) = delete;
  DisplayGuard& operator=(const DisplayGuard&) = delete;
  ~DisplayGuard();

 private:
  QtMessageHandler before_;
};

/// Ends the program in this way. `why` may be empty.
[[noreturn]] void EndWithoutDisplay(const QString& why);
