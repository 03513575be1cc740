// The drawing as those meet it who do not see it or have no mouse: what can be told of its elements and done
// to them in the step that the program is in.
#pragma once

#include <functional>
#include <memory>

#include "app/Steps.h"
#include "canvas/CanvasAccess.h"
#include "editing/CanvasTools.h"
#include "explanation/forces/ForceWords.h"
#include "platform/NumberFormat.h"

class DrawingAccess final : public CanvasAccess {
 public:
  /// All of it must outlive this object.
  struct Partners {
    const Truss& Document;
    const Steps& Step;
    NumberFormat Numbers;
    CanvasTools& Tools;                         ///< of Step 1
    std::function<void(LabelIndex)> OpenLabel;  ///< what a click on a name does
  };

  explicit DrawingAccess(Partners partners) : on_(std::move(partners)) {}

  std::string Separator() const override { return on_.Numbers.DecimalSeparator; }
  std::string TellAll() const override;
  std::string Tell(const Element& element) const override;
  bool CanPress(const Element& element) const override;
  void Press(const Element& element) override;
  bool HasCursor() const override { return on_.Tools.IsActive(); }
  Place Cursor() const override { return on_.Tools.CursorPlace(); }
  void MoveCursor(Place place) override { on_.Tools.MoveCursor(place.X, place.Y); }
  void PressAtCursor() override { on_.Tools.PressAtCursor(); }
  void CursorTo(const Element& element) override { on_.Tools.MoveCursorTo(element); }

 private:
  Partners on_;
  // Of the analysis that was asked for last, which is held so that another one never takes its place in
  // memory.
  mutable std::shared_ptr<const TrussAnalysis> told_;
  mutable std::unique_ptr<ForceWords> forces_;
};
