// Writes generated trusses as files, the same ones every time: half of them as a student would draw them,
// half of them anything that a file can hold.
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <random>
#include <string>

#include "GeneratedTrusses.h"
#include "document/TrussText.h"
#include "support/RandomTruss.h"

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: orvane_truss_files FOLDER COUNT\n";
    return 2;
  }
  const std::filesystem::path folder = argv[1];
  const int count = std::stoi(argv[2]);
  constexpr std::uint32_t seed = 20260;
  std::mt19937 random(seed);
  RandomTruss anything(seed);
  for (int i = 0; i < count; ++i) {
    Truss truss = i % 2 == 0   ? RandomSimpleTruss(random, 3 + Pick(random, 40))
                  : i % 4 == 1 ? RandomDocument(random)
                               : anything.Next();
    std::ofstream file(folder / ("truss" + std::to_string(i) + ".trs"), std::ios::binary);
    file << TrussText(truss);
    if (!file.flush()) return 1;
  }
  return 0;
}
