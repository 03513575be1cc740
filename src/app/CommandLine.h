// What the words on the command line ask for. Deciding is separate from doing, so that every wrong call is
// found before a file is touched.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "paper/FileFormats.h"
#include "reports/ReportExtras.h"

/// The tables that can be written as CSV.
enum class CsvTable { Equations, RREF, Solutions };

/// The sections of --report; printed in this order.
struct ReportSections {
  bool Counting = false;
  bool Joints = false;
  bool Equations = false;
  bool RREF = false;
  bool Solutions = false;
};

/// What stands behind the answer; printed after the sections above, in the order named.
enum class ExplainedSection { Why, Checks, Steps, ByJoint };

/// What --json tells beyond its usual keys.
struct JsonExtras {
  bool Matrices = false;
  bool Explanation = false;
};

/// What --picture shows beyond the truss with its forces.
struct PictureExtras {
  bool Named = false;         ///< the names and their arrows
  std::optional<int> Motion;  ///< swung in this motion, from 1
  bool Forces = false;        ///< drawn with the forces that the solutions give
};

/// What a lecturer sets or marks.
struct PracticeRequest {
  std::optional<int> NumVariants;     ///< of Exercise, and of Mark when the answers are to such sheets
  std::optional<std::uint64_t> Seed;  ///< there when NumVariants is
  bool Mirrors = false;               ///< some variants are seen in a mirror
  bool Renames = false;               ///< variants have other names
  bool IsQuestionBank = false;        ///< of Exercise: for Moodle, not sheets
  std::string AnswersPath;            ///< of Mark; "-" is standard input
  std::string KeyPath;                ///< of Compare; "-" is standard input
  bool InWords = false;               ///< of Compare: not as CSV
};

struct CommandLine {
  /// Mark judges a class's answers, Compare its drawings.
  enum class Mode {
    Window,
    Report,
    Json,
    Csv,
    Picture,
    Document,
    Convert,
    Exercise,
    Mark,
    Compare,
    Help,
    Version
  };

  Mode What = Mode::Window;
  ReportSections Sections;                  ///< of Report
  std::vector<ExplainedSection> Explained;  ///< of Report
  JsonExtras Json;                          ///< of Json
  CsvTable Table{};                         ///< of Csv
  PictureExtras Picture;                    ///< of Picture
  PictureFileFormat PictureFormat{};        ///< of Picture
  DocumentFileFormat DocumentFormat{};      ///< of Document
  std::vector<ReportExtra> DocumentWith;    ///< of Document: sections beyond the usual ones
  PracticeRequest Practice;                 ///< of Exercise, Mark and Compare
  std::string OutputPath;          ///< of Picture, Document, Convert and Exercise; "-" is standard output
  bool AutoName = false;           ///< name everything before the analysis
  std::vector<std::string> Files;  ///< UTF-8 paths; "-" is standard input
};

/// Why a call is wrong, in one line without a full stop.
struct WrongArguments {
  std::string Why;
};

/// `arguments` without the program's own name.
std::variant<CommandLine, WrongArguments> ParseCommandLine(const std::vector<std::string>& arguments);

/// The text of --help.
const char* HelpText();
