// Joint by joint in words and equations, step by step.
#pragma once

#include <string>
#include <vector>

#include "analysis/Classification.h"
#include "explanation/byjoint/EquationText.h"
#include "explanation/byjoint/HandSolution.h"

/// Single-byte texts without line breaks of their own.
struct HandStepText {
  std::string Heading;             ///< "Joint A"
  std::vector<std::string> Lines;  ///< what is looked at, the equations, what they give
};

/// All of it.
struct HandReport {
  std::vector<HandStepText> Steps;
  std::vector<std::string> Closing;
};

class HandText {
 public:
  /// All must outlive it.
  HandText(const TrussGraph& graph, const HandSolution& solution, const ReportFormat& format);

  /// What is assumed of every sought force; said once, before the first step.
  static const char* Convention();

  HandStepText Step(const HandStep& step) const;

  /// What is found, what is not, and how it compares with the solutions that the reduced matrix shows.
  std::vector<std::string> Closing(const Classification& shown) const;

 private:
  HandStepText Reactions(const HandStep& step) const;
  HandStepText ZeroForce(const HandStep& step) const;
  HandStepText Joint(const HandStep& step) const;
  HandStepText Section(const HandStep& step) const;
  HandStepText Together(const HandStep& step) const;
  std::string Opening(const HandStep& step, const BalanceEquation& equation) const;
  std::string WhatIsAssumed(const std::vector<int>& sought) const;
  void AddEquations(const HandStep& step, std::vector<std::string>& lines) const;
  std::string PutAside(const HandStep& step) const;
  std::string LoadsInComponents(const std::vector<int>& joints) const;
  std::string LoadsWithoutArm(const HandStep& step, const BalanceEquation& equation) const;
  std::string WhatActsAt(int joint) const;
  void AddAgreement(const Classification& shown, std::vector<std::string>& lines) const;
  void AddOtherForces(const Classification& shown, std::vector<std::string>& lines) const;
  std::string Agreement(const Classification& shown) const;

  const TrussGraph& graph_;
  const HandSolution& solution_;
  ReportFormat format_;
  DistinctNames names_;
  EquationText equations_;
};

/// All steps, and what is found; `shown` is what the reduced matrix says.
HandReport ReportByHand(const TrussGraph& graph, const HandSolution& solution, const Classification& shown,
                        const ReportFormat& format);
