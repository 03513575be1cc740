// The toolkit's JSON objects sort their keys and know doubles only, so the object is put together here, in
// its own order and with singles as singles; the toolkit escapes the texts.
#include "app/JsonReport.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <cmath>

#include "analysis/JointEquations.h"
#include "reports/CountingReport.h"
#include "reports/ReportTables.h"
#include "text/CodePage.h"
#include "text/NumberText.h"

namespace {

// The toolkit leaves DEL and C1 as they are, which a terminal may obey. In UTF-8, C1 is C2 80 to C2 9F.
std::string WithHighControlsEscaped(std::string_view json) {
  constexpr std::string_view digits = "0123456789abcdef";
  std::string escaped;
  for (std::size_t i = 0; i < json.size(); ++i) {
    const bool isC1 = json[i] == '\xC2' && i + 1 < json.size() && (json[i + 1] & 0xE0) == 0x80;
    const auto code = static_cast<unsigned char>(isC1 ? json[++i] : json[i]);
    if (isC1 || code == 0x7F) {
      escaped += std::string("\\u00") + digits[code >> 4U] + digits[code & 0xFU];
    } else {
      escaped += json[i];
    }
  }
  return escaped;
}

std::string Quoted(const std::string& utf8Text) {
  const QByteArray array =
      QJsonDocument(QJsonArray{QString::fromStdString(utf8Text)}).toJson(QJsonDocument::Compact);
  return WithHighControlsEscaped(array.mid(1, array.size() - 2).toStdString());
}

std::string Name(const std::string& singleByteText) { return Quoted(ToUtf8(singleByteText)); }

// JSON has no word for a value beyond the number range.
template <class Number>
std::string NumberOrNull(Number value) {
  return std::isfinite(value) ? GeneralText(value) : "null";
}

// "[a,b,c]" or "{...}" with commas between the items.
class List {
 public:
  explicit List(char open) : text_(1, open), close_(open == '[' ? ']' : '}') {}

  List& Item(const std::string& json) {
    if (text_.size() > 1) text_ += ',';
    text_ += json;
    return *this;
  }
  List& Key(const char* key, const std::string& json) { return Item('"' + std::string(key) + "\":" + json); }
  List& Key(const char* key, float value) { return Key(key, NumberOrNull(value)); }
  List& Key(const char* key, int value) { return Key(key, std::to_string(value)); }
  List& Key(const char* key, bool value) { return Key(key, std::string(value ? "true" : "false")); }

  std::string Text() const { return text_ + close_; }

 private:
  std::string text_;
  char close_;
};

std::string SettingsJson(const DocumentSettings& settings) {
  return List('{')
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
  List list('[');
  for (const SupportRec& support : truss.SupportsInUse()) {
    if (!support.Live) continue;
    List names('[');
    names.Item(Name(truss.Name(support.NameLabel1)));
    if (support.IsClamp()) names.Item(Name(truss.Name(support.NameLabel2)));
    list.Item(List('{')
                  .Key("X", support.X)
                  .Key("Y", support.Y)
                  .Key("TypeIndex", int{support.TypeIndex})
                  .Key("Names", names.Text())
                  .Text());
  }
  return list.Text();
}

std::string MembersJson(const Truss& truss) {
  List list('[');
  for (const MemberRec& member : truss.MembersInUse()) {
    if (!member.Live) continue;
    list.Item(List('{')
                  .Key("X1", member.X1)
                  .Key("Y1", member.Y1)
                  .Key("X2", member.X2)
                  .Key("Y2", member.Y2)
                  .Key("Name", Name(truss.Name(member.NameLabel1)))
                  .Text());
  }
  return list.Text();
}

std::string ForcesJson(const Truss& truss) {
  List list('[');
  for (const ForceRec& force : truss.ForcesInUse()) {
    if (!force.Active) continue;
    list.Item(List('{').Key("X", force.X).Key("Y", force.Y).Key("Fx", force.Fx).Key("Fy", force.Fy).Text());
  }
  return list.Text();
}

std::string JointsJson(const AnalysedFile& file, const NumberFormat& numbers) {
  const JointEquations equations(file.Document, numbers);
  const Table<CountedJoint>& joints = file.Analysis.Counted.Joints;
  List list('[');
  for (const CountedJoint& joint : joints.First(joints.Size())) {
    const JointEquationTexts texts = equations.ReportOnJoint(joint);
    list.Item(List('{')
                  .Key("X", joint.X)
                  .Key("Y", joint.Y)
                  .Key("Name", Name(joint.Name))
                  .Key("xEquation", Name(texts.X))
                  .Key("yEquation", Name(texts.Y))
                  .Text());
  }
  return list.Text();
}

std::string UnknownsJson(const EquationSystem& system) {
  List list('[');
  for (int k = 1; k <= system.UnknownList.Size(); ++k) list.Item(Name(system.UnknownList[k].Name));
  return list.Text();
}

std::string CountingJson(const AnalysedFile& file) {
  const CountingReport counting = ReportCounting(file.Analysis.Counted);
  return List('{')
      .Key("forces", Name(counting.Forces))
      .Key("equations", Name(counting.Equations))
      .Key("count", Name(counting.Count))
      .Text();
}

std::string ColumnOrderJson(const EquationSystem& system) {
  List list('[');
  for (int k = 1; k <= system.ColumnOrder.Size(); ++k) list.Item(std::to_string(system.ColumnOrder[k]));
  return list.Text();
}

std::string SolutionsJson(const AnalysedFile& file, const ReportFormat& format) {
  List list('[');
  if (file.Analysis.Reading.Code == Outcome::Inconsistent) return list.Text();
  const auto table = LoadGridWithSolutions(file.Analysis, format);
  for (int k = 1; k <= file.Analysis.System.UnknownList.Size(); ++k) {
    const std::optional<double>& value = file.Analysis.Reading.Values[k];
    list.Item(List('{')
                  .Key("Name", Name(file.Analysis.System.UnknownList[k].Name))
                  .Key("Value", value ? NumberOrNull(*value) : "null")
                  .Key("Text", Name(table->Text(k, 1)))
                  .Text());
  }
  return list.Text();
}

template <class Number>
std::string MatrixJson(const SparseMatrix<Number>& matrix) {
  List rows('[');
  for (int row = 1; row <= matrix.NumRows(); ++row) {
    std::string cells = "[";
    int next = 1;
    const auto zerosUpTo = [&](int column) {
      for (; next < column; ++next) cells += next > 1 ? ",0" : "0";
    };
    for (const auto& [column, value] : matrix.Row(row)) {
      zerosUpTo(column);
      if (next++ > 1) cells += ',';
      cells += NumberOrNull(value);
    }
    zerosUpTo(matrix.NumColumns() + 1);
    rows.Item(cells + ']');
  }
  return rows.Text();
}

}  // namespace

std::string JsonReport(const AnalysedFile& file, bool matrices, const ReportFormat& format) {
  const EquationSystem& system = file.Analysis.System;
  const bool hasUnknowns = system.NumUnknowns() > 0;
  List object('{');
  object.Key("file", Quoted(file.Argument))
      .Key("complete", file.IsComplete())
      .Key("error", file.IsComplete() ? std::string("null") : Quoted(file.Error))
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
      .Key("conclusion", Quoted(ConclusionText(file.Analysis.Reading.Code)));
  if (matrices) {
    object.Key("equations", MatrixJson(system.DisplayEquations))
        .Key("rref", MatrixJson(system.EquationMatrix));
  }
  return object.Text();
}
