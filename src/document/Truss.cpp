// Emptying the document and counting what lives in it.
#include "document/Truss.h"

#include <algorithm>

void ResetAll(Truss& truss) {
  truss.FileName.clear();
  truss.NumMembers = 0;
  truss.NumSupports = 0;
  truss.NumLabels = 0;
  truss.NumArrowLines = 0;
  truss.NumForces = 0;
  truss.NumJoints = 0;
}

namespace {

template <class Records>
int CountLive(const Records& records) {
  return static_cast<int>(std::ranges::count_if(records, [](const auto& record) { return record.Live; }));
}

}  // namespace

int NumLiveMembers(const Truss& truss) { return CountLive(truss.MembersInUse()); }
int NumLiveSupports(const Truss& truss) { return CountLive(truss.SupportsInUse()); }
int NumActiveForces(const Truss& truss) {
  return static_cast<int>(std::ranges::count_if(truss.ForcesInUse(), &ForceRec::Active));
}
