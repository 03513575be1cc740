#include "practice/AnswerSheet.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include "practice/Answer.h"
#include "practice/CsvReading.h"
#include "practice/ForceNames.h"

namespace {

std::string LastPart(const std::string& path) { return path.substr(path.find_last_of('/') + 1); }

// The columns that are no forces may begin with a capital.
std::string Known(const std::string& heading) {
  for (const std::string known : {StudentHeading, FileHeading, VariantHeading}) {
    if (IsHeading(heading, known)) return known;
  }
  return heading;
}

std::string At(const CsvLine& line) { return "line " + std::to_string(line.Number); }

std::string InQuotes(const std::string& text) { return '"' + text + '"'; }

class Reader {
 public:
  Reader(const std::vector<AskedTruss>& trusses, TrussColumn column)
      : trusses_(trusses), column_(column), names_(trusses.size()) {
    for (std::size_t t = 0; t < trusses.size(); ++t) {
      for (int k = 1; k <= trusses[t].Graph.NumUnknowns(); ++k)
        names_[t].emplace(TrimmedName(trusses[t].Graph.Unknowns[k]), k);
    }
  }

  AnswerSheet Read(std::string_view bytes) {
    const AnswerTable table = ReadCsv(bytes, StudentHeading);
    if (!table.Why.empty()) {
      sheet_.Problems.push_back(table.Why);
    } else if (ReadHeadings(table.Lines.front())) {
      FindDecimals(table);
      for (std::size_t i = 1; i < table.Lines.size(); ++i) ReadLine(table.Lines[i]);
    }
    sheet_.Column = column_;
    return std::move(sheet_);
  }

 private:
  struct Column {
    std::string Heading;
    bool IsOfForce = false;
  };

  std::string Place(const CsvLine& line, std::size_t column) const {
    return At(line) + ", column " + std::to_string(column + 1) + " (" + columns_[column].Heading + "): ";
  }

  bool IsForce(const std::string& heading) const {
    return std::ranges::any_of(names_, [&](const auto& names) { return names.contains(heading); });
  }

  // Lines that are about variants are not marked as if there were none.
  bool LacksVariants(const std::string& heading) const {
    return column_ != TrussColumn::Variant && heading == VariantHeading;
  }

  bool IsOfTrusses(const std::string& heading) {
    if (column_ == TrussColumn::None && heading == HeadingOf(TrussColumn::File)) column_ = TrussColumn::File;
    return column_ != TrussColumn::None && heading == HeadingOf(column_);
  }

  // Returns whether the lines can be read.
  bool ReadHeadings(const CsvLine& line) {
    std::set<std::string> seen;
    for (std::size_t c = 0; c < line.Cells.size(); ++c) {
      const std::string heading = Known(line.Cells[c]);
      columns_.push_back({heading});
      if (heading.empty()) continue;  // a column for notes
      if (!seen.insert(heading).second) {
        sheet_.Problems.push_back(Place(line, c) + "this column is there twice; only the first one is read");
      } else if (heading == StudentHeading) {
        student_ = c;
      } else if (IsOfTrusses(heading)) {
        truss_ = c;
      } else if (LacksVariants(heading)) {
        sheet_.Problems.push_back(Place(line, c) + "--variants and --seed must say which variants these are");
        return false;
      } else if (IsForce(heading)) {
        columns_[c].IsOfForce = true;
      } else {
        sheet_.Problems.push_back(Place(line, c) + "no force has this name; the column is not read");
      }
    }
    if (column_ == TrussColumn::None || truss_) return true;
    sheet_.Problems.push_back(At(line) + ": there are several trusses, but no column " +
                              InQuotes(HeadingOf(column_)) + " that says which one a line is about");
    return false;
  }

  void FindDecimals(const AnswerTable& table) {
    for (const CsvLine& line : table.Lines) {
      for (std::size_t c = 0; c < std::min(line.Cells.size(), columns_.size()); ++c) {
        const bool isAnswer = &line != &table.Lines.front() && columns_[c].IsOfForce;
        if (isAnswer && line.Cells[c].find(',') != std::string::npos)
          numbers_.DecimalSeparator.assign(1, ',');
      }
    }
  }

  std::string CellOf(const CsvLine& line, std::size_t column) const {
    return column < line.Cells.size() ? line.Cells[column] : std::string();
  }

  void ReadLine(const CsvLine& line) {
    const std::string why = TryToReadLine(line);
    if (!why.empty()) sheet_.Problems.push_back(why + "; the line is left out");
  }

