// One file taken through the whole analysis, the way the window takes it: read, joint list, names, unknowns,
// sorting, matrix, elimination, classification.
#pragma once

#include <istream>
#include <string>
#include <vector>

#include "analysis/Analysis.h"
#include "document/Truss.h"
#include "platform/FileBytes.h"

struct AnalysedFile {
  std::string Argument;  ///< the file as the user named it; "-" is standard input
  std::string Error;     ///< UTF-8, e.g. "line 3: why"; empty when the file was read whole
  int UnreadLine = 0;    ///< line from 1 of a text that is no part of the truss and was passed over; 0: none
  Truss Document;
  TrussAnalysis Analysis;

  bool IsComplete() const { return Error.empty(); }

  /// Members of zero length (only a file can hold one): their force cannot be determined. One UTF-8 text
  /// each.
  std::vector<std::string> Remarks;
};

/// Reads the file (or `standardInput` for "-") and, with `autoName`, names everything. After a read error
/// what was read is used. No analysis yet.
AnalysedFile ReadForAnalysis(const std::string& argument, bool autoName, std::istream& standardInput);

/// The same from what has been read of it.
AnalysedFile FileWithBytes(const std::string& argument, bool autoName, FileBytes input);

/// Fills Analysis and Remarks.
void Analyse(AnalysedFile& file);
