#include "app/ByJointJson.h"

#include "app/JsonList.h"
#include "explanation/byjoint/HandSolution.h"
#include "explanation/byjoint/HandText.h"

std::string ByJointJson(const AnalysedFile& file, const ReportFormat& format) {
  const TrussGraph graph = GraphOf(file.Document, file.Analysis);
  const HandSolution solution = SolveByHand(graph);
  const HandText texts(graph, solution, format);
  JsonList list('[');
  for (const HandStep& step : solution.Steps) {
    JsonList solved('[');
    for (const UnknownForce& force : step.Solved)
      solved.Item(JsonList('{').Key("Unknown", force.Unknown).Key("Value", force.Value).Text());
    const HandStepText written = texts.Step(step);
    std::string text = written.Heading;
    for (const std::string& line : written.Lines) text += '\n' + line;
    JsonList item('{');
    item.Key("Kind", JsonText(KindWord(step.Kind)));
    if (step.Joint != 0) item.Key("Joint", step.Joint);
    list.Item(item.Key("solved", solved.Text()).Key("text", JsonName(text)).Text());
  }
  return list.Text();
}
