// Pictures and printable reports as the command line writes them: without a display, and the same bytes for
// the same truss whatever the environment says of screens, themes and styles.
#pragma once

#include <QGuiApplication>
#include <array>
#include <optional>
#include <string>

#include "analysis/FormatSigFigs.h"
#include "app/FileAnalysis.h"
#include "explanation/MotionDrawing.h"
#include "explanation/forces/ForcesDrawing.h"
#include "paper/FileFormats.h"
#include "platform/ManyBytes.h"
#include "practice/ExerciseSheets.h"
#include "reports/ReportExtras.h"

/// The toolkit's application object, without which it has no fonts. To be made before a picture or a report,
/// and to live until the last one is written; other work does not need it.
class ScreenlessApplication {
 public:
  ScreenlessApplication();

 private:
  struct Preparation {
    Preparation();
  };

  Preparation preparation_;  // comes before the application
  int numArguments_ = 1;
  char name_[7] = "orvane";
  std::array<char*, 2> arguments_ = {name_, nullptr};
  QGuiApplication application_;
};

/// See CommandLineEnvironment, whose parts these are.
std::optional<std::string> PictureBytes(const AnalysedFile& file, bool named, PictureFileFormat fileFormat,
                                        const ReportFormat& format);
std::string MotionPictureBytes(const MotionScene& scene, PictureFileFormat fileFormat);
std::string ForcesPictureBytes(const ForcesScene& scene, PictureFileFormat fileFormat);
ManyBytes DocumentBytes(const AnalysedFile& file, DocumentFileFormat fileFormat,
                        const std::vector<ReportExtra>& with, const NumberFormat& numbers);
std::string ExerciseBytes(const ExerciseSet& set, const NumberFormat& numbers);
