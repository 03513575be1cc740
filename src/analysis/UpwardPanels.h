// The pivot rows that are rather full, cut into chunks of rows and panels of columns for the upward phase.
// A chunk is brought up to date by itself; then its rows are subtracted from every panel to the right of it
// while the chunk's own lanes are in the nearest cache and the panel's in registers. Each entry still takes
// the pivot rows in their order.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "analysis/UsefulRows.h"
#include "analysis/VectorUpdate.h"

class UpwardPanels {
 public:
  UpwardPanels(const UsefulRows& rows, unsigned numThreads);

  /// As many columns as the arrays of lanes need, which is a few more than there are slots.
  std::size_t NumColumnsOfLanes() const { return first_ + (numPanels_ + PanelsInChunk) * PanelWidth; }

  /// Subtracts the full rows from the lanes; those of pivots before `firstFactor` are 0.
  void Subtract(const VectorUpdate& vector, double* lanes, Index firstFactor) const;

 private:
  static constexpr std::size_t PanelsInChunk = 64 / PanelWidth;
  static constexpr std::size_t ChunkWidth = PanelsInChunk * PanelWidth;

  /// What the rows of a chunk have in one panel. Only rows that are not 0 there have cells.
  struct Block {
    std::size_t Panel = 0;
    std::uint64_t Rows = 0;     ///< a bit for each row of the chunk that has cells
    std::size_t FirstCell = 0;  ///< PanelWidth cells for each of these rows
  };
  struct Chunk {
    std::vector<Block> Blocks;  ///< the chunk's own panels, then the later ones that are not 0
    std::vector<double> Cells;
    std::vector<double> OwnRows;  ///< by row of the chunk: its cells in the panel of its own pivot
  };

  double* LanesOfPanel(double* lanes, std::size_t panel) const {
    return lanes + (first_ + panel * PanelWidth) * RowsSideBySide;
  }
  RowsOfHalves ReduceOwnPanels(const VectorUpdate& vector, const Chunk& chunk, double* ownLanes) const;
  void Fill(const UsefulRows& rows, std::size_t number);
  template <class Visit>
  void ForEachEntry(const UsefulRows& rows, std::size_t number, Visit visit) const;

  std::size_t first_;  // the slot of the first full row
  std::size_t numPanels_;
  std::vector<Chunk> chunks_;
};
