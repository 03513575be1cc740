// A class's answers marked, each student by the solutions and by his own numbers.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "analysis/FormatSigFigs.h"
#include "practice/AnswerSheet.h"

struct MarkedStudent {
  std::string Student;        ///< UTF-8
  std::size_t Truss = 0;      ///< index into the asked trusses
  Table<Verdict> Verdicts{};  ///< of its unknowns
  int NumRight = 0;
  int NumBalanced = 0;  ///< joints that balance with his values
  int NumJudged = 0;    ///< joints on which all forces have a value
  std::string Slip{};   ///< UTF-8: the first joint that does not balance, empty when all do
  bool CountsTensionPositive = false;
};

struct MarkedClass {
  std::vector<MarkedStudent> Students;
  TrussColumn Column = TrussColumn::None;
  std::vector<std::string> Problems;  ///< see AnswerSheet
};

MarkedClass MarkAnswers(std::string_view bytes, const std::vector<AskedTruss>& trusses, TrussColumn column,
                        const ReportFormat& format);

/// The marks as a table, RFC 4180, UTF-8: the student, the truss where there are several, the verdict on each
/// force (nothing for one that the student's truss has not), "strict", "followed", "judged", "slip".
std::string MarksAsCsv(const MarkedClass& marked, const std::vector<AskedTruss>& trusses);

/// How the class did, some lines of UTF-8 text.
std::string SummaryOf(const MarkedClass& marked, const std::vector<AskedTruss>& trusses);
