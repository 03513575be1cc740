// The wish as the desktop's style tells it.
#pragma once

#include "platform/AnimationWish.h"

/// A style whose animations take no time has them switched off. The toolkit's switches for effects of menus
/// and tool tips say nothing: most desktops leave them off.
class QtAnimationWish final : public AnimationWish {
 public:
  bool IsWanted() const override;
};
