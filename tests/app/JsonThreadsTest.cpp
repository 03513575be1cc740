// The JSON of many files is made on several threads; the thread sanitizer watches it (the preset "threads").
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "app/JsonReport.h"
#include "app/RunCommandLine.h"

namespace {

std::string JsonOf(std::vector<std::string> files) {
  std::istringstream in;
  std::ostringstream out;
  std::ostringstream err;
  const CommandLineEnvironment environment{.In = in,
                                           .Out = out,
                                           .Err = err,
                                           .Numbers = {},
                                           .Json = WriteJson,
                                           .Picture = {},
                                           .MotionPicture = {},
                                           .ForcesPicture = {},
                                           .Document = {}};
  CommandLine commandLine;
  commandLine.What = CommandLine::Mode::Json;
  commandLine.Json = {.Matrices = true, .Explanation = true};
  commandLine.Files = std::move(files);
  EXPECT_EQ(RunCommandLine(commandLine, environment), Done) << err.str();
  return out.str();
}

}  // namespace

TEST(JsonThreads, SayOfEachExampleWhatIsSaidOfItAlone) {
  std::vector<std::string> files;
  std::string alone;
  for (const auto& entry : std::filesystem::directory_iterator(ORVANE_EXAMPLES_DIR)) {
    if (entry.path().extension() == ".trs") files.push_back(entry.path().string());
  }
  for (const std::string& file : files) alone += JsonOf({file});
  EXPECT_EQ(std::ranges::count(alone, '\n'), static_cast<std::ptrdiff_t>(files.size()));
  EXPECT_EQ(JsonOf(files), alone);
}
