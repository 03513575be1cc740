// Where on a drawing there is still room for a text: what stands there already is kept by place, so that a
// thousand texts find theirs quickly.
#pragma once

#include <array>
#include <set>
#include <vector>

#include "canvas/Paper.h"
#include "platform/Picture.h"

class LabelRoom {
 public:
  /// Nothing is free outside the area.
  explicit LabelRoom(const PixelRect& area);

  /// Something that no text may cover and no leader may cross.
  void AddBox(const PixelRect& box);

  /// A line that no text may cover; `width` in pixels. Leaders may cross it. Of equal ones one is kept.
  void AddLine(const PixelLine& line, float width);

  /// A line that neither texts nor leaders may touch: an arrow, another leader.
  void AddArrow(const PixelLine& line, float width);

  /// Whether a text may stand in the box.
  bool IsFree(const PixelRect& box) const;

  /// Whether a leader may run here.
  bool IsClear(const PixelLine& leader) const;

 private:
  struct Item {
    PixelRect Box;  // of a line the box around it
    PixelLine Line;
    bool IsLine = false;
    bool StopsLeaders = true;
    float HalfWidth = 0;
  };
  struct Span {
    int First, Last;
  };

  void Add(const Item& item);
  Span Columns(float left, float right) const;
  Span Rows(float top, float bottom) const;
  template <class Predicate>
  bool AnyNear(const PixelRect& box, Predicate predicate) const;
  std::vector<int>& Cell(int column, int row);
  const std::vector<int>& Cell(int column, int row) const;

  PixelRect area_;
  double cell_;  // the side of a cell, pixels
  int numColumns_, numRows_;
  std::vector<std::vector<int>> cells_;
  std::vector<Item> items_;
  std::set<std::array<float, 5>> lines_;  // ends and width
};
