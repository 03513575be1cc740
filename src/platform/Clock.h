// Time, as far as the program waits.
#pragma once

class Clock {
 public:
  virtual ~Clock() = default;

  virtual void Pause(int milliseconds) = 0;
};
