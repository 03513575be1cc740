// The equations of balance as a student writes them: forces to one side = forces to the other.
#pragma once

#include <string>

#include "analysis/FormatSigFigs.h"
#include "explanation/DistinctNames.h"
#include "explanation/byjoint/HandSteps.h"

/// Single-byte texts.
class EquationText {
 public:
  /// All must outlive it.
  EquationText(const TrussGraph& graph, const DistinctNames& names, const ReportFormat& format)
      : graph_(graph), names_(names), format_(format) {}

  /// "forces right = forces left", "moments about joint A, anticlockwise = clockwise" ...
  std::string What(const BalanceEquation& equation) const;

  /// "Ay = AH sin(53.1)": names and angles in degrees, as in the equations of a joint; of moments names and
  /// arms.
  std::string InLetters(const BalanceEquation& equation) const;

  /// "2500 = 0.8 \xB7 AH": only what is sought has its name.
  std::string WithNumbers(const BalanceEquation& equation) const;

  /// "AH = 2500 / 0.8 = 3125, that is 3125 C"; of a check "2500 = 2500, which holds".
  std::string Result(const BalanceEquation& equation) const;

  /// "AH = 3125, that is 3125 C".
  std::string Value(const UnknownForce& force) const;

  std::string Number(double value) const { return FormatSigFigs(value, format_); }

 private:
  std::string Letters(const BalanceEquation& equation, const BalanceTerm& term) const;
  std::string Numbers(const BalanceTerm& term) const;
  std::string Angle(const BalanceEquation& equation, const BalanceTerm& term) const;
  std::string Sense(const UnknownForce& force) const;

  const TrussGraph& graph_;
  const DistinctNames& names_;
  ReportFormat format_;
};
