#include "editing/SupportPlacing.h"

#include <utility>

#include "canvas/DoLabel.h"

namespace {

class SupportPlacing final : public Drag {
 public:
  SupportPlacing(const EditingContext& on, Truss before)
      : on_(on), before_(std::move(before)), index_(on.Document.NumSupports) {}

  bool IsDone() const override { return true; }
  void Move(const SnappedPoint& /*point*/, PixelPoint /*mouse*/) override {}
  void Release(const SnappedPoint& /*point*/, PixelPoint /*mouse*/) override {}

  void Cancel() override {
    if (on_.Document.NumSupports != index_) return;
    on_.Document = std::move(before_);
    on_.Redraw();
  }

 private:
  const EditingContext& on_;
  Truss before_;
  int index_;
};

bool CreateSupport(const EditingContext& on, const SupportRec& support) {
  Truss& truss = on.Document;
  if (truss.NumSupports == MaxCount) return false;
  truss.Supports.GrowTo(++truss.NumSupports);
  truss.Supports[truss.NumSupports] = support;
  return DoLabel(on.Picture, truss, TextMeasure{}, LabelMode::Create, LabelClass::Support, truss.NumSupports);
}

}  // namespace

std::unique_ptr<Drag> PlaceSupport(const EditingContext& on, std::int16_t type, const SnappedPoint& point) {
  Truss before = on.Document;
  const SupportRec support{.TypeIndex = type, .X = point.X, .Y = point.Y, .Live = true};
  if (!ChangeTruss(on, [&] { return CreateSupport(on, support); })) return nullptr;
  return std::make_unique<SupportPlacing>(on, std::move(before));
}
