// What the mouse handlers work with: the document, its drawing, and what they ask of the window. Every change
// of the truss ends in a redraw, and one that would take a counter past its limit is taken back as a whole.
#pragma once

#include <functional>

#include "canvas/Drawing.h"
#include "document/Truss.h"
#include "editing/ToolPalette.h"
#include "editing/ValueEditorHost.h"
#include "platform/MessageBox.h"
#include "platform/NumberFormat.h"
#include "platform/Surface.h"

inline constexpr const char* TrussFullText = "The truss cannot hold any more members, supports or labels.";

/// All of it must outlive the handlers.
struct EditingContext {
  Truss& Document;
  Drawing& Picture;
  ToolPalette& Tools;
  MessageBox& Messages;
  ValueEditorHost& ValueEditor;
  NumberFormat Numbers;  ///< of the user's locale, for the coordinate read-out

  /// Redraws everything after the truss has changed (RedrawTruss).
  std::function<void()> Redraw;

  /// Shows the drawing's objects anew; the backing image has not changed.
  std::function<void()> ShowDrawing;

  /// Runs a procedure on the surface of the backing image, without clearing it, and shows the result.
  std::function<void(const std::function<void(Surface&)>&)> PaintBacking;

  /// Whether a pixel lies on the canvas where nothing covers it, so that something can be dropped there.
  /// Without it every pixel does.
  std::function<bool(float x, float y)> IsOnCanvas;
};

/// Tells that a counter is at its limit.
void ShowTrussFull(MessageBox& messages);

/// Makes a change, brings the joint list up to date and redraws. When `change` returns false for want of
/// room, or the joint list has no room, the truss is as it was before; it is redrawn, the user is told, and
/// the result is false.
bool ChangeTruss(const EditingContext& on, const std::function<bool()>& change);
