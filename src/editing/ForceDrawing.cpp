// While it is drawn the force is a record at the end of the table that is not active yet.
#include "editing/ForceDrawing.h"

#include <cmath>

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
    const auto components = ComponentsBetween(tail_, point, on_.Document.Settings.ForceScale);
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

std::optional<ForceComponents> ComponentsBetween(const SnappedPoint& tail, const SnappedPoint& head,
                                                 float forceScale) {
  if (!std::isfinite(forceScale)) return std::nullopt;
  const ExactDecimal scale = ExactDecimal::Of(forceScale);
  // An arrow along a grid line has no component across it, whatever its ends were before they were stored.
  const auto fx = head.X == tail.X ? 0.0F : ((head.ExactX - tail.ExactX) * scale).ToSingle();
  const auto fy = head.Y == tail.Y ? 0.0F : ((head.ExactY - tail.ExactY) * scale).ToSingle();
  if (!fx || !fy || (*fx == 0 && *fy == 0)) return std::nullopt;
  return ForceComponents{*fx, *fy};
}

std::unique_ptr<Drag> BeginForce(const EditingContext& on, const SnappedPoint& tail) {
  if (on.Document.NumForces < MaxCount) return std::make_unique<ForceDrawing>(on, tail);
  ShowTrussFull(on.Messages);
  return nullptr;
}
