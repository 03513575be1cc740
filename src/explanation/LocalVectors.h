// A basis of a null space whose vectors are as local as can be, so that each says one thing: this joint
// swings, that panel shears, these members press against each other. Columns belong to blocks (the two
// displacements of a joint are one block; the force of an unknown is one).
#pragma once

#include <vector>

#include "explanation/ModularElimination.h"

struct BlockedNullSpace {
  const ModularNullSpace& Space;
  std::vector<int> BlockOfColumn;
  std::vector<int> PieceOfBlock;  ///< blocks of different pieces share no row
  int NumPieces = 0;
};

/// A piece with so many vectors that looking for small ones would take long.
struct LargePiece {
  std::vector<int> Columns;  ///< ascending: those in which any vector of the piece is not 0
  int NumVectors = 0;
  bool HoldsGiven = false;  ///< as many vectors as are given must be left out, to be independent of these
};

struct LocalBasis {
  std::vector<ModularRow> Vectors;
  std::vector<LargePiece> LargePieces;  ///< whose vectors are not among Vectors
};

/// As many independent vectors as the space has dimensions, less those of `given`, which must be independent
/// vectors of the space; together with these they are a basis again. Each vector moves no more blocks than it
/// must: no other vector of the space that is independent of `given` and of the vectors before it keeps to
/// some of its blocks. Each is also determined, but for its size, by the columns in which it is not 0.
template <class Field>
LocalBasis LocalVectors(const BlockedNullSpace& blocked, const std::vector<ModularRow>& given);
