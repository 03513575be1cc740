// A clock on which time does not pass: it remembers the pauses.
#pragma once

#include <vector>

#include "platform/Clock.h"

class FakeClock : public Clock {
 public:
  void Pause(int milliseconds) override { Pauses.push_back(milliseconds); }

  std::vector<int> Pauses;
};
