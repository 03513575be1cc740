// Both pictures are drawn once, with the ground below, and turned for the other sides.
#include "canvas/SupportPicture.h"

#include <array>
#include <cmath>
#include <numbers>

#include "canvas/Paper.h"
#include "document/SupportReactions.h"

namespace {

using Shapes = std::vector<PictureShape>;

constexpr float BoxSize = 32;
constexpr float PinRadius = 3;

// Enough for a circle of a few pixels to look round on a finely resolved screen or on paper.
constexpr int CircleCorners = 16;

using CirclePolygon = std::array<PixelPoint, CircleCorners>;

PictureShape LineShape(float x1, float y1, float x2, float y2) {
  return {.Kind = ShapeKind::Line, .Points = {{x1, y1}, {x2, y2}}};
}

PictureShape CircleShape(float x, float y, float radius, int fill) {
  return {.Kind = ShapeKind::Circle, .Points = {{x, y}}, .Radius = radius, .Fill = fill};
}

void AddGround(Shapes& picture, float y) {
  picture.push_back(LineShape(4, y, 28, y));
  for (const float x : {8.0F, 13.0F, 18.0F, 23.0F, 28.0F}) {
    picture.push_back(LineShape(x, y, x - 4, y + 4));
  }
}

Shapes Clamp() {
  Shapes picture;
  AddGround(picture, 27);
  picture.push_back({.Kind = ShapeKind::Polygon, .Points = {{16, 16}, {25, 27}, {7, 27}}, .Fill = LightGrey});
  picture.push_back(CircleShape(16, 16, PinRadius, White));
  return picture;
}

Shapes Roller() {
  Shapes picture;
  AddGround(picture, 27);
  picture.push_back(CircleShape(11.5F, 24.5F, 2.5F, White));
  picture.push_back(CircleShape(20.5F, 24.5F, 2.5F, White));
  picture.push_back({.Kind = ShapeKind::Polygon, .Points = {{16, 16}, {24, 22}, {8, 22}}, .Fill = LightGrey});
  picture.push_back(CircleShape(16, 16, PinRadius, White));
  return picture;
}

PixelPoint Turned(PixelPoint point, GroundSide side) {
  switch (side) {
    case GroundSide::Left:
      return {BoxSize - point.Y, point.X};
    case GroundSide::Above:
      return {BoxSize - point.X, BoxSize - point.Y};
    case GroundSide::Right:
      return {point.Y, BoxSize - point.X};
    case GroundSide::Below:
      break;
  }
  return point;
}

Shapes Turned(Shapes picture, GroundSide side) {
  for (PictureShape& shape : picture) {
    for (PixelPoint& point : shape.Points) point = Turned(point, side);
  }
  return picture;
}

std::array<Shapes, LastSupportType + 1> AllPictures() {
  std::array<Shapes, LastSupportType + 1> pictures;
  for (std::int16_t type = 1; type <= LastSupportType; ++type) {
    pictures[static_cast<std::size_t>(type)] =
        Turned(type <= LastClampType ? Clamp() : Roller(), GroundSideOf(type));
  }
  return pictures;
}

CirclePolygon Disc(float centreX, float centreY, float radius) {
  static const CirclePolygon unitDisc = [] {
    CirclePolygon corners;
    for (std::size_t i = 0; i < corners.size(); ++i) {
      const double angle = 2 * std::numbers::pi * static_cast<double>(i) / CircleCorners;
      corners[i] = {static_cast<float>(std::cos(angle)), static_cast<float>(std::sin(angle))};
    }
    return corners;
  }();
  CirclePolygon disc = unitDisc;
  for (PixelPoint& corner : disc) corner = {centreX + radius * corner.X, centreY + radius * corner.Y};
  return disc;
}

void PaintPolygon(Surface& surface, const std::vector<PixelPoint>& corners, int fill) {
  surface.FillPolygon(corners, fill);
  const PixelPoint& last = corners.back();
  surface.Line(last.X, last.Y, corners.front().X, corners.front().Y);
  for (std::size_t i = 1; i < corners.size(); ++i) surface.LineTo(corners[i].X, corners[i].Y);
}

}  // namespace

GroundSide GroundSideOf(std::int16_t type) {
  const bool isClamp = type >= 1 && type <= LastClampType;
  const auto roller = static_cast<std::int16_t>(isClamp ? type + LastClampType : type);
  const ReactionDirection push = DirectionOf(roller, 1);
  if (push.IsAlongX()) return push.Sign() > 0 ? GroundSide::Left : GroundSide::Right;
  return push.Sign() < 0 ? GroundSide::Above : GroundSide::Below;
}

const std::vector<PictureShape>& SupportPicture(std::int16_t type) {
  static const auto pictures = AllPictures();
  const bool known = type >= 1 && type <= LastSupportType;
  return pictures[known ? static_cast<std::size_t>(type) : 0];
}

PixelRect SupportPictureBox(std::int16_t type, PixelPoint centre) {
  constexpr float half = BoxSize / 2, wide = half - 2, pin = 4;
  const auto [x, y] = centre;
  switch (GroundSideOf(type)) {
    case GroundSide::Left:
      return {x - half, y - wide, x + pin, y + wide};
    case GroundSide::Above:
      return {x - wide, y - half, x + wide, y + pin};
    case GroundSide::Right:
      return {x - pin, y - wide, x + half, y + wide};
    case GroundSide::Below:
      break;
  }
  return {x - wide, y - pin, x + wide, y + half};
}

// One disc on the other instead of an outline of many short lines: thousands of pins are painted.
void PaintCircle(Surface& surface, float centreX, float centreY, float radius, int fill) {
  surface.FillPolygon(Disc(centreX, centreY, radius), Black);
  if (radius > 1) surface.FillPolygon(Disc(centreX, centreY, radius - 1), fill);
}

void PaintSupportPicture(Surface& surface, std::int16_t type, float left, float top, float scale) {
  const float originX = OntoPaper(left);
  const float originY = OntoPaper(top);
  surface.SetForeground(Black);
  surface.SetLineWidth(1);
  for (const PictureShape& shape : SupportPicture(type)) {
    std::vector<PixelPoint> points;
    for (const PixelPoint& point : shape.Points) {
      points.push_back({originX + scale * point.X, originY + scale * point.Y});
    }
    switch (shape.Kind) {
      case ShapeKind::Line:
        surface.Line(points[0].X, points[0].Y, points[1].X, points[1].Y);
        break;
      case ShapeKind::Polygon:
        PaintPolygon(surface, points, shape.Fill);
        break;
      case ShapeKind::Circle:
        PaintCircle(surface, points[0].X, points[0].Y, scale * shape.Radius, shape.Fill);
        break;
    }
  }
}
