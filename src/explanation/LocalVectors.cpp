// Vectors of the space are handled by their coefficients (their values in the free columns). From a vector
// and the blocks that it moves, blocks are given up one by one as long as what is left still holds something
// new.
#include "explanation/LocalVectors.h"

#include <algorithm>
#include <utility>

#include "explanation/At.h"

namespace {

using Vector = std::vector<std::uint64_t>;

// target -= factor * row
template <class Field>
void Subtract(Vector& target, std::uint64_t factor, const Vector& row) {
  for (std::size_t i = 0; i < target.size(); ++i) {
    if (row[i] != 0) target[i] = Field::Subtract(target[i], Field::Multiply(factor, row[i]));
  }
}

bool IsZero(const Vector& vector) {
  return std::all_of(vector.begin(), vector.end(), [](std::uint64_t value) { return value == 0; });
}

// The span of some vectors, in echelon form.
template <class Field>
class Span {
 public:
  bool Contains(Vector vector) const {
    Reduce(vector);
    return IsZero(vector);
  }

  /// Returns false when the vector was in the span already.
  bool Add(Vector vector) {
    Reduce(vector);
    const auto lead =
        std::find_if(vector.begin(), vector.end(), [](std::uint64_t value) { return value != 0; });
    if (lead == vector.end()) return false;
    const std::uint64_t inverse = Field::Inverse(*lead);
    leads_.push_back(static_cast<std::size_t>(lead - vector.begin()));
    for (std::uint64_t& value : vector) value = Field::Multiply(value, inverse);
    rows_.push_back(std::move(vector));
    return true;
  }

 private:
  void Reduce(Vector& vector) const {
    for (std::size_t i = 0; i < rows_.size(); ++i) {
      if (vector[leads_[i]] != 0) Subtract<Field>(vector, vector[leads_[i]], rows_[i]);
    }
  }

  std::vector<std::size_t> leads_;
  std::vector<Vector> rows_;
};

// Some vectors, each with its coefficients and its values in the columns of the piece.
struct Bundle {
  std::vector<Vector> Coefficients;
  std::vector<Vector> Values;

  std::size_t Size() const { return Values.size(); }
};

// Keeps the vectors of the bundle's span that are 0 in a column.
template <class Field>
void RestrictTo0(Bundle& bundle, std::size_t column) {
  const auto pivot = std::find_if(bundle.Values.begin(), bundle.Values.end(),
                                  [column](const Vector& values) { return values[column] != 0; });
  if (pivot == bundle.Values.end()) return;
  const auto index = static_cast<std::size_t>(pivot - bundle.Values.begin());
  const Vector values = std::move(bundle.Values[index]);
  const Vector coefficients = std::move(bundle.Coefficients[index]);
  bundle.Values.erase(bundle.Values.begin() + static_cast<std::ptrdiff_t>(index));
  bundle.Coefficients.erase(bundle.Coefficients.begin() + static_cast<std::ptrdiff_t>(index));
  const std::uint64_t inverse = Field::Inverse(values[column]);
  for (std::size_t i = 0; i < bundle.Size(); ++i) {
    if (bundle.Values[i][column] == 0) continue;
    const std::uint64_t factor = Field::Multiply(bundle.Values[i][column], inverse);
    Subtract<Field>(bundle.Values[i], factor, values);
    Subtract<Field>(bundle.Coefficients[i], factor, coefficients);
  }
}

// Each vector is 1 in a column of its own in which the others are 0, as early as can be.
template <class Field>
void Reduce(Bundle& bundle) {
  std::size_t done = 0;
  const std::size_t numColumns = bundle.Size() == 0 ? 0 : bundle.Values.front().size();
  for (std::size_t column = 0; column < numColumns && done < bundle.Size(); ++column) {
    std::size_t pivot = done;
    while (pivot < bundle.Size() && bundle.Values[pivot][column] == 0) ++pivot;
    if (pivot == bundle.Size()) continue;
    std::swap(bundle.Values[pivot], bundle.Values[done]);
    std::swap(bundle.Coefficients[pivot], bundle.Coefficients[done]);
    const std::uint64_t inverse = Field::Inverse(bundle.Values[done][column]);
    for (std::uint64_t& value : bundle.Values[done]) value = Field::Multiply(value, inverse);
    for (std::uint64_t& value : bundle.Coefficients[done]) value = Field::Multiply(value, inverse);
    for (std::size_t i = 0; i < bundle.Size(); ++i) {
      if (i == done || bundle.Values[i][column] == 0) continue;
      const std::uint64_t factor = bundle.Values[i][column];
      Subtract<Field>(bundle.Values[i], factor, bundle.Values[done]);
      Subtract<Field>(bundle.Coefficients[i], factor, bundle.Coefficients[done]);
    }
    ++done;
  }
}

std::vector<int> ColumnsOf(const ModularNullSpace& space, const std::vector<int>& vectors) {
  std::vector<int> columns;
  for (const int vector : vectors) {
    for (const ModularEntry& entry : space.Vectors[At(vector)]) columns.push_back(entry.Column);
  }
  std::sort(columns.begin(), columns.end());
  columns.erase(std::unique(columns.begin(), columns.end()), columns.end());
  return columns;
}

// One piece: its vectors, its columns and blocks, numbered anew from 0.
template <class Field>
class Piece {
 public:
  Piece(const BlockedNullSpace& blocked, std::vector<int> members)
      : members_(std::move(members)), columns_(ColumnsOf(blocked.Space, members_)) {
    const std::vector<ModularRow>& vectors = blocked.Space.Vectors;
    for (const int column : columns_) blockOf_.push_back(blocked.BlockOfColumn[At(column)]);
    for (std::size_t i = 0; i < members_.size(); ++i) {
      all_.Values.push_back(OnColumns(vectors[At(members_[i])]));
      all_.Coefficients.emplace_back(members_.size());
      all_.Coefficients.back()[i] = 1;
    }
  }

