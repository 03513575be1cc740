#include "analysis/UpwardPanels.h"

#include <algorithm>
#include <atomic>
#include <bit>

#include "analysis/Parallel.h"

namespace {

/// Returns 1 when a number is not 0. Looks at the bits, as this needs no branch; the sign is shifted out.
std::uint64_t IsAnyNotZero(const double* numbers, std::size_t count) {
  std::uint64_t bits = 0;
  for (std::size_t at = 0; at < count; ++at) bits |= std::bit_cast<std::uint64_t>(numbers[at]);
  return bits << 1 != 0 ? 1 : 0;
}

bool HaveAny(const RowsOfHalves& halves, std::uint64_t rows) { return ((halves[0] | halves[1]) & rows) != 0; }

}  // namespace

UpwardPanels::UpwardPanels(const UsefulRows& rows, unsigned numThreads)
    : first_(rows.FirstFullSlot),
      numPanels_((rows.NumSlots() - first_ + PanelWidth - 1) / PanelWidth),
      chunks_((rows.NumPivotSlots - first_ + ChunkWidth - 1) / ChunkWidth) {
  std::atomic<std::size_t> next = 0;
  RunInParallel(chunks_.size() > 1 ? numThreads : 1, [&] {
    for (std::size_t number = 0; (number = next.fetch_add(1)) < chunks_.size();) Fill(rows, number);
  });
}

/// Calls visit(row of the chunk, place, value); places count the slots from the first full row on.
template <class Visit>
void UpwardPanels::ForEachEntry(const UsefulRows& rows, std::size_t number, Visit visit) const {
  const std::size_t begin = first_ + number * ChunkWidth;
  const std::size_t end = std::min<std::size_t>(begin + ChunkWidth, rows.NumPivotSlots);
  for (std::size_t slot = begin; slot < end; ++slot) {
    const Index position = rows.PositionOfSlot[slot];
    for (std::size_t entry = rows.RowBegin[position]; entry < rows.RowBegin[position + 1]; ++entry) {
      visit(slot - begin, rows.Slots[entry] - first_, rows.Values[entry]);
    }
  }
}

void UpwardPanels::Fill(const UsefulRows& rows, std::size_t number) {
  Chunk& chunk = chunks_[number];
  const std::size_t firstPanel = number * PanelsInChunk;
  const auto isOwn = [&](std::size_t row, std::size_t panel) {
    return panel == firstPanel + row / PanelWidth;
  };

  std::vector<Block> blocks(numPanels_ + PanelsInChunk);  // by panel; the last chunk may have fewer
  chunk.OwnRows.resize(ChunkWidth * PanelWidth);
  ForEachEntry(rows, number, [&](std::size_t row, std::size_t place, double value) {
    const std::size_t panel = place / PanelWidth;
    if (isOwn(row, panel)) {
      chunk.OwnRows[row * PanelWidth + place % PanelWidth] = value;
    } else {
      blocks[panel].Rows |= std::uint64_t{1} << row;
    }
  });

  std::size_t numCells = 0;
  for (std::size_t panel = firstPanel; panel < blocks.size(); ++panel) {
    Block& block = blocks[panel];
    block.Panel = panel;
    block.FirstCell = numCells;
    numCells += static_cast<std::size_t>(std::popcount(block.Rows)) * PanelWidth;
    if (block.Rows != 0 || panel < firstPanel + PanelsInChunk) chunk.Blocks.push_back(block);
  }

  // Rows come in their order, so that each one's cells follow those of the last row that had some there.
  chunk.Cells.resize(numCells);
  std::vector<std::size_t> lastRow(blocks.size(), ChunkWidth);
  ForEachEntry(rows, number, [&](std::size_t row, std::size_t place, double value) {
    const std::size_t panel = place / PanelWidth;
    if (isOwn(row, panel)) return;
    std::size_t& cell = blocks[panel].FirstCell;
    if (lastRow[panel] != row && lastRow[panel] != ChunkWidth) cell += PanelWidth;
    lastRow[panel] = row;
    chunk.Cells[cell + place % PanelWidth] = value;
  });
}

/// Returns which rows of the chunk some lane has a factor for.
RowsOfHalves UpwardPanels::ReduceOwnPanels(const VectorUpdate& vector, const Chunk& chunk,
                                           double* ownLanes) const {
  constexpr std::size_t half = RowsSideBySide / 2;
  RowsOfHalves hasFactor{};
  for (std::size_t panel = 0; panel < PanelsInChunk; ++panel) {
    const std::size_t firstColumn = panel * PanelWidth;
    double* lanes = ownLanes + firstColumn * RowsSideBySide;
    const Block& block = chunk.Blocks[panel];
    if (HaveAny(hasFactor, block.Rows)) {
      vector.SubtractPanel(lanes, ownLanes, chunk.Cells.data() + block.FirstCell, block.Rows, hasFactor);
    }
    vector.SubtractOwnRows(lanes, chunk.OwnRows.data() + firstColumn * PanelWidth);
    for (std::size_t column = 0; column < PanelWidth; ++column) {
      const double* factors = lanes + column * RowsSideBySide;
      hasFactor[0] |= IsAnyNotZero(factors, half) << (firstColumn + column);
      hasFactor[1] |= IsAnyNotZero(factors + half, half) << (firstColumn + column);
    }
  }
  return hasFactor;
}

void UpwardPanels::Subtract(const VectorUpdate& vector, double* lanes, Index firstFactor) const {
  for (std::size_t at = (firstFactor - first_) / ChunkWidth; at < chunks_.size(); ++at) {
    const Chunk& chunk = chunks_[at];
    double* ownLanes = LanesOfPanel(lanes, at * PanelsInChunk);
    const RowsOfHalves hasFactor = ReduceOwnPanels(vector, chunk, ownLanes);
    for (std::size_t number = PanelsInChunk; number < chunk.Blocks.size(); ++number) {
      const auto& [panel, rows, firstCell] = chunk.Blocks[number];
      if (!HaveAny(hasFactor, rows)) continue;
      vector.SubtractPanel(LanesOfPanel(lanes, panel), ownLanes, chunk.Cells.data() + firstCell, rows,
                           hasFactor);
    }
  }
}
