// The equations of balance as a student writes them: forces to one side = forces to the other.
#pragma once

#include <string>
#include <vector>

#include "analysis/TellingNumber.h"
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

  /// "Ay = AH sin(53.13\xB0)": names and angles, these with as many figures as it takes to reckon the numbers
  /// of WithNumbers from them; of moments names and arms, and whose loads they are: "3 \xB7 600 (load at B)".
  std::string InLetters(const BalanceEquation& equation) const;

  /// "2500 = 0.8 \xB7 AH": only what is sought has its name. A name that reads like a part of an equation
  /// stands in brackets, here and everywhere else.
  std::string WithNumbers(const BalanceEquation& equation) const;

  /// Whether names are known, so that WithNumbers says more than InLetters.
  static bool HasKnownNames(const BalanceEquation& equation);

  /// "AH = 2500 / 0.8 = 3125, that is 3125 C"; of a check "2500 = 2500, which holds".
  std::string Result(const BalanceEquation& equation) const;

  /// How two equations that hold the same two sought forces give them, as lines: one force is eliminated, the
  /// other one found and put in.
  std::vector<std::string> Together(const BalanceEquation& one, const BalanceEquation& other,
                                    const std::vector<UnknownForce>& solved) const;

  /// "AH = 3125, that is 3125 C".
  std::string Value(const UnknownForce& force) const;

  /// Only 0 is "0".
  std::string Number(double value) const { return NumberNot0(value, format_); }

 private:
  std::string Letters(const BalanceEquation& equation, const BalanceTerm& term) const;
  std::string Numbers(const BalanceTerm& term) const;
  std::string Angle(const BalanceEquation& equation, const BalanceTerm& term) const;
  std::string Name(int unknown) const;
  bool IsWrittenAsOne(double factor) const;
  std::string Product(double factor, const std::string& force) const;
  std::string Quotient(const UnknownForce& force, double over, double factor) const;
  std::string Degrees(double radians, bool withCosine) const;
  std::string Sense(const UnknownForce& force) const;
  bool IsShownWhole(double value) const;
  std::string WhatCancels(const BalanceEquation& equation, double sum) const;

  const TrussGraph& graph_;
  const DistinctNames& names_;
  ReportFormat format_;
};
