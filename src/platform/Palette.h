// The colours in which pens and fills are chosen: the standard 16-colour palette and two hues beyond it.
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

/// Two hues that stay apart for eyes that part colours badly, and in grey.
inline constexpr int DeepBlue = 16;
inline constexpr int Rose = 17;

using PaletteColours = std::array<PaletteColour, 18>;

/// On white paper. Index 0 .. 15: eight dark colours (7 is a light grey), then their bright forms (8 is a
/// dark grey); then the two hues.
inline constexpr PaletteColours Palette = {{
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
    {0, 68, 136},
    {187, 85, 102},
}};

/// The same on dark paper: ink is light, paper dark, and each colour bright enough to be read on it.
inline constexpr PaletteColours DarkPalette = {{
    {232, 232, 232},
    {130, 160, 255},
    {110, 210, 130},
    {90, 200, 200},
    {255, 160, 150},
    {220, 150, 220},
    {200, 200, 110},
    {90, 90, 90},
    {150, 150, 150},
    {120, 150, 255},
    {110, 240, 110},
    {110, 240, 240},
    {255, 120, 105},
    {255, 140, 255},
    {100, 88, 0},
    {30, 30, 30},
    {102, 153, 204},
    {238, 153, 170},
}};
