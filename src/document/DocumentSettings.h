// The settings that travel with a truss, and the view values that are derived from them.
#pragma once

#include <cstdint>
#include <string>
#include <variant>

/// A number that keeps the type it was given as: the start default is an integer, the settings dialog stores
/// a single, a file gives an integer or a double.
using TaggedNumber = std::variant<std::int16_t, float, double>;

double ValueOf(const TaggedNumber& number);

/// The general text of the number in its own type (see GeneralText).
std::string TaggedNumberText(const TaggedNumber& number, const std::string& decimalSeparator = ".");

/// The drawing area of the canvas in pixels, y downward.
struct CanvasBounds {
  float PixL = 48;   ///< pixel x of XMin
  float PixR = 514;  ///< pixel x of XMax
  float PixT = 70;   ///< pixel y of YMax
  float PixB = 420;  ///< pixel y of YMin
};

struct DocumentSettings {
  bool SnapObject = true;
  bool SnapGrid = true;
  bool GridOn = true;
  bool RulersOn = true;
  float XMin = 0;                               ///< world units
  float XMax = 20;                              ///< world units
  TaggedNumber HatchSpacing = std::int16_t{2};  ///< world units between ruler ticks, both axes
  float GridX = 0.5F;                           ///< world units
  float YMin = 0;                               ///< world units
  float GridY = 0.5F;                           ///< world units
  float ForceScale = 1000;   ///< force units that one world unit of arrow length represents
  std::int16_t SigFigs = 4;  ///< significant figures in reports; the dialog offers 3 to 7

  /// Points; one of 10, 12, 14, 16. Not stored in the file.
  float ReportFontSize = 10;

  friend bool operator==(const DocumentSettings&, const DocumentSettings&) = default;
};

/// Recomputed from the settings by DeriveView, never typed and never stored.
struct DerivedView {
  float YMax = 0;         ///< world y at the top of the drawing area; keeps the aspect ratio
  float HatchCountX = 0;  ///< ruler intervals along x, not rounded
  float HatchCountY = 0;  ///< ruler intervals along y, not rounded

  friend bool operator==(const DerivedView&, const DerivedView&) = default;
};

/// A division by zero, or a result beyond single precision, leaves the value 0; what depends on it is then
/// not drawn.
DerivedView DeriveView(const DocumentSettings& settings, const CanvasBounds& bounds);

/// How many grid dots fit along one axis: the range over the spacing, truncated toward zero; 0 when the
/// spacing is 0. Counts beyond 16 bits come out as the nearest 16-bit number.
std::int16_t GridCount(float minimum, float maximum, float spacing);

/// More dots than this along either axis are too dense to draw.
inline constexpr std::int16_t MaxGridCount = 500;
