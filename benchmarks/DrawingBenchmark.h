// Painting the drawing of the largest trusses on screens of one and of two device pixels to a pixel.
#pragma once

/// To be called before the benchmarks are run.
void RegisterDrawingBenchmarks();
