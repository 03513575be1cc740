#include "app/StepsJson.h"

#include "explanation/steps/PlainElimination.h"

void WritePivots(JsonStream& list, const AnalysedFile& file) {
  for (const EliminationPivot& pivot : PivotsOf(EquationsOf(file.Document, file.Analysis))) {
    list.Item(JsonList('{')
                  .Key("Joint", JointOfRow(pivot.Row))
                  .Key("Axis", AxisOfRow(pivot.Row) == Axis::X ? "\"x\"" : "\"y\"")
                  .Key("Unknown", pivot.Column)
                  .Key("Value", pivot.Value)
                  .Text());
  }
}
