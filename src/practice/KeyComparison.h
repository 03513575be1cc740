// A student's drawing against the lecturer's: what stands at which place, whatever it is called.
#pragma once

#include <string>
#include <vector>

#include "analysis/FormatSigFigs.h"
#include "explanation/TrussGraph.h"
#include "practice/Verdicts.h"

/// A drawn truss with its solutions.
struct DrawnTruss {
  TrussGraph Graph;
  ForceValues Solutions;  ///< of every unknown; empty where there is none
};

/// How many are missing and how many too many.
struct Difference {
  int Missing = 0;
  int TooMany = 0;

  bool IsNone() const { return Missing == 0 && TooMany == 0; }
  /// "-1+2"; without the part that is 0, so "" when there is none.
  std::string Text() const;
};

struct KeyComparison {
  Difference Members, Supports, Loads;
  bool AreValuesRight = false;       ///< only told when the trusses are the same
  std::vector<std::string> Remarks;  ///< sentences, single-byte texts

  bool IsSame() const { return Members.IsNone() && Supports.IsNone() && Loads.IsNone(); }
};

/// Joints are the same when they differ by at most a tenth of the key's grid in each direction, which is
/// remarked on unless they are the same exactly; of several the nearest. Supports at a joint are the same
/// when they push along the same directions, loads when their resultant is (to a hundred-thousandth). Values
/// are right as in Verdicts.h; what neither truss determines agrees, too.
KeyComparison CompareWithKey(const DrawnTruss& key, const DrawnTruss& drawn, double gridX, double gridY,
                             const ReportFormat& format);

/// The comparisons of several files, RFC 4180, UTF-8: "file", "truss", "members", "supports", "loads",
/// "values", "remarks".
std::string ComparisonHeadings();
std::string ComparisonAsCsv(const std::string& file, const KeyComparison& comparison);

/// The same in words, lines of UTF-8 text.
std::string ComparisonInWords(const KeyComparison& comparison);
