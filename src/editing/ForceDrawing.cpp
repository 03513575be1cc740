// While it is drawn the force is a record at the end of the table that is not active yet.
#include "editing/ForceDrawing.h"

#include <cmath>
#include <limits>

#include "editing/ForceBand.h"

namespace {

void AppendForce(Truss& truss, const ForceRec& force) {
  truss.Forces.GrowTo(++truss.NumForces);
  truss.Forces[truss.NumForces] = force;
}

class ForceDrawing final : public Drag {
 public:
  ForceDrawing(const EditingContext& on, const SnappedPoint& tail)
      : on_(on), tail_(tail), band_(on, tail.Pixel), force_{.X = tail.X, .Y = tail.Y} {
    AppendForce(on_.Document, force_);
    index_ = on_.Document.NumForces;
  }

  void Move(const SnappedPoint& point, PixelPoint /*mouse*/) override { band_.MoveTo(point.Pixel); }

  void Release(const SnappedPoint& point, PixelPoint /*mouse*/) override {
    Cancel();
    const auto components = ComponentsTo(on_.Document, force_, point);
    if (SamePlace(tail_, point) || !components) return;
    force_.Fx = components->Fx;
    force_.Fy = components->Fy;
    force_.Active = true;
    ChangeTruss(on_, [this] {
      AppendForce(on_.Document, force_);
      return true;
    });
  }

  void Cancel() override {
    band_.Erase();
    if (on_.Document.NumForces == index_) --on_.Document.NumForces;
  }

 private:
  const EditingContext& on_;
  SnappedPoint tail_;
  ForceBand band_;
  ForceRec force_;
  int index_ = 0;
};

}  // namespace

std::optional<ForceComponents> ComponentsTo(const Truss& truss, const ForceRec& force,
                                            const SnappedPoint& head) {
  const double scale = truss.Settings.ForceScale;
  const double fx = (double{head.X} - double{force.X}) * scale;
  const double fy = (double{head.Y} - double{force.Y}) * scale;
  constexpr double largest = std::numeric_limits<float>::max();
  if (!(std::abs(fx) <= largest && std::abs(fy) <= largest)) return std::nullopt;
  const ForceComponents components{static_cast<float>(fx), static_cast<float>(fy)};
  if (components.Fx == 0 && components.Fy == 0) return std::nullopt;
  return components;
}

std::unique_ptr<Drag> BeginForce(const EditingContext& on, const SnappedPoint& tail) {
  if (on.Document.NumForces < MaxCount) return std::make_unique<ForceDrawing>(on, tail);
  ShowTrussFull(on.Messages);
  return nullptr;
}
