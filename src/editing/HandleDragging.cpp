// During a drag the record follows the mouse, so that the value editor can show it; it keeps its last sane
// value where the element would have no length.
#include "editing/HandleDragging.h"

#include <cmath>

#include "editing/Erasing.h"
#include "editing/ForceBand.h"
#include "editing/ForceDrawing.h"

namespace {

bool IsOnPoint(PixelPoint point, PixelPoint mouse) {
  return std::abs(mouse.X - point.X) <= HandleTolerance && std::abs(mouse.Y - point.Y) <= HandleTolerance;
}

PixelPoint HeadOf(const ForceRec& force) { return {force.PixX2, force.PixY2}; }

// Marks the element again after a redraw, and with the Numerical Value tool opens its panel.
void SelectAgain(const EditingContext& on, const Selection& selection) {
  if (!IsLive(on.Document, selection)) return;
  ShowMoveHandles(on.Document, on.Picture, selection);
  on.Picture.SupportsEnabled = false;
  if (on.Tools.Selected() == Tool::NumericalValue) {
    if (selection.Type == ObjectType::Member) {
      on.ValueEditor.OpenForMember(selection.Index, selection.T);
    } else {
      on.ValueEditor.OpenForForce(selection.Index);
    }
  }
  on.ShowDrawing();
}

// A press and a release in one place move nothing, even where the element does not stand on the grid.
class HandleDrag : public Drag {
 public:
  HandleDrag(const EditingContext& on, Selection& selection, PixelPoint mouse)
      : on_(on), selection_(selection), press_(mouse) {}

  bool IsMoving() const override { return true; }

  void Move(const SnappedPoint& point, PixelPoint mouse) final {
    if (!IsThere()) return;
    moved_ = moved_ || !(mouse == press_);
    if (!moved_) return;
    Follow(point);
    if (IsPanelOpen(on_.Picture)) on_.ValueEditor.Refresh();
    on_.ShowDrawing();
  }

  void Release(const SnappedPoint& point, PixelPoint mouse) final {
    if (!IsThere()) return;
    if (moved_ || !(mouse == press_)) {
      Drop(point);
    } else {
      Cancel();
    }
  }

  void Cancel() final {
    if (!IsThere()) return;
    Restore();
    ShowMoveHandles(on_.Document, on_.Picture, selection_);
    if (IsPanelOpen(on_.Picture)) on_.ValueEditor.Refresh();
    on_.ShowDrawing();
  }

 protected:
  virtual void Follow(const SnappedPoint& point) = 0;
  virtual void Drop(const SnappedPoint& point) = 0;

  /// Record and drawing are as before the press, but for the handles.
  virtual void Restore() = 0;

  virtual bool IsThere() const { return IsLive(on_.Document, selection_); }

  const EditingContext& on_;
  Selection& selection_;

 private:
  PixelPoint press_;
  bool moved_ = false;
};

class MemberEndDragging final : public HandleDrag {
 public:
  MemberEndDragging(const EditingContext& on, Selection& selection, PixelPoint mouse, int end)
      : HandleDrag(on, selection, mouse),
        end_(end),
        before_(on.Document.Members[selection.Index]),
        rodBefore_(on.Picture.Rod[selection.Index]) {
    // The end that is dragged is the one whose values the editor shows.
    if (selection.IsEnd2Big() == (end == 2)) return;
    selection.T = end == 2 ? 1.0F : 0.0F;
    ShowMoveHandles(on.Document, on.Picture, selection);
    if (IsPanelOpen(on.Picture)) on.ValueEditor.OpenForMember(selection.Index, selection.T);
    on.ShowDrawing();
  }

  int SelfObject() const override { return selection_.Index; }
  int ActionCode() const override { return end_; }

 private:
  bool IsThere() const override {
    return HandleDrag::IsThere() && selection_.Index <= on_.Picture.Rod.Size();
  }

  SnappedPoint OtherEnd() const {
    if (end_ == 1) return {rodBefore_.End2(), before_.X2, before_.Y2};
    return {rodBefore_.End1(), before_.X1, before_.Y1};
  }

  void Store(const SnappedPoint& point) {
    MemberRec& member = on_.Document.Members[selection_.Index];
    (end_ == 1 ? member.X1 : member.X2) = point.X;
    (end_ == 1 ? member.Y1 : member.Y2) = point.Y;
  }

