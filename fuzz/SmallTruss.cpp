#include "SmallTruss.h"

#include <string>
#include <vector>

#include "Require.h"
#include "document/JointList.h"
#include "document/TrussFile.h"
#include "naming/Naming.h"

namespace {

constexpr int MostJoints = 5, MostMembers = 10, MostSupports = 3, MostLoads = 2;
constexpr int NumCoordinates = 8, LargestLoad = 3;

// Counts the lines of a section.
class Section {
 public:
  void Add(const std::string& line) {
    lines_ += line + "\r\n";
    ++count_;
  }
  std::string Text() const { return std::to_string(count_) + "\r\n" + lines_; }

 private:
  std::string lines_;
  int count_ = 0;
};

}  // namespace

Truss SmallTruss(InputBytes& input) {
  std::vector<std::string> places;
  const int numJoints = 2 + input.Below(MostJoints - 1);
  for (int j = 0; j < numJoints; ++j) {
    const int cell = input.Below(NumCoordinates * NumCoordinates);
    places.push_back(std::to_string(cell / NumCoordinates) + ',' + std::to_string(cell % NumCoordinates));
  }
  const auto place = [&] { return places[static_cast<std::size_t>(input.Below(numJoints))]; };
  Section supports, members, loads;
  for (int i = input.Below(MostSupports + 1); i > 0; --i) {
    const int type = 1 + input.Below(LastSupportType);
    supports.Add(place() + ',' + std::to_string(type) + "\r\n" + R"("[ ]")" +
                 (type <= LastClampType ? R"(,"[ ]")" : ""));
  }
  for (int i = input.Below(MostMembers + 1); i > 0; --i) {
    const std::string a = place();
    const std::string b = place();
    if (a != b) members.Add(a + ',' + b + R"(,"[ ]","[ ]")");
  }
  for (int i = input.Below(MostLoads + 1); i > 0; --i) {
    const int load = input.Below((2 * LargestLoad + 1) * (2 * LargestLoad + 1));
    loads.Add(place() + ',' + std::to_string(load / (2 * LargestLoad + 1) - LargestLoad) + ',' +
              std::to_string(load % (2 * LargestLoad + 1) - LargestLoad));
  }
  Truss truss;
  const std::string text =
      "Orvane 5\r\n#TRUE#,#TRUE#,#TRUE#,#TRUE#\r\n0\r\n20\r\n2\r\n0.5\r\n0\r\n0.5\r\n1000\r\n4\r\n" +
      supports.Text() + members.Text() + loads.Text() + "0\r\n";
  Require(!ReadTrussText(truss, CanvasBounds{}, text), "a small truss is read");
  Require(CheckJoints(truss), "a small truss has few joints");
  AutoName(truss);
  return truss;
}
