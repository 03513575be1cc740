// The area is cut into square cells; each knows what reaches into it. What lies outside counts for the cells
// at the edge.
#include "explanation/forces/LabelRoom.h"

#include <algorithm>
#include <cmath>

#include "canvas/PixelBoxes.h"

namespace {

// About the size of a text, or more where the area is so large that its cells would take too much memory.
constexpr double SmallestCell = 48;
constexpr double MostCells = 20'000;

PixelRect BoxAround(const PixelLine& line, float margin) {
  return Widened({std::min(line.X1, line.X2), std::min(line.Y1, line.Y2), std::max(line.X1, line.X2),
                  std::max(line.Y1, line.Y2)},
                 margin);
}

bool Contains(const PixelRect& area, const PixelRect& box) {
  return box.Left >= area.Left && box.Right <= area.Right && box.Top >= area.Top && box.Bottom <= area.Bottom;
}

bool Meet(const PixelLine& a, const PixelLine& b) {
  const auto side = [](const PixelLine& line, PixelPoint point) {
    return (double{line.X2} - double{line.X1}) * (double{point.Y} - double{line.Y1}) -
           (double{line.Y2} - double{line.Y1}) * (double{point.X} - double{line.X1});
  };
  const auto parted = [&side](const PixelLine& line, const PixelLine& other) {
    const double first = side(line, other.End1());
    const double second = side(line, other.End2());
    return (first > 0 && second > 0) || (first < 0 && second < 0);
  };
  return !parted(a, b) && !parted(b, a) && Overlap(BoxAround(a, 0.5F), BoxAround(b, 0.5F));
}

}  // namespace

LabelRoom::LabelRoom(const PixelRect& area)
    : area_(area),
      cell_(std::max(SmallestCell, std::sqrt(double{area.Width()} * double{area.Height()} / MostCells))),
      numColumns_(std::clamp(static_cast<int>(area.Width() / cell_) + 1, 1, static_cast<int>(MostCells))),
      numRows_(std::clamp(static_cast<int>(area.Height() / cell_) + 1, 1, static_cast<int>(MostCells))),
      cells_(static_cast<std::size_t>(numColumns_) * static_cast<std::size_t>(numRows_)) {}

void LabelRoom::AddBox(const PixelRect& box) { Add({.Box = box, .Line = {}}); }

void LabelRoom::AddLine(const PixelLine& line, float width) {
  if (!lines_.insert({line.X1, line.Y1, line.X2, line.Y2, width}).second) return;
  const float half = width / 2;
  Add({.Box = BoxAround(line, half), .Line = line, .IsLine = true, .StopsLeaders = false, .HalfWidth = half});
}

void LabelRoom::AddArrow(const PixelLine& line, float width) {
  const float half = width / 2;
  Add({.Box = BoxAround(line, half), .Line = line, .IsLine = true, .HalfWidth = half});
}

bool LabelRoom::IsFree(const PixelRect& box) const {
  return Contains(area_, box) && !AnyNear(box, [&box](const Item& item) {
           return Overlap(item.Box, box) &&
                  (!item.IsLine || Crosses(item.Line, Widened(box, item.HalfWidth)));
         });
}

bool LabelRoom::IsClear(const PixelLine& leader) const {
  return !AnyNear(BoxAround(leader, 0), [&leader](const Item& item) {
    if (!item.StopsLeaders) return false;
    return item.IsLine ? Meet(item.Line, leader) : Crosses(leader, item.Box);
  });
}

// A line is noted column by column, so that a long sloping one is not in every cell of its box.
void LabelRoom::Add(const Item& item) {
  const int index = static_cast<int>(items_.size());
  items_.push_back(item);
  const Span columns = Columns(item.Box.Left, item.Box.Right);
  const double rise = double{item.Line.Y2} - double{item.Line.Y1};
  const double run = double{item.Line.X2} - double{item.Line.X1};
  for (int column = columns.First; column <= columns.Last; ++column) {
    double top = item.Box.Top;
    double bottom = item.Box.Bottom;
    // Columns at the edge hold what lies beyond it too.
    if (item.IsLine && std::abs(run) > cell_ && column > 0 && column < numColumns_ - 1) {
      const double left = area_.Left + column * cell_ - item.HalfWidth;
      const double right = left + cell_ + 2.0 * item.HalfWidth;
      const double y1 = item.Line.Y1 + rise * ((left - item.Line.X1) / run);
      const double y2 = item.Line.Y1 + rise * ((right - item.Line.X1) / run);
      top = std::max(top, std::min(y1, y2) - item.HalfWidth);
      bottom = std::min(bottom, std::max(y1, y2) + item.HalfWidth);
    }
    const Span rows = Rows(static_cast<float>(top), static_cast<float>(bottom));
    for (int row = rows.First; row <= rows.Last; ++row) Cell(column, row).push_back(index);
  }
}

LabelRoom::Span LabelRoom::Columns(float left, float right) const {
  const auto column = [this](float x) {
    return static_cast<int>(std::clamp((double{x} - double{area_.Left}) / cell_, 0.0, numColumns_ - 1.0));
  };
  return {column(left), column(right)};
}

LabelRoom::Span LabelRoom::Rows(float top, float bottom) const {
  const auto row = [this](float y) {
    return static_cast<int>(std::clamp((double{y} - double{area_.Top}) / cell_, 0.0, numRows_ - 1.0));
  };
  return {row(top), row(bottom)};
}

template <class Predicate>
bool LabelRoom::AnyNear(const PixelRect& box, Predicate predicate) const {
  const Span columns = Columns(box.Left, box.Right);
  const Span rows = Rows(box.Top, box.Bottom);
  for (int column = columns.First; column <= columns.Last; ++column) {
    for (int row = rows.First; row <= rows.Last; ++row) {
      for (const int index : Cell(column, row)) {
        if (predicate(items_[static_cast<std::size_t>(index)])) return true;
      }
    }
  }
  return false;
}

std::vector<int>& LabelRoom::Cell(int column, int row) {
  return cells_[static_cast<std::size_t>(row) * static_cast<std::size_t>(numColumns_) +
                static_cast<std::size_t>(column)];
}

const std::vector<int>& LabelRoom::Cell(int column, int row) const {
  return cells_[static_cast<std::size_t>(row) * static_cast<std::size_t>(numColumns_) +
                static_cast<std::size_t>(column)];
}