  // Returns why it cannot be read.
  std::string TryToReadLine(const CsvLine& line) {
    StudentsAnswers answers;
    answers.Student = CellOf(line, student_);
    if (answers.Student.empty()) return Place(line, student_) + "there is no student";
    if (truss_) {
      const std::optional<std::size_t> truss = TrussNamed(CellOf(line, *truss_));
      if (!truss)
        return Place(line, *truss_) + "there is no " + HeadingOf(column_) + ' ' +
               InQuotes(CellOf(line, *truss_));
      answers.Truss = *truss;
    }
    for (std::size_t c = columns_.size(); c < line.Cells.size(); ++c) {
      if (!line.Cells[c].empty())
        return At(line) + ", column " + std::to_string(c + 1) + ": this column has no heading";
    }
    if (std::string why = ReadForces(line, answers); !why.empty()) return why;
    // A student may answer for several files, but has one variant.
    const std::size_t task = column_ == TrussColumn::File ? answers.Truss : 0;
    const auto [earlier, isNew] = seen_.emplace(std::pair(answers.Student, task), line.Number);
    if (!isNew) {
      return Place(line, student_) + InQuotes(answers.Student) + " is in line " +
             std::to_string(earlier->second) + " already";
    }
    sheet_.Lines.push_back(std::move(answers));
    return {};
  }

  std::string ReadForces(const CsvLine& line, StudentsAnswers& answers) const {
    const TrussGraph& graph = trusses_[answers.Truss].Graph;
    const auto& names = names_[answers.Truss];
    answers.Given.Resize(graph.NumUnknowns());
    for (std::size_t c = 0; c < columns_.size(); ++c) {
      const std::string cell = CellOf(line, c);
      if (!columns_[c].IsOfForce || cell.empty()) continue;
      const auto found = names.find(columns_[c].Heading);
      if (found == names.end())
        return Place(line, c) + InQuotes(trusses_[answers.Truss].Name) + " has no such force";
      const bool isMember = graph.Unknowns[found->second].IsMember();
      const Answer answer = ReadAnswer(cell, isMember ? AnswerOf::Member : AnswerOf::Reaction, numbers_);
      if (answer.IsWrong()) return Place(line, c) + answer.Why;
      answers.Given[found->second] = answer.Value;
    }
    return {};
  }

  std::optional<std::size_t> TrussNamed(const std::string& name) const {
    const auto isNamed = [&](const AskedTruss& truss) { return truss.Name == name; };
    const auto exact = std::ranges::find_if(trusses_, isNamed);
    if (exact != trusses_.end()) return static_cast<std::size_t>(exact - trusses_.begin());
    if (column_ != TrussColumn::File || name.empty()) return std::nullopt;
    const auto isLastPart = [&](const AskedTruss& truss) { return LastPart(truss.Name) == name; };
    if (std::ranges::count_if(trusses_, isLastPart) != 1) return std::nullopt;
    return static_cast<std::size_t>(std::ranges::find_if(trusses_, isLastPart) - trusses_.begin());
  }

  const std::vector<AskedTruss>& trusses_;
  TrussColumn column_;
  std::vector<std::map<std::string, int>> names_;  // parallel to the trusses
  std::vector<Column> columns_;
  std::size_t student_ = 0;
  std::optional<std::size_t> truss_;
  NumberFormat numbers_;
  std::map<std::pair<std::string, std::size_t>, int> seen_;
  AnswerSheet sheet_;
};

}  // namespace

const char* HeadingOf(TrussColumn column) {
  switch (column) {
    case TrussColumn::None:
      return "";
    case TrussColumn::File:
      return FileHeading;
    case TrussColumn::Variant:
      break;
  }
  return VariantHeading;
}

std::vector<std::string> ForceNames(const std::vector<AskedTruss>& trusses) {
  std::vector<std::string> names;
  std::set<std::string> seen;
  for (const AskedTruss& truss : trusses) {
    for (int k = 1; k <= truss.Graph.NumUnknowns(); ++k) {
      std::string name = TrimmedName(truss.Graph.Unknowns[k]);
      if (seen.insert(name).second) names.push_back(std::move(name));
    }
  }
  return names;
}

AnswerSheet ReadAnswers(std::string_view bytes, const std::vector<AskedTruss>& trusses, TrussColumn column) {
  return Reader(trusses, column).Read(bytes);
}
