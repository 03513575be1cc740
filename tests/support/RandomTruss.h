// Random documents for property tests: everything that a truss can hold, sensible or not.
#pragma once

#include <cstdint>
#include <random>
#include <string>

#include "document/Truss.h"

/// Gives the same documents for the same seed on every machine.
class RandomTruss {
 public:
  explicit RandomTruss(std::uint32_t seed) : engine_(seed) {}

  /// A truss with its joint list up to date: erased elements among live ones, all support types, zero,
  /// negative, tiny and huge numbers, odd names (commas, line breaks, high bytes, none at all; no quotes).
  Truss Next();

  /// Draws and erases a few elements more, and leaves the joint list as it was.
  void Edit(Truss& truss);

  /// 0 .. count - 1.
  int Below(int count) { return static_cast<int>(engine_() % static_cast<std::uint32_t>(count)); }
  bool OneIn(int count) { return Below(count) == 0; }
  /// Often one of a few values, so that positions meet.
  float Coordinate();
  /// Any finite single.
  float AnySingle();
  std::string Name();

 private:
  void AddMember(Truss& truss);
  void AddSupport(Truss& truss);
  void AddForce(Truss& truss);
  void ChooseSettings(DocumentSettings& settings);

  std::mt19937 engine_;
};