  /// Returns false, and takes none, when the given vectors depend on each other in this piece.
  bool TakeAsGiven(const std::vector<ModularRow>& given, const ModularNullSpace& space) {
    Span<Field> span;
    for (const ModularRow& vector : given) {
      if (!span.Add(Coefficients(vector, space))) return false;
    }
    chosen_ = std::move(span);
    return true;
  }

  std::vector<ModularRow> Choose() {
    std::vector<std::size_t> order(all_.Size());
    for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
    std::stable_sort(order.begin(), order.end(), [this](std::size_t left, std::size_t right) {
      return BlocksOf(all_.Values[left]).size() < BlocksOf(all_.Values[right]).size();
    });
    std::vector<ModularRow> result;
    for (const std::size_t i : order) {
      while (!chosen_.Contains(all_.Coefficients[i])) result.push_back(OneLocal(all_.Values[i]));
    }
    return result;
  }

 private:
  // The values of a vector of the space in the free columns of the piece.
  Vector Coefficients(const ModularRow& vector, const ModularNullSpace& space) const {
    Vector coefficients;
    for (const int member : members_) {
      const auto found =
          std::lower_bound(vector.begin(), vector.end(), space.Free[At(member)],
                           [](const ModularEntry& entry, int wanted) { return entry.Column < wanted; });
      const bool isThere = found != vector.end() && found->Column == space.Free[At(member)];
      coefficients.push_back(isThere ? found->Value : 0);
    }
    return coefficients;
  }

  Vector OnColumns(const ModularRow& row) const {
    Vector values(columns_.size());
    for (const ModularEntry& entry : row) {
      const auto found = std::lower_bound(columns_.begin(), columns_.end(), entry.Column);
      values[static_cast<std::size_t>(found - columns_.begin())] = entry.Value;
    }
    return values;
  }

  std::vector<int> BlocksOf(const Vector& values) const {
    std::vector<int> blocks;
    for (std::size_t column = 0; column < values.size(); ++column) {
      if (values[column] != 0 && (blocks.empty() || blocks.back() != blockOf_[column])) {
        blocks.push_back(blockOf_[column]);
      }
    }
    return blocks;  // ascending, because columns are
  }

  bool HoldsSomethingNew(const Bundle& bundle) const {
    return std::any_of(bundle.Coefficients.begin(), bundle.Coefficients.end(),
                       [this](const Vector& coefficients) { return !chosen_.Contains(coefficients); });
  }

  void GiveUp(Bundle& bundle, int block) const {
    for (std::size_t column = 0; column < columns_.size(); ++column) {
      if (blockOf_[column] == block) RestrictTo0<Field>(bundle, column);
    }
  }

  // The smallest new vector that keeps to the blocks of `start`, which holds something new itself.
  ModularRow OneLocal(const Vector& start) {
    const std::vector<int> blocks = BlocksOf(start);
    Bundle bundle = all_;
    for (std::size_t column = 0; column < columns_.size(); ++column) {
      if (!std::binary_search(blocks.begin(), blocks.end(), blockOf_[column])) {
        RestrictTo0<Field>(bundle, column);
      }
    }
    for (auto block = blocks.rbegin(); block != blocks.rend() && bundle.Size() > 1; ++block) {
      Bundle without = bundle;
      GiveUp(without, *block);
      if (without.Size() < bundle.Size() && HoldsSomethingNew(without)) bundle = std::move(without);
    }
    Reduce<Field>(bundle);
    std::size_t i = 0;
    while (!chosen_.Add(bundle.Coefficients[i])) ++i;
    ModularRow vector;
    for (std::size_t column = 0; column < columns_.size(); ++column) {
      if (bundle.Values[i][column] != 0) vector.push_back({columns_[column], bundle.Values[i][column]});
    }
    return vector;
  }

