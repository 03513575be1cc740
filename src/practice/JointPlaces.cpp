#include "practice/JointPlaces.h"

#include "explanation/DistinctNames.h"

std::string JointPlaces(const TrussGraph& graph, const ReportFormat& format) {
  const DistinctNames names(graph, format);
  std::string text = "Joints (x, y):  ";
  for (int j = 1; j <= graph.NumJoints(); ++j) text += (j == 1 ? "" : ",  ") + names.WithPlace(j);
  return text + '.';
}
