// An exercise as a question bank for a learning platform: one question with all forces for each variant, in
// Moodle's XML format.
#pragma once

#include <functional>
#include <string>

#include "practice/ExerciseSheets.h"

/// The bytes of a PNG file with the picture of a variant.
using PictureOfVariant = std::function<std::string(const Variant& variant)>;

/// A question of the kind "cloze": the picture, and a box for each force. A value within 1 % gets the mark;
/// within 5 % half of it, the wrong sense or a power of ten nothing, each with what to say about it; the
/// solution joint by joint is the general feedback. Numbers have a decimal point, as the format wants it.
/// UTF-8; names that hold characters of the format's own are escaped.
std::string QuestionBank(const ExerciseSet& set, const PictureOfVariant& picture);
