// Small pieces of sentences: lists of names, directions, points. All texts are single-byte texts.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "analysis/FormatSigFigs.h"
#include "explanation/TrussGraph.h"

/// Between a number and what it multiplies.
inline constexpr const char* TimesSign = " \xB7 ";

/// "A", "A and B", "A, B and C"; of more than `most` the first ones "and 7 more".
std::string ListOf(const std::vector<std::string>& items, std::size_t most = 12);

/// "1 motion", "3 motions", "no motions".
std::string Counted(int count, const std::string& singular, const std::string& plural);

/// "to the right", "up", "to the left and down" ...; for a vector that is not 0.
std::string DirectionText(double dx, double dy);

/// The direction of a reaction that is positive (`sign` 1), or of one that is negative (-1).
std::string DirectionOfReaction(const PlacedUnknown& reaction, double sign);

/// "(0.6, -0.8)"; where the locale's separator is a comma, "(0,6; -0,8)".
std::string PairText(double x, double y, const ReportFormat& format);

/// The same of two numbers that are texts already.
std::string PairOf(const std::string& x, const std::string& y, const ReportFormat& format);

/// The power of ten that is nearest to a positive number: "1E-8", "1E5".
std::string PowerOfTenText(double number);

/// Its first letter, when it is one of a to z, as a capital.
std::string Capital(std::string text);