  void Follow(const SnappedPoint& point) override {
    PixelLine& rod = on_.Picture.Rod[selection_.Index];
    (end_ == 1 ? rod.X1 : rod.X2) = point.Pixel.X;
    (end_ == 1 ? rod.Y1 : rod.Y2) = point.Pixel.Y;
    PlacePin(end_ == 1 ? on_.Picture.Pin1 : on_.Picture.Pin2, point.Pixel);
    PlaceHandles(on_.Picture, point.Pixel, OtherEnd().Pixel);
    if (!SamePlace(OtherEnd(), point)) Store(point);
  }

  void PlacePin(Table<PixelPoint>& pins, PixelPoint centre) const {
    if (!HasPins(on_.Picture, selection_.Index)) return;
    pins[selection_.Index] = {centre.X - PinSize / 2, centre.Y - PinSize / 2};
  }

  void Drop(const SnappedPoint& point) override {
    Restore();
    if (SamePlace(OtherEnd(), point)) {
      Deselect(on_.Picture);
      EraseObject(on_, selection_);
      return;
    }
    ChangeTruss(on_, [&] {
      Store(point);
      return true;
    });
    SelectAgain(on_, selection_);
  }

  void Restore() override {
    on_.Document.Members[selection_.Index] = before_;
    on_.Picture.Rod[selection_.Index] = rodBefore_;
    PlacePin(on_.Picture.Pin1, rodBefore_.End1());
    PlacePin(on_.Picture.Pin2, rodBefore_.End2());
  }

  int end_;
  MemberRec before_;
  PixelLine rodBefore_;
};

class ForceHeadDragging final : public HandleDrag {
 public:
  ForceHeadDragging(const EditingContext& on, Selection& selection, PixelPoint mouse)
      : HandleDrag(on, selection, mouse),
        before_(on.Document.Forces[selection.Index]),
        tail_(PlaceOf(on.Document, on.Picture, before_.X, before_.Y)),
        band_(on, tail_.Pixel) {}

  int ActionCode() const override { return 3; }

 private:
  bool Store(const SnappedPoint& head) {
    const auto components = ComponentsBetween(tail_, head, on_.Document.Settings.ForceScale);
    if (!components) return false;
    ForceRec& force = on_.Document.Forces[selection_.Index];
    force.Fx = components->Fx;
    force.Fy = components->Fy;
    return true;
  }

  void Follow(const SnappedPoint& point) override {
    band_.MoveTo(point.Pixel);
    PlaceHandles(on_.Picture, point.Pixel, tail_.Pixel);
    if (!SamePlace(tail_, point)) Store(point);
  }

  void Drop(const SnappedPoint& point) override {
    Restore();
    if (SamePlace(tail_, point)) {
      Deselect(on_.Picture);
      EraseObject(on_, selection_);
      return;
    }
    // Components that cannot be leave the force as it was.
    if (Store(point)) on_.Redraw();
    SelectAgain(on_, selection_);
  }

  void Restore() override {
    band_.Erase();
    on_.Document.Forces[selection_.Index] = before_;
  }

  ForceRec before_;
  SnappedPoint tail_;
  ForceBand band_;
};

}  // namespace

int HandleAt(const EditingContext& on, const Selection& selection, PixelPoint mouse) {
  if (!IsSelectionShown(on.Picture) || !IsLive(on.Document, selection)) return 0;
  if (selection.Type == ObjectType::Force) {
    return IsOnPoint(HeadOf(on.Document.Forces[selection.Index]), mouse) ? 3 : 0;
  }
  const PixelLine& rod = on.Picture.Rod[selection.Index];
  if (IsOnPoint(rod.End1(), mouse)) return 1;
  return IsOnPoint(rod.End2(), mouse) ? 2 : 0;
}

std::unique_ptr<Drag> GrabHandle(const EditingContext& on, Selection& selection, PixelPoint mouse) {
  const int action = HandleAt(on, selection, mouse);
  if (action == 0) return nullptr;
  if (action == 3) return std::make_unique<ForceHeadDragging>(on, selection, mouse);
  return std::make_unique<MemberEndDragging>(on, selection, mouse, action);
}
