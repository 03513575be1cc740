// A canvas whose numbers are easy: 20 pixels to the world unit, the origin at (48, 270), and room for
// 20 by 10 units.
#pragma once

#include "canvas/Drawing.h"
#include "canvas/RedrawTruss.h"
#include "support/FakeMessageBox.h"
#include "support/RecordingSurface.h"
#include "support/TrussBuilder.h"

inline constexpr CanvasBounds EasyBounds{.PixL = 48, .PixR = 448, .PixT = 70, .PixB = 270};

inline Graph EasyGraph() {
  Graph graph;
  graph.SetMapping(48, 448, 270, 70, 0, 20, 0, 10);
  return graph;
}

/// Settings without rulers and grid, so that only the truss is drawn.
inline Truss Bare(Truss truss) {
  truss.Settings.RulersOn = false;
  truss.Settings.GridOn = false;
  return truss;
}

struct Canvas {
  Drawing Picture;
  RecordingSurface Paper;
  FakeMessageBox Messages;
  CanvasContext Context{.Bounds = EasyBounds, .Numbers = {}, .Measure = RecordingSurface::Measure};

  /// Derives the view from the settings and redraws.
  bool Redraw(Truss& truss) {
    truss.View = DeriveView(truss.Settings, Context.Bounds);
    return RedrawTruss(truss, Picture, Paper, Context, Messages);
  }
};
