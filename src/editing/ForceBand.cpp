#include "editing/ForceBand.h"

#include "canvas/Arrow.h"

void ForceBand::Draw(Surface& surface, PixelPoint head) const {
  surface.SetPen(Pen::ExclusiveOr);
  DrawArrow(surface, tail_.X, tail_.Y, head.X, head.Y, ForceLineWidth, ForceHeadLength, ForceBandColour);
  surface.SetPen(Pen::Copy);
}

void ForceBand::MoveTo(PixelPoint head) {
  if (head_ == head) return;
  on_.PaintBacking([&](Surface& surface) {
    if (head_) Draw(surface, *head_);
    Draw(surface, head);
  });
  head_ = head;
}

void ForceBand::Erase() {
  if (!head_) return;
  on_.PaintBacking([this](Surface& surface) { Draw(surface, *head_); });
  head_.reset();
}
