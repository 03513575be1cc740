#include "reports/GridFitting.h"

GridFit LimitGridSize(float naturalWidth, float naturalHeight, float availableWidth, float availableHeight) {
  const bool tooWide = naturalWidth > availableWidth;
  const bool tooHigh = naturalHeight > availableHeight;
  if (!tooWide && !tooHigh) return GridFit{naturalWidth, naturalHeight, false, false};
  if (tooWide && naturalHeight + ScrollBarThickness <= availableHeight) {
    return GridFit{availableWidth, naturalHeight + ScrollBarThickness, true, false};
  }
  if (tooHigh && naturalWidth + ScrollBarThickness <= availableWidth) {
    return GridFit{naturalWidth + ScrollBarThickness, availableHeight, false, true};
  }
  return GridFit{availableWidth, availableHeight, true, true};
}
