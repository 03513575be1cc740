// Each column and each row is mapped once; there can be a quarter of a million dots.
#include "canvas/Grid.h"

#include <vector>

#include "canvas/Paper.h"

float GridLine(float minimum, float spacing, int index) {
  return FiniteSingle(double{minimum} + index * double{spacing});
}

void ShowGrid(Surface& surface, const Graph& graph, const DocumentSettings& settings, const DerivedView& view,
              MessageBox& messages) {
  const std::int16_t columns = GridCount(settings.XMin, settings.XMax, settings.GridX);
  const std::int16_t rows = GridCount(settings.YMin, view.YMax, settings.GridY);
  if (columns > MaxGridCount || rows > MaxGridCount) {
    messages.Show({.Text = GridTooDenseText});
    return;
  }
  if (graph.IsEmpty()) return;

  std::vector<float> yPixels;
  for (int row = 1; row <= rows; ++row) {
    yPixels.push_back(OntoPaper(graph.YPixel(GridLine(settings.YMin, settings.GridY, row))));
  }
  for (int column = 1; column <= columns; ++column) {
    const float x = OntoPaper(graph.XPixel(GridLine(settings.XMin, settings.GridX, column)));
    for (const float y : yPixels) surface.SetPixel(x, y);
  }
}
