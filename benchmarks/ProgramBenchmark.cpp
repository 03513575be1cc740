// The whole program as a process, from its start to its last byte: the largest documents, and a course's
// worth of small ones in one call.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>

#include "ShapeDocument.h"

namespace {

namespace fs = std::filesystem;
using benchmark::State;

constexpr int NumClassroomTrusses = 1000;
constexpr int ClassroomNumUnknowns = 40;

// A directory for the files of one benchmark, and the current one while it lives: file names stay short, so
// that a thousand of them fit on a command line anywhere.
class WorkingDirectory {
 public:
  WorkingDirectory()
      : before_(fs::current_path()),
        directory_(fs::temp_directory_path() /
                   ("orvane-benchmark-" + std::to_string(std::random_device{}()))) {
    fs::create_directories(directory_);
    fs::current_path(directory_);
  }
  WorkingDirectory(const WorkingDirectory&) = delete;
  WorkingDirectory& operator=(const WorkingDirectory&) = delete;
  ~WorkingDirectory() {
    std::error_code ignored;
    fs::current_path(before_, ignored);
    fs::remove_all(directory_, ignored);
  }

 private:
  fs::path before_;
  fs::path directory_;
};

void WriteFile(const std::string& name, const TrussShape& shape) {
  std::ofstream(name, std::ios::binary) << FileTextOf(shape);
}

void RunProgram(State& state, const std::string& arguments) {
  const std::string command = "\"" ORVANE_PROGRAM "\" " + arguments + " > out";
  for (auto unused : state) {
    if (std::system(command.c_str()) != 0) {
      state.SkipWithError("the program failed");
      return;
    }
  }
  state.counters["bytes"] = static_cast<double>(fs::file_size("out"));
}

void Largest(State& state, const NamedShape& shape, const std::string& option) {
  const WorkingDirectory here;
  WriteFile("a", shape.Make(LargestNumUnknowns));
  RunProgram(state, option + " a");
}

// Strips with three loads each, no two loaded alike.
void Classroom(State& state) {
  const WorkingDirectory here;
  std::string names;
  for (int i = 0; i < NumClassroomTrusses; ++i) {
    TrussShape shape = WarrenStrip(ClassroomNumUnknowns);
    for (TrussShape::Load& load : shape.Loads) load.Fy -= static_cast<float>(i);
    WriteFile(std::to_string(i), shape);
    names += ' ' + std::to_string(i);
  }
  RunProgram(state, "--json" + names);
}

int Register() {
  for (const NamedShape& shape : AllShapes()) {
    for (const char* option : {"--report=solutions", "--json", "--csv=rref"}) {
      benchmark::RegisterBenchmark(("program/" + shape.Name + "/" + option).c_str(),
                                   [shape, option](State& state) { Largest(state, shape, option); })
          ->Unit(benchmark::kMillisecond)
          ->UseRealTime();
    }
  }
  benchmark::RegisterBenchmark("program/1000 classroom trusses/--json", Classroom)
      ->Unit(benchmark::kMillisecond)
      ->UseRealTime();
  return 0;
}

[[maybe_unused]] const int registered = Register();

}  // namespace
