// The order of the steps decides what covers what.
#include "canvas/RedrawTruss.h"

#include "canvas/DoLabel.h"
#include "canvas/ForceArrows.h"
#include "canvas/Grid.h"
#include "canvas/Rulers.h"

namespace {

void SetMapping(Graph& graph, const CanvasBounds& bounds, const Truss& truss) {
  graph.SetMapping(bounds.PixL, bounds.PixR, bounds.PixB, bounds.PixT, truss.Settings.XMin,
                   truss.Settings.XMax, truss.Settings.YMin, truss.View.YMax);
}

PixelPoint TopLeft(PixelPoint centre, float size) { return {centre.X - size / 2, centre.Y - size / 2}; }

// Picking works on the arrows as they were drawn last.
void RememberForces(const Drawing& drawing, Truss& truss) {
  for (int i = 1; i <= truss.NumForces; ++i) {
    ForceRec& force = truss.Forces[i];
    if (!force.Active) continue;
    const PixelLine& arrow = drawing.Force[i];
    force.PixX1 = arrow.X1;
    force.PixY1 = arrow.Y1;
    force.PixX2 = arrow.X2;
    force.PixY2 = arrow.Y2;
  }
}

}  // namespace

bool RedrawTruss(Truss& truss, Drawing& drawing, Surface& surface, const CanvasContext& context,
                 MessageBox& messages) {
  surface.Clear();
  Deselect(drawing);
  SetMapping(drawing.Mapping, context.Bounds, truss);
  const DocumentSettings& settings = truss.Settings;
  if (settings.RulersOn) ShowRulers(surface, drawing.Mapping, settings, truss.View, context.Numbers);
  if (settings.GridOn) ShowGrid(surface, drawing.Mapping, settings, truss.View, messages);
  PlaceElements(drawing, truss, context.Measure);
  DrawForces(surface, drawing, truss);
  RememberForces(drawing, truss);
  const bool jointsChecked = RefreshJoints(drawing, truss, context.Measure);
  if (drawing.LabelsShown) ShowLabels(drawing, truss);
  return jointsChecked;
}

void PlaceElements(Drawing& drawing, const Truss& truss, const TextMeasure& measure) {
  FitTables(drawing, truss);
  PlaceObjects(drawing, truss);
  PlaceElementLabels(drawing, truss, measure);
}

void PlaceObjects(Drawing& drawing, const Truss& truss) {
  const Graph& graph = drawing.Mapping;
  for (int i = 1; i <= truss.NumSupports; ++i) {
    const SupportRec& support = truss.Supports[i];
    drawing.Support[i] = TopLeft({graph.XPixel(support.X), graph.YPixel(support.Y)}, SupportPictureSize);
  }
  for (int i = 1; i <= truss.NumMembers; ++i) {
    const MemberRec& member = truss.Members[i];
    drawing.Rod[i] = {graph.XPixel(member.X1), graph.YPixel(member.Y1), graph.XPixel(member.X2),
                      graph.YPixel(member.Y2)};
    drawing.Pin1[i] = TopLeft(drawing.Rod[i].End1(), PinSize);
    drawing.Pin2[i] = TopLeft(drawing.Rod[i].End2(), PinSize);
  }
  for (int i = 1; i <= truss.NumForces; ++i) {
    const ForceRec& force = truss.Forces[i];
    if (force.Active) drawing.Force[i] = ForceArrow(graph, truss.Settings, force);
  }
}
