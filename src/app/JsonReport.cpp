#include "app/JsonReport.h"

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

std::string SupportsJson(const Truss& truss) {
  JsonList list('[');
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
  return list.Text();
}

std::string MembersJson(const Truss& truss) {
  JsonList list('[');
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
  return list.Text();
}

std::string ForcesJson(const Truss& truss) {
  JsonList list('[');
  for (const ForceRec& force : truss.ForcesInUse()) {
    if (!force.Active) continue;
    list.Item(
        JsonList('{').Key("X", force.X).Key("Y", force.Y).Key("Fx", force.Fx).Key("Fy", force.Fy).Text());
  }
  return list.Text();
}

std::string JointsJson(const AnalysedFile& file, const NumberFormat& numbers) {
  const JointEquations equations(file.Document, numbers);
  const Table<CountedJoint>& joints = file.Analysis.Counted.Joints;
  JsonList list('[');
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
  return list.Text();
}

std::string UnknownsJson(const EquationSystem& system) {
  JsonList list('[');
  for (int k = 1; k <= system.UnknownList.Size(); ++k) list.Item(JsonName(system.UnknownList[k].Name));
  return list.Text();
}

std::string CountingJson(const AnalysedFile& file) {
  const CountingReport counting = ReportCounting(file.Analysis.Counted);
  return JsonList('{')
      .Key("forces", JsonName(counting.Forces))
      .Key("equations", JsonName(counting.Equations))
      .Key("count", JsonName(counting.Count))
      .Text();
}

std::string ColumnOrderJson(const EquationSystem& system) {
  JsonList list('[');
  for (int k = 1; k <= system.ColumnOrder.Size(); ++k) list.Item(std::to_string(system.ColumnOrder[k]));
  return list.Text();
}

std::string SolutionsJson(const AnalysedFile& file, const ReportFormat& format) {
  JsonList list('[');
  if (file.Analysis.Reading.Code == Outcome::Inconsistent) return list.Text();
  const auto table = LoadGridWithSolutions(file.Analysis, format);
  for (int k = 1; k <= file.Analysis.System.UnknownList.Size(); ++k) {
    const std::optional<double>& value = file.Analysis.Reading.Values[k];
    list.Item(JsonList('{')
                  .Key("Name", JsonName(file.Analysis.System.UnknownList[k].Name))
                  .Key("Value", value ? JsonNumber(*value) : "null")
                  .Key("Text", JsonName(table->Text(k, 1)))
                  .Text());
  }
  return list.Text();
}

template <class Number>
std::string MatrixJson(const SparseMatrix<Number>& matrix) {
  JsonList rows('[');
  for (int row = 1; row <= matrix.NumRows(); ++row) {
    std::string cells = "[";
    int next = 1;
    const auto zerosUpTo = [&](int column) {
      for (; next < column; ++next) cells += next > 1 ? ",0" : "0";
    };
    for (const auto& [column, value] : matrix.Row(row)) {
      zerosUpTo(column);
      if (next++ > 1) cells += ',';
      cells += JsonNumber(value);
    }
    zerosUpTo(matrix.NumColumns() + 1);
    rows.Item(cells + ']');
  }
  return rows.Text();
}

}  // namespace

std::string JsonReport(const AnalysedFile& file, const JsonExtras& extras, const ReportFormat& format) {
  const EquationSystem& system = file.Analysis.System;
  const bool hasUnknowns = system.NumUnknowns() > 0;
  JsonList object('{');
  object.Key("file", JsonText(file.Argument))
      .Key("complete", file.IsComplete())
      .Key("error", file.IsComplete() ? std::string("null") : JsonText(file.Error))
      .Key("settings", SettingsJson(file.Document.Settings))
      .Key("supports", SupportsJson(file.Document))
      .Key("members", MembersJson(file.Document))
      .Key("forces", ForcesJson(file.Document))
      .Key("joints", JointsJson(file, format.Numbers))
      .Key("NumReactionForces", int{system.NumReactionForces})
      .Key("NumMemberForces", int{system.NumMemberForces})
      .Key("unknowns", UnknownsJson(system))
      .Key("counting", CountingJson(file))
      .Key("ColumnOrder", ColumnOrderJson(system))
      .Key("outcome", hasUnknowns ? std::to_string(static_cast<int>(file.Analysis.Reading.Code)) : "null")
      .Key("solutions", SolutionsJson(file, format))
      .Key("conclusion", JsonText(ConclusionText(file.Analysis.Reading.Code)));
  if (extras.Matrices) {
    object.Key("equations", MatrixJson(system.DisplayEquations))
        .Key("rref", MatrixJson(system.EquationMatrix));
  }
  if (extras.Explanation) AddExplanation(object, file, format);
  return object.Text();
}
