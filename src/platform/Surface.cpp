#include "platform/Surface.h"

#include "platform/Palette.h"

void Surface::PrintTextWithRim(float left, float top, std::string_view text, int paletteIndex) {
  static constexpr PixelPoint ring[] = {{-2, 0}, {2, 0}, {0, -2},  {0, 2},  {-2, -1}, {-2, 1},
                                        {2, -1}, {2, 1}, {-1, -2}, {1, -2}, {-1, 2},  {1, 2}};
  SetForeground(White);
  for (const PixelPoint& step : ring) PrintText(left + step.X, top + step.Y, text);
  SetForeground(paletteIndex);
  PrintText(left, top, text);
}
