#include "practice/ForceNames.h"

#include <set>

#include "document/Truss.h"
#include "text/CodePage.h"

std::string TrimmedName(const PlacedUnknown& unknown) {
  const std::string name = ToUtf8(unknown.Name);
  const std::size_t first = name.find_first_not_of(" \t");
  if (first == std::string::npos) return {};
  return name.substr(first, name.find_last_not_of(" \t") - first + 1);
}

std::string WhyNotByName(const TrussGraph& graph) {
  std::set<std::string> seen;
  for (int k = 1; k <= graph.NumUnknowns(); ++k) {
    const std::string name = TrimmedName(graph.Unknowns[k]);
    for (const char* heading : {StudentHeading, FileHeading, VariantHeading}) {
      if (name == heading) return "a force is called \"" + name + "\", as another column is";
    }
    if (name.empty() || name == UnnamedCaption)
      return "not every force has a name (Step 2 and --autoname give them)";
    if (!seen.insert(name).second) return "two forces are called \"" + name + '"';
  }
  return {};
}