  std::vector<int> members_;  // vectors of the space
  std::vector<int> columns_;  // ascending
  std::vector<int> blockOf_;  // by place in columns_
  Bundle all_;
  Span<Field> chosen_;
};

std::vector<std::vector<int>> VectorsByPiece(const BlockedNullSpace& blocked) {
  std::vector<std::vector<int>> members(At(blocked.NumPieces));
  for (std::size_t i = 0; i < blocked.Space.Free.size(); ++i) {
    const int block = blocked.BlockOfColumn[At(blocked.Space.Free[i])];
    members[At(blocked.PieceOfBlock[At(block)])].push_back(static_cast<int>(i));
  }
  return members;
}

// Looking for small vectors costs about this many multiplications.
bool IsSmall(std::size_t numVectors, std::size_t numColumns) {
  return numVectors * numVectors * numVectors * numColumns < 100'000'000;
}

// Leaves out as many vectors as are needed to make room for the given ones. Works on values in free columns.
template <class Field>
std::vector<ModularRow> IndependentOf(const std::vector<ModularRow>& given, std::vector<ModularRow> vectors,
                                      const ModularNullSpace& space) {
  if (given.empty()) return vectors;
  std::vector<int> freeIndex;
  for (std::size_t i = 0; i < space.Free.size(); ++i) {
    freeIndex.resize(std::max(freeIndex.size(), At(space.Free[i]) + 1), -1);
    freeIndex[At(space.Free[i])] = static_cast<int>(i);
  }
  const auto coefficients = [&](const ModularRow& row) {
    ModularRow result;
    for (const ModularEntry& entry : row) {
      const bool isFree = At(entry.Column) < freeIndex.size() && freeIndex[At(entry.Column)] >= 0;
      if (isFree) result.push_back({freeIndex[At(entry.Column)], entry.Value});
    }
    return result;
  };
  // A vector may stay when it is independent of those before it: then its column in the null space of all of
  // them, taken as columns, has a pivot. That is decided by eliminating them in their order.
  std::vector<ModularRow> columns;
  columns.reserve(given.size() + vectors.size());
  for (const ModularRow& row : given) columns.push_back(coefficients(row));
  for (const ModularRow& row : vectors) columns.push_back(coefficients(row));
  const std::vector<ModularRow> relations =
      NullSpaceOf<Field>(Transposed(columns, static_cast<int>(space.Free.size())),
                         static_cast<int>(columns.size()))
          .Vectors;
  // Each relation makes one vector superfluous: the last one in it that no relation has taken yet.
  std::vector<bool> isOut(columns.size());
  std::vector<Vector> rows;
  for (const ModularRow& relation : relations) {
    Vector dense(columns.size());
    for (const ModularEntry& entry : relation) dense[At(entry.Column)] = entry.Value;
    rows.push_back(std::move(dense));
  }
  for (std::size_t i = 0; i < rows.size(); ++i) {
    std::size_t last = columns.size() - 1;
    while (rows[i][last] == 0) --last;
    isOut[last] = true;
    for (std::size_t j = i + 1; j < rows.size(); ++j) {
      if (rows[j][last] == 0) continue;
      Subtract<Field>(rows[j], Field::Multiply(rows[j][last], Field::Inverse(rows[i][last])), rows[i]);
    }
  }
  std::vector<ModularRow> kept;
  for (std::size_t i = 0; i < vectors.size(); ++i) {
    if (!isOut[given.size() + i]) kept.push_back(std::move(vectors[i]));
  }
  return kept;
}

}  // namespace

template <class Field>
LocalBasis LocalVectors(const BlockedNullSpace& blocked, const std::vector<ModularRow>& given) {
  LocalBasis basis;
  bool givenAreTaken = given.empty();
  for (const std::vector<int>& members : VectorsByPiece(blocked)) {
    if (members.empty()) continue;
    std::vector<int> columns = ColumnsOf(blocked.Space, members);
    if (!IsSmall(members.size(), columns.size())) {
      // So large a piece has more than one joint, and the whole truss does not move without it.
      basis.LargePieces.push_back({std::move(columns), static_cast<int>(members.size()), !givenAreTaken});
      givenAreTaken = true;
      continue;
    }
    Piece<Field> piece(blocked, members);
    if (!givenAreTaken) givenAreTaken = piece.TakeAsGiven(given, blocked.Space);
    for (ModularRow& vector : piece.Choose()) basis.Vectors.push_back(std::move(vector));
  }
  if (!givenAreTaken) basis.Vectors = IndependentOf<Field>(given, std::move(basis.Vectors), blocked.Space);
  return basis;
}

template LocalBasis LocalVectors<FirstField>(const BlockedNullSpace&, const std::vector<ModularRow>&);
template LocalBasis LocalVectors<SecondField>(const BlockedNullSpace&, const std::vector<ModularRow>&);
