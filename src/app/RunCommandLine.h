// Carrying out what the command line asks for, without a window.
#pragma once

#include <chrono>
#include <functional>
#include <istream>
#include <optional>
#include <ostream>
#include <string>

#include "analysis/FormatSigFigs.h"
#include "app/CommandLine.h"
#include "app/FileAnalysis.h"
#include "explanation/MotionDrawing.h"
#include "explanation/forces/ForcesDrawing.h"
#include "platform/ManyBytes.h"
#include "practice/ExerciseSheets.h"

/// The world around one run.
struct CommandLineEnvironment {
  std::istream& In;
  std::ostream& Out;           ///< results only
  std::ostream& Err;           ///< one line for each problem
  bool ErrIsTerminal = false;  ///< a long run then shows its progress there
  std::function<std::chrono::steady_clock::time_point()> Now = std::chrono::steady_clock::now;
  NumberFormat Numbers;

  /// Writes one JSON object (UTF-8, no line end) for an analysed file. Called on several threads at once.
  std::function<void(std::ostream& out, const AnalysedFile& file, const JsonExtras& extras,
                     const ReportFormat& format)>
      Json;

  /// The bytes of a picture file, with names when `named`. Nothing when there is nothing to draw.
  std::function<std::optional<std::string>(const AnalysedFile& file, bool named, PictureFileFormat,
                                           const ReportFormat& format)>
      Picture;

  /// The bytes of a picture file with a motion.
  std::function<std::string(const MotionScene& scene, PictureFileFormat)> MotionPicture;

  /// The bytes of a picture file with the forces.
  std::function<std::string(const ForcesScene& scene, PictureFileFormat)> ForcesPicture;

  /// The bytes of the printable report of a file with at least one unknown force, with these sections beyond
  /// the usual ones.
  std::function<ManyBytes(const AnalysedFile& file, DocumentFileFormat, const std::vector<ReportExtra>& with,
                          const NumberFormat& numbers)>
      Document;

  /// The bytes of a PDF file with the sheets of an exercise.
  std::function<std::string(const ExerciseSet& set, const NumberFormat& numbers)> ExerciseSheets{};

  /// The bytes of a PNG file with the truss of a variant.
  std::function<std::string(const Variant& variant, const NumberFormat& numbers)> VariantPicture{};
};

enum ExitStatus : int { Done = 0, NotAllDone = 1, ArgumentsWrong = 2 };

/// Any mode but Window.
ExitStatus RunCommandLine(const CommandLine& commandLine, const CommandLineEnvironment& environment);
