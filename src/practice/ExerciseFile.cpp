#include "practice/ExerciseFile.h"

#include "paper/qt/PictureFiles.h"
#include "platform/qt/QtTextMeasure.h"
#include "reports/TrussPaint.h"
#include "text/ControlCharacters.h"

namespace {

QString FooterOf(const ExerciseSet& set) { return QString::fromStdString(WithoutControls(TitleOf(set))); }

DocumentBuilder BuilderOf(const ExerciseSet& set, const NumberFormat& numbers) {
  return [&](const DocumentTools& tools) { return AppendExercise(set, numbers, tools); };
}

}  // namespace

std::optional<QByteArray> ExercisePdf(const ExerciseSet& set, const NumberFormat& numbers,
                                      const DocumentProgress& progress) {
  return PdfOfDocument(FooterOf(set), BuilderOf(set, numbers), progress);
}

bool PrintExercise(const ExerciseSet& set, const NumberFormat& numbers, const PageTarget& target,
                   const DocumentProgress& progress) {
  return PrintDocument(target, FooterOf(set), BuilderOf(set, numbers), progress);
}

QString ExerciseInWords(const ExerciseSet& set, const NumberFormat& numbers) {
  return QString::fromStdString(DocumentInWords(BuilderOf(set, numbers)));
}

std::string VariantPng(const Variant& variant, const NumberFormat& numbers) {
  QtTextMeasure measure;
  const Picture picture = TrussPaint(
      variant.Document, {variant.Document.Settings.SigFigs, numbers},
      [&measure](const TextFont& font, std::string_view text) { return measure.Measure(font, text); },
      {.ForceValues = true, .Names = true});
  return PictureFile(picture, PictureFileFormat::Png).toStdString();
}
