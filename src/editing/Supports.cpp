#include "editing/Supports.h"

#include "editing/Erasing.h"

namespace {

// The picture stands wherever it would land if it were dropped: at the place that the mouse means, and back
// home while the mouse is where nothing can be dropped.
class SupportDragging final : public Drag {
 public:
  SupportDragging(const EditingContext& on, int support, PixelPoint mouse)
      : on_(on), index_(support), press_(mouse), before_(on.Picture.Support[support]) {}

  bool IsMoving() const override { return true; }

  void Move(const SnappedPoint& point, PixelPoint mouse) override {
    if (!IsThere()) return;
    moved_ = moved_ || !(mouse == press_);
    if (!moved_) return;
    constexpr float half = SupportPictureSize / 2;
    on_.Picture.Support[index_] = {point.Pixel.X - half, point.Pixel.Y - half};
    on_.ShowDrawing();
  }

  void MoveBeside(const SnappedPoint& /*point*/, PixelPoint /*mouse*/) override {
    moved_ = true;
    Cancel();
  }

  void Release(const SnappedPoint& point, PixelPoint mouse) override {
    Cancel();
    // A click moves nothing.
    if (!IsThere() || (!moved_ && mouse == press_)) return;
    ChangeTruss(on_, [&] {
      SupportRec& support = on_.Document.Supports[index_];
      support.X = point.X;
      support.Y = point.Y;
      return true;
    });
  }

  void Cancel() override {
    if (!IsThere()) return;
    on_.Picture.Support[index_] = before_;
    on_.ShowDrawing();
  }

 private:
  bool IsThere() const {
    return index_ <= on_.Document.NumSupports && on_.Document.Supports[index_].Live &&
           index_ <= on_.Picture.Support.Size();
  }

  const EditingContext& on_;
  int index_;
  PixelPoint press_, before_;
  bool moved_ = false;
};

}  // namespace

std::int16_t NextOrientation(std::int16_t type) {
  if (type == LastClampType) return 1;
  if (type == LastSupportType) return LastClampType + 1;
  return static_cast<std::int16_t>(type + 1);
}

void ReOrientSupport(Truss& truss, int support) {
  std::int16_t& type = truss.Supports[support].TypeIndex;
  type = NextOrientation(type);
}

void EnableSupports(Drawing& drawing, bool enabled) { drawing.SupportsEnabled = enabled; }

int SupportAt(const Truss& truss, const Drawing& drawing, float x, float y) {
  if (!drawing.SupportsEnabled) return 0;
  for (int i = truss.NumSupports; i >= 1; --i) {
    if (!IsSupportShown(drawing, truss, i)) continue;
    const PixelPoint picture = drawing.Support[i];
    if (x < picture.X || x >= picture.X + SupportPictureSize) continue;
    if (y < picture.Y || y >= picture.Y + SupportPictureSize) continue;
    return i;
  }
  return 0;
}

bool ActsOnSupports(Tool tool) {
  return tool == Tool::ReOrientation || tool == Tool::Move || tool == Tool::Erase;
}

std::unique_ptr<Drag> SupportPressed(const EditingContext& on, int support, PixelPoint mouse) {
  switch (on.Tools.Selected()) {
    case Tool::ReOrientation:
      ReOrientSupport(on.Document, support);
      on.Redraw();
      break;
    case Tool::Move:
      return std::make_unique<SupportDragging>(on, support, mouse);
    case Tool::Erase:
      EraseSupport(on, support);
      break;
    default:
      break;
  }
  return nullptr;
}
