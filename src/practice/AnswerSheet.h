// A class's answers: a table with a line for each student and a column for each force.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "analysis/Analysis.h"
#include "explanation/TrussGraph.h"
#include "practice/Verdicts.h"

/// One of the trusses that the answers are about.
struct AskedTruss {
  std::string Name;  ///< UTF-8: what the column that tells trusses apart says of it
  TrussGraph Graph;
  ForceValues Solutions;  ///< of every unknown
};

/// How the lines tell which truss they are about.
enum class TrussColumn { None, File, Variant };

/// "", "file", "variant".
const char* HeadingOf(TrussColumn column);

struct StudentsAnswers {
  std::string Student;    ///< UTF-8
  std::size_t Truss = 0;  ///< index into the asked trusses
  ForceValues Given;      ///< of its unknowns
};

struct AnswerSheet {
  std::vector<StudentsAnswers> Lines;  ///< those that could be read, in their order
  TrussColumn Column = TrussColumn::None;
  /// What could not be read, UTF-8, in the order of the file: "line 3, column 4 (AB): "x" is not a number".
  std::vector<std::string> Problems;
};

/// The names of all forces: those of the first truss in the order of its unknowns, then what others have
/// beyond these. UTF-8, without outer blanks.
std::vector<std::string> ForceNames(const std::vector<AskedTruss>& trusses);

/// Numbers have a decimal comma when there is a comma in any of the answers, else a decimal point. A line
/// with a problem is left out; a column with one is passed over. A file is found by its name as it was given,
/// or by the last part of it where no other file has the same.
/// Where there is just one truss the answers may have a column of files all the same.
AnswerSheet ReadAnswers(std::string_view bytes, const std::vector<AskedTruss>& trusses, TrussColumn column);
