// The standard 16-colour palette, in which pens and fills are chosen.
#pragma once

#include <array>
#include <cstdint>

struct PaletteColour {
  std::uint8_t Red = 0, Green = 0, Blue = 0;

  friend bool operator==(const PaletteColour&, const PaletteColour&) = default;
};

/// Indices into the palette that the program uses by name.
inline constexpr int Black = 0;
inline constexpr int LightGrey = 7;
inline constexpr int DarkGrey = 8;
inline constexpr int LightBlue = 9;
inline constexpr int LightRed = 12;
inline constexpr int White = 15;

/// Index 0 .. 15: eight dark colours (7 is a light grey), then their bright forms (8 is a dark grey).
inline constexpr std::array<PaletteColour, 16> Palette = {{
    {0, 0, 0},
    {0, 0, 128},
    {0, 128, 0},
    {0, 128, 128},
    {128, 0, 0},
    {128, 0, 128},
    {128, 128, 0},
    {192, 192, 192},
    {128, 128, 128},
    {0, 0, 255},
    {0, 255, 0},
    {0, 255, 255},
    {255, 0, 0},
    {255, 0, 255},
    {255, 255, 0},
    {255, 255, 255},
}};
