// Whether motions and states of self-stress are what they claim to be.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "explanation/ExactVerdict.h"
#include "explanation/RigidityMatrix.h"
#include "support/NumericRank.h"

/// `rigidity` are the RigidityRows of the graph here and below.
inline double LargestLengthening(const TrussGraph& graph, const SparseMatrix<double>& rigidity,
                                 const Motion& motion) {
  const std::vector<double> displacements = DisplacementsByColumn(graph, motion);
  double largest = 0;
  for (int k = 1; k <= graph.NumUnknowns(); ++k) {
    double lengthening = 0;
    for (const auto& [column, value] : rigidity.Row(k)) {
      lengthening += value * displacements[static_cast<std::size_t>(column - 1)];
    }
    largest = std::max(largest, std::abs(lengthening));
  }
  return largest;
}

inline double LargestImbalance(const TrussGraph& graph, const SparseMatrix<double>& rigidity,
                               const SelfStress& stress) {
  std::vector<double> sums(static_cast<std::size_t>(graph.NumEquations()) + 1);
  for (const UnknownForce& force : stress.Forces) {
    for (const auto& [column, value] : rigidity.Row(force.Unknown)) {
      sums[static_cast<std::size_t>(column)] += force.Value * value;
    }
  }
  return std::abs(*std::ranges::max_element(sums, {}, [](double sum) { return std::abs(sum); }));
}

inline int RankOf(const TrussGraph& graph, const std::vector<Motion>& motions) {
  std::vector<std::vector<double>> rows;
  for (const Motion& motion : motions) rows.push_back(DisplacementsByColumn(graph, motion));
  return NumericRank(rows);
}

inline int RankOf(const TrussGraph& graph, const std::vector<SelfStress>& stresses) {
  std::vector<std::vector<double>> rows;
  for (const SelfStress& stress : stresses) {
    rows.emplace_back(static_cast<std::size_t>(graph.NumUnknowns()));
    for (const UnknownForce& force : stress.Forces)
      rows.back()[static_cast<std::size_t>(force.Unknown - 1)] = force.Value;
  }
  return NumericRank(rows);
}

inline void ExpectReasonsToHold(const TrussGraph& graph, const ExactReasons& reasons) {
  ASSERT_EQ(static_cast<int>(reasons.Motions.size()), reasons.Verdict.Mechanisms());
  ASSERT_EQ(static_cast<int>(reasons.SelfStresses.size()), reasons.Verdict.SelfStresses());
  const SparseMatrix<double> rigidity = RigidityRows(graph);
  bool works = false;
  for (const Motion& motion : reasons.Motions) {
    EXPECT_LT(LargestLengthening(graph, rigidity, motion), 1e-9);
    EXPECT_GE(motion.Work, 0);
    const JointDisplacement& first = motion.Joints.front();
    const bool rightOrUp = first.Dx > 0 || (first.Dx == 0 && first.Dy > 0);
    EXPECT_TRUE(motion.Work > 0 || rightOrUp) << first.Dx << ", " << first.Dy;
    works = works || motion.Work > 0;
    double largest = 0;
    for (const JointDisplacement& at : motion.Joints) largest = std::max(largest, std::hypot(at.Dx, at.Dy));
    EXPECT_NEAR(largest, 1, 1e-12);
  }
  EXPECT_EQ(works, reasons.Verdict.Code() == Outcome::Inconsistent);
  for (const SelfStress& stress : reasons.SelfStresses)
    EXPECT_LT(LargestImbalance(graph, rigidity, stress), 1e-9);
  EXPECT_EQ(RankOf(graph, reasons.Motions), reasons.Verdict.Mechanisms());
  EXPECT_EQ(RankOf(graph, reasons.SelfStresses), reasons.Verdict.SelfStresses());
}
