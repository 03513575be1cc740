// What begins with a press and ends with a release: each tool's behaviour gives its own.
#pragma once

#include "editing/Picking.h"

/// While a drag goes on, nobody else changes or redraws the truss; who wants to, cancels the drag first.
class Drag {
 public:
  Drag() = default;
  Drag(const Drag&) = delete;
  Drag& operator=(const Drag&) = delete;
  virtual ~Drag() = default;

  /// The member that must not snap to its own ends; 0: none.
  virtual int SelfObject() const { return 0; }

  /// 1 or 2: end 1 or 2 of the selected member is dragged; 3: the head of the selected force; 0 otherwise.
  virtual int ActionCode() const { return 0; }

  /// Whether something that exists is moved, rather than something new drawn.
  virtual bool IsMoving() const { return false; }

  /// Whether everything was done by the press: a release changes nothing, and only Cancel takes it back.
  virtual bool IsDone() const { return false; }

  /// The mouse is at a pixel, which means a point.
  virtual void Move(const SnappedPoint& point, PixelPoint mouse) = 0;

  /// The mouse is where nothing can be dropped. Lines go on following it.
  virtual void MoveBeside(const SnappedPoint& point, PixelPoint mouse) { Move(point, mouse); }

  /// The button is released where something can be dropped; the drag is over.
  virtual void Release(const SnappedPoint& point, PixelPoint mouse) = 0;

  /// The drag is over and the truss is as it was before the press.
  virtual void Cancel() = 0;
};
