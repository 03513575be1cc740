// Whether the user of this desktop wants to see things move. Some get ill from it.
#pragma once

class AnimationWish {
 public:
  virtual ~AnimationWish() = default;

  /// Asked each time before something begins to move.
  virtual bool IsWanted() const = 0;
};
