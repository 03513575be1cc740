#include "app/PaperOutput.h"

#include <cstdio>

#include "explanation/forces/ForcesPicture.h"
#include "paper/qt/PictureFiles.h"
#include "platform/qt/QtTextMeasure.h"
#include "practice/ExerciseFile.h"
#include "reports/PrintableReportFiles.h"
#include "reports/TrussPaint.h"

namespace {

// What the toolkit says of the system it finds is of no interest to a script; standard error has the
// program's own lines only.
void DropRemarks(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (type == QtFatalMsg) std::fputs(qPrintable(text), stderr);
}

// Everything by which a user may change how large and in what style windows are painted.
void ForgetScreens() {
  for (const char* name :
       {"QT_SCALE_FACTOR", "QT_SCREEN_SCALE_FACTORS", "QT_SCALE_FACTOR_ROUNDING_POLICY",
        "QT_AUTO_SCREEN_SCALE_FACTOR", "QT_ENABLE_HIGHDPI_SCALING", "QT_USE_PHYSICAL_DPI", "QT_FONT_DPI",
        "QT_DPI_ADJUSTMENT_POLICY", "QT_QPA_PLATFORMTHEME", "QT_STYLE_OVERRIDE", "QT_QPA_FONTDIR"}) {
    qunsetenv(name);
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");
}

}  // namespace

ScreenlessApplication::Preparation::Preparation() {
  qInstallMessageHandler(DropRemarks);
  for (const char* name : {"QT_FATAL_WARNINGS", "QT_FATAL_CRITICALS"}) qunsetenv(name);
  ForgetScreens();
}

ScreenlessApplication::ScreenlessApplication() : application_(numArguments_, arguments_.data()) {}

std::optional<std::string> PictureBytes(const AnalysedFile& file, bool named, PictureFileFormat fileFormat,
                                        const ReportFormat& format) {
  QtTextMeasure measure;
  const Picture picture = TrussPaint(
      file.Document, format,
      [&measure](const TextFont& font, std::string_view text) { return measure.Measure(font, text); },
      PictureContent{.ForceValues = true, .Names = named});
  if (picture.Frame() == PixelRect{}) return std::nullopt;
  return PictureFile(picture, fileFormat).toStdString();
}

std::string MotionPictureBytes(const MotionScene& scene, PictureFileFormat fileFormat) {
  QtTextMeasure measure;
  const Picture picture = MotionPicture(
      scene, [&measure](const TextFont& font, std::string_view text) { return measure.Measure(font, text); });
  return PictureFile(picture, fileFormat).toStdString();
}

std::string ForcesPictureBytes(const ForcesScene& scene, PictureFileFormat fileFormat) {
  QtTextMeasure measure;
  const Picture picture = ForcesPicture(
      scene, [&measure](const TextFont& font, std::string_view text) { return measure.Measure(font, text); });
  return PictureFile(picture, fileFormat).toStdString();
}

ManyBytes DocumentBytes(const AnalysedFile& file, DocumentFileFormat fileFormat,
                        const std::vector<ReportExtra>& with, const NumberFormat& numbers) {
  const ReportSubject subject{
      .Document = file.Document, .Analysis = file.Analysis, .Numbers = numbers, .With = with};
  return LongReportFile(subject, fileFormat).value_or(ManyBytes());
}

std::string ExerciseBytes(const ExerciseSet& set, const NumberFormat& numbers) {
  return ExercisePdf(set, numbers).value_or(QByteArray()).toStdString();
}
