#include "app/JsonReport.h"

#include <new>
#include <optional>

#include "analysis/JointEquations.h"
#include "app/ExplanationJson.h"
#include "app/JsonList.h"
#include "reports/CountingReport.h"
#include "reports/ReportTables.h"
#include "text/CodePage.h"

namespace {

std::string SettingsJson(const DocumentSettings& settings) {
  return JsonList('{')
      .Key("SnapObject", settings.SnapObject)
      .Key("SnapGrid", settings.SnapGrid)
      .Key("GridOn", settings.GridOn)
      .Key("RulersOn", settings.RulersOn)
      .Key("XMin", settings.XMin)
      .Key("XMax", settings.XMax)
      .Key("HatchSpacing", TaggedNumberText(settings.HatchSpacing))
      .Key("GridX", settings.GridX)
      .Key("YMin", settings.YMin)
      .Key("GridY", settings.GridY)
      .Key("ForceScale", settings.ForceScale)
      .Key("SigFigs", int{settings.SigFigs})
      .Text();
}

void WriteSupports(JsonStream& list, const Truss& truss) {
  for (const SupportRec& support : truss.SupportsInUse()) {
    if (!support.Live) continue;
    JsonList names('[');
    names.Item(JsonName(truss.Name(support.NameLabel1)));
    if (support.IsClamp()) names.Item(JsonName(truss.Name(support.NameLabel2)));
    list.Item(JsonList('{')
                  .Key("X", support.X)
                  .Key("Y", support.Y)
                  .Key("TypeIndex", int{support.TypeIndex})
                  .Key("Names", names.Text())
                  .Text());
  }
}

void WriteMembers(JsonStream& list, const Truss& truss) {
  for (const MemberRec& member : truss.MembersInUse()) {
    if (!member.Live) continue;
    list.Item(JsonList('{')
                  .Key("X1", member.X1)
                  .Key("Y1", member.Y1)
                  .Key("X2", member.X2)
                  .Key("Y2", member.Y2)
                  .Key("Name", JsonName(truss.Name(member.NameLabel1)))
                  .Text());
  }
}

void WriteForces(JsonStream& list, const Truss& truss) {
  for (const ForceRec& force : truss.ForcesInUse()) {
    if (!force.Active) continue;
    list.Item(
        JsonList('{').Key("X", force.X).Key("Y", force.Y).Key("Fx", force.Fx).Key("Fy", force.Fy).Text());
  }
}

void WriteJoints(JsonStream& list, const AnalysedFile& file, const NumberFormat& numbers) {
  const JointEquations equations(file.Document, numbers);
  const Table<CountedJoint>& joints = file.Analysis.Counted.Joints;
  for (const CountedJoint& joint : joints.First(joints.Size())) {
    const JointEquationTexts texts = equations.ReportOnJoint(joint);
    list.Item(JsonList('{')
                  .Key("X", joint.X)
                  .Key("Y", joint.Y)
                  .Key("Name", JsonName(joint.Name))
                  .Key("xEquation", JsonName(texts.X))
                  .Key("yEquation", JsonName(texts.Y))
                  .Text());
  }
}

void WriteUnknowns(JsonStream& list, const EquationSystem& system) {
  for (int k = 1; k <= system.UnknownList.Size(); ++k) list.Item(JsonName(system.UnknownList[k].Name));
}

void WriteCounting(JsonStream& object, const CountedTruss& counted) {
  const auto paragraph = [&](const char* key, CountingParagraph which) {
    object.Name(key, [&](const TakeText& take) { TellCounting(counted, which, take); });
  };
  paragraph("forces", CountingParagraph::Forces);
  paragraph("equations", CountingParagraph::Equations);
  paragraph("count", CountingParagraph::Count);
}

void WriteColumnOrder(JsonStream& list, const EquationSystem& system) {
  for (int k = 1; k <= system.ColumnOrder.Size(); ++k) list.Item(std::to_string(system.ColumnOrder[k]));
}

void WriteSolutions(JsonStream& list, const AnalysedFile& file, const ReportFormat& format) {
  if (file.Analysis.Reading.Code == Outcome::Inconsistent) return;
  const auto table = LoadGridWithSolutions(file.Analysis, format);
  for (int k = 1; k <= file.Analysis.System.UnknownList.Size(); ++k) {
    const std::optional<double>& value = file.Analysis.Reading.Values[k];
    list.Item(JsonList('{')
                  .Key("Name", JsonName(file.Analysis.System.UnknownList[k].Name))
                  .Key("Value", value ? JsonNumber(*value) : "null")
                  .Key("Text", JsonName(table->Text(k, 1)))
                  .Text());
  }
}

template <class Number>
void WriteMatrix(JsonStream& rows, const SparseMatrix<Number>& matrix) {
  // Most cells are 0.
  std::string zeros;
  for (int column = 1; column <= matrix.NumColumns(); ++column) zeros += ",0";
  for (int row = 1; row <= matrix.NumRows(); ++row) {
    std::string cells;
    int next = 1;
    const auto zerosUpTo = [&](int column) {
      cells.append(zeros, 0, 2 * static_cast<std::size_t>(column - next));
      next = column + 1;
    };
    for (const auto& [column, value] : matrix.Row(row)) {
      zerosUpTo(column);
      cells += ',';
      cells += JsonNumber(value);
    }
    zerosUpTo(matrix.NumColumns() + 1);
    cells.front() = '[';
    cells += ']';
    rows.Item(cells);
  }
}

void WriteObject(std::ostream& out, const AnalysedFile& file, const JsonExtras& extras,
                 const std::optional<Explanation>& explanation, const ReportFormat& format) {
  const EquationSystem& system = file.Analysis.System;
  const bool hasUnknowns = system.NumUnknowns() > 0;
  using List = JsonStream;
  JsonStream object(out, '{');
  object.Key("file", JsonText(file.Argument))
      .Key("complete", file.IsComplete())
      .Key("error", file.IsComplete() ? std::string("null") : JsonText(file.Error))
      .Key("settings", SettingsJson(file.Document.Settings))
      .Array("supports", [&](List& list) { WriteSupports(list, file.Document); })
      .Array("members", [&](List& list) { WriteMembers(list, file.Document); })
      .Array("forces", [&](List& list) { WriteForces(list, file.Document); })
      .Array("joints", [&](List& list) { WriteJoints(list, file, format.Numbers); })
      .Key("NumReactionForces", int{system.NumReactionForces})
      .Key("NumMemberForces", int{system.NumMemberForces})
      .Array("unknowns", [&](List& list) { WriteUnknowns(list, system); })
      .Object("counting", [&](List& paragraphs) { WriteCounting(paragraphs, file.Analysis.Counted); })
      .Array("ColumnOrder", [&](List& list) { WriteColumnOrder(list, system); })
      .Key("outcome", hasUnknowns ? std::to_string(static_cast<int>(file.Analysis.Reading.Code)) : "null")
      .Array("solutions", [&](List& list) { WriteSolutions(list, file, format); })
      .Key("conclusion", JsonText(ConclusionText(file.Analysis.Reading.Code)));
  if (extras.Matrices) {
    object.Array("equations", [&](List& rows) { WriteMatrix(rows, system.DisplayEquations); })
        .Array("rref", [&](List& rows) { WriteMatrix(rows, system.EquationMatrix); });
  }
  if (extras.Explanation) AddExplanation(object, file, explanation, format);
  object.Close();
}

}  // namespace

void WriteJson(std::ostream& out, const AnalysedFile& file, const JsonExtras& extras,
               const ReportFormat& format) {
  // What needs most memory is there before the first character is written.
  std::optional<Explanation> explanation;
  if (extras.Explanation && file.Analysis.System.NumUnknowns() > 0)
    explanation = ExplainTruss(file.Document, file.Analysis);
  try {
    WriteObject(out, file, extras, explanation, format);
  } catch (const std::bad_alloc&) {
    out << '\n';  // the next file's object stands on a line of its own
    throw;
  }
}
