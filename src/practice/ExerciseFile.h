// The exercise sheets as pages: a PDF file, or what a printer or a preview shows.
#pragma once

#include <string>

#include "practice/ExerciseSheets.h"
#include "reports/DocumentPages.h"

/// The bytes of the PDF file; the same set gives the same bytes. Nothing when `progress` ended it; empty
/// bytes when they could not be made.
std::optional<QByteArray> ExercisePdf(const ExerciseSet& set, const NumberFormat& numbers,
                                      const DocumentProgress& progress = {});

/// False when `progress` or the device ended it.
bool PrintExercise(const ExerciseSet& set, const NumberFormat& numbers, const PageTarget& target,
                   const DocumentProgress& progress = {});

/// All that stands on the pages, for readers aloud.
QString ExerciseInWords(const ExerciseSet& set, const NumberFormat& numbers);

/// The picture of a variant with names and loads, as the bytes of a PNG file.
std::string VariantPng(const Variant& variant, const NumberFormat& numbers);
