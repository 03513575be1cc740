// What is told as JSON is read by another parser: it is one line of UTF-8, and names, numbers and tables are
// those of the truss.
#include <cstddef>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>

#include "InputBytes.h"
#include "NamedTruss.h"
#include "Require.h"
#include "app/JsonReport.h"
#include "text/CodePage.h"

namespace {

using nlohmann::json;

void CheckMembers(const json& told, const Truss& truss) {
  Require(told.size() == static_cast<std::size_t>(NumLiveMembers(truss)), "all members are told");
  std::size_t at = 0;
  for (const MemberRec& member : truss.MembersInUse()) {
    if (!member.Live) continue;
    const json& one = told.at(at++);
    Require(one.at("Name") == ToUtf8(truss.Name(member.NameLabel1)), "a member has its name");
    Require(one.at("X1").get<float>() == member.X1 && one.at("Y2").get<float>() == member.Y2,
            "a member has its place");
  }
}

void CheckMatrix(const json& told, const SparseMatrix<double>& matrix) {
  Require(told.size() == static_cast<std::size_t>(matrix.NumRows()), "all rows are told");
  for (int row = 1; row <= matrix.NumRows(); ++row) {
    const json& cells = told.at(static_cast<std::size_t>(row - 1));
    Require(cells.size() == static_cast<std::size_t>(matrix.NumColumns()), "all columns are told");
    for (int column = 1; column <= matrix.NumColumns(); ++column) {
      Require(cells.at(static_cast<std::size_t>(column - 1)).get<double>() == matrix(row, column),
              "a cell reads back to its bits");
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  InputBytes input(data, size);
  const int choice = input.Below(4);
  const JsonExtras extras{.Matrices = choice == 1, .Explanation = choice == 2};
  AnalysedFile file = AnalysedSmallTruss(input);
  std::ostringstream out;
  WriteJson(out, file, extras, {file.Document.Settings.SigFigs, {}});
  const std::string text = out.str();
  Require(text.find('\n') == std::string::npos, "it is one line");
  const json told = json::parse(text, nullptr, false);
  Require(!told.is_discarded(), "another parser reads it");
  CheckMembers(told.at("members"), file.Document);
  Require(told.at("unknowns").size() == static_cast<std::size_t>(file.Analysis.System.NumUnknowns()),
          "all unknowns are told");
  if (extras.Matrices) CheckMatrix(told.at("rref"), file.Analysis.System.EquationMatrix);
  Require(told.contains("rref") == extras.Matrices, "matrices are told when they are asked for");
  return 0;
}
