// A desktop whose user wants to see things move, or does not.
#pragma once

#include "platform/AnimationWish.h"

class FakeAnimationWish final : public AnimationWish {
 public:
  bool IsWanted() const override { return Wanted; }
  bool Wanted = true;
};
