// The one container of records: indices run from 1, as joints and equations are numbered in statics,
// so that no "- 1" appears in a formula.
#pragma once

#include <cassert>
#include <cstddef>
#include <span>
#include <vector>

/// A table with indices 1 .. Size(). Reading or writing outside that range is a programming
/// error, which ends the program with a message.
template <class Record>
class Table {
 public:
  Table() = default;
  explicit Table(int size) : records_(static_cast<std::size_t>(size)) {}

  Record& operator[](int index) {
    assert(index >= 1 && index <= Size());
    return records_[static_cast<std::size_t>(index - 1)];
  }
  const Record& operator[](int index) const {
    assert(index >= 1 && index <= Size());
    return records_[static_cast<std::size_t>(index - 1)];
  }

  int Size() const { return static_cast<int>(records_.size()); }

  /// Grows (with default records) or shrinks to `size` records; the records that stay keep their contents.
  void Resize(int size) { records_.resize(static_cast<std::size_t>(size)); }

  /// Grows to at least `size` records; never shrinks.
  void GrowTo(int size) {
    if (size > Size()) Resize(size);
  }

  /// The first `count` records in order, for loops and algorithms.
  std::span<Record> First(int count) {
    assert(count >= 0 && count <= Size());
    return std::span(records_).first(static_cast<std::size_t>(count));
  }
  std::span<const Record> First(int count) const {
    assert(count >= 0 && count <= Size());
    return std::span(records_).first(static_cast<std::size_t>(count));
  }

  friend bool operator==(const Table&, const Table&) = default;

 private:
  std::vector<Record> records_;
};
