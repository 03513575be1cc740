#include "explanation/byjoint/HandSolution.h"

#include <algorithm>
#include <array>
#include <optional>
#include <set>
#include <utility>

#include "explanation/byjoint/JointBalance.h"
#include "explanation/byjoint/JointOrder.h"
#include "explanation/byjoint/Sections.h"
#include "explanation/byjoint/Together.h"
#include "explanation/byjoint/TrussBalance.h"
#include "explanation/byjoint/WholeTruss.h"
#include "explanation/byjoint/ZeroForces.h"

namespace {

class HandSolver {
 public:
  explicit HandSolver(const TrussGraph& graph)
      : graph_(graph),
        balance_(graph),
        pieces_(PiecesOf(graph)),
        jointsOf_(static_cast<std::size_t>(pieces_.Count)),
        isOut_(graph.NumJoints()),
        isDone_(graph.NumJoints()),
        order_(balance_, isOut_),
        sections_(balance_, isOut_) {
    for (int j = 1; j <= graph.NumJoints(); ++j) jointsOf_[PieceOf(j)].push_back(j);
  }

  HandSolution All() {
    SolveReactions();
    FindZeroForces();
    for (int j = 1; j <= graph_.NumJoints(); ++j) order_.LookAt(j);
    while (NextStep()) {
    }
    CheckTheRest();
    solution_.Values.Resize(graph_.NumUnknowns());
    for (int k = 1; k <= graph_.NumUnknowns(); ++k) {
      if (balance_.IsKnown(k)) solution_.Values[k] = balance_.Value(k);
    }
    solution_.AllSectionsSought = !sections_.IsExhausted();
    return std::move(solution_);
  }

 private:
  std::vector<int> FarJoints(int unknown) const {
    const PlacedUnknown& placed = graph_.Unknowns[unknown];
    if (placed.IsMember()) return {placed.JointA, placed.JointB};
    return {placed.JointA};
  }

  std::size_t PieceOf(int joint) const { return static_cast<std::size_t>(pieces_.OfJoint[joint]); }

  void SolveReactions() {
    for (const std::vector<int>& piece : jointsOf_) {
      // The equations of a single joint are its own.
      if (piece.size() < 2) continue;
      if (auto step = ReactionsOf(balance_, piece)) Take(std::move(*step), piece.front());
    }
  }

  // A reaction that a joint or a section gave may leave a single one in an equation of the whole truss.
  bool TakeMoreReactions() {
    while (!withNewReaction_.empty()) {
      const std::vector<int>& piece = jointsOf_[*withNewReaction_.begin()];
      withNewReaction_.erase(withNewReaction_.begin());
      if (isOut_[piece.front()] != 0) continue;
      auto step = MoreReactionsOf(balance_, piece);
      if (!step) continue;
      Take(std::move(*step), piece.front());
      return true;
    }
    return false;
  }

  // Each member found may tell something at its other end.
  void FindZeroForces() {
    std::set<int> waiting;
    for (int j = 1; j <= graph_.NumJoints(); ++j) waiting.insert(j);
    while (!waiting.empty()) {
      const int joint = *waiting.begin();
      waiting.erase(waiting.begin());
      if (isOut_[joint] != 0) continue;
      auto step = ZeroForcesAt(balance_, joint);
      if (!step) continue;
      for (const UnknownForce& force : step->Solved) {
        for (const int end : FarJoints(force.Unknown)) waiting.insert(end);
      }
      // Without a load and without a member nothing is left to check.
      if (balance_.NumSoughtAt(joint) == 0 && step->Rule != ZeroRule::LoadAlongOne) isDone_[joint] = 1;
      Take(std::move(*step), joint);
    }
  }

  void Take(HandStep step, int joint) {
    for (const UnknownForce& force : step.Solved) {
      for (const int end : FarJoints(force.Unknown)) order_.LookAt(end);
      const PlacedUnknown& found = graph_.Unknowns[force.Unknown];
      if (!found.IsMember() && step.Kind != HandStepKind::Reactions)
        withNewReaction_.insert(PieceOf(found.JointA));
    }
    if (step.Contradicts) CloseAround(joint);
    solution_.Steps.push_back(std::move(step));
  }

  void CloseAround(int joint) {
    for (int j = 1; j <= graph_.NumJoints(); ++j) {
      if (pieces_.OfJoint[j] != pieces_.OfJoint[joint]) continue;
      isOut_[j] = 1;
      order_.LookAt(j);
    }
  }

  bool NextStep() {
    if (const int joint = order_.False()) {
      Take(ContradictionAcross(balance_, joint), joint);
      return true;
    }
    if (TakeMoreReactions() || TakeJoint(order_.OneByOne(last_)) || TakeAcross(order_.Across()) ||
        TakeJoint(order_.Pair(last_)))
      return true;
    if (NothingSought()) return false;
    return TakeSection(NearlyVanishing) || TakeJoint(order_.Poor()) || TakeAcross(order_.PoorAcross()) ||
           TakeSection(0) || TakeTogether();
  }

  bool NothingSought() const {
    for (int j = 1; j <= graph_.NumJoints(); ++j) {
      if (isOut_[j] == 0 && balance_.NumSoughtAt(j) > 0) return false;
    }
    return true;
  }

  bool TakeJoint(int joint) {
    if (joint == 0) return false;
    isDone_[joint] = 1;
    last_ = joint;
    Take(SolveJoint(balance_, joint), joint);
    return true;
  }

  bool TakeAcross(int joint) {
    if (joint == 0) return false;
    last_ = joint;
    Take(SolveAcross(balance_, joint, OneAcross(balance_, joint)), joint);
    return true;
  }

  bool TakeSection(double leastShare) {
    const auto cut = sections_.Find(leastShare);
    if (cut) TakeCut(*cut);
    return cut.has_value();
  }

  void TakeCut(const SectionCut& cut) {
    HandStep step{.Kind = HandStepKind::Section};
    step.Joints = cut.Joints;
    for (const int joint : cut.Joints) {
      for (const int k : balance_.ActingAt(joint)) {
        const auto isInside = [&](int end) { return std::ranges::binary_search(cut.Joints, end); };
        if (graph_.Unknowns[k].IsMember() && !std::ranges::all_of(FarJoints(k), isInside))
          step.Cut.push_back(k);
      }
    }
    std::ranges::sort(step.Cut);
    Balance sum = balance_.BalanceOf(cut.Joints, cut.Equation);
    step.PutAside = sum.PutAside;
    step.Contradicts = cut.Unknown == 0;
    if (cut.Unknown != 0) step.Solved.push_back(balance_.Solve(sum));
    step.Equations.push_back(std::move(sum.Equation));
    Take(std::move(step), cut.Joints.front());
  }

  bool TakeTogether() {
    for (const std::vector<int>& joints : JoinedBySought(balance_, isOut_)) {
      auto step = SolveTogether(balance_, joints);
      if (!step) continue;
      // Better than that they contradict each other is where.
      const auto cut = step->Contradicts ? sections_.FindFalse() : std::nullopt;
      if (cut) {
        TakeCut(*cut);
        return true;
      }
      for (const int joint : joints) isDone_[joint] = 1;
      Take(std::move(*step), joints.front());
      return true;
    }
    return false;
  }

  void CheckTheRest() {
    for (int j = 1; j <= graph_.NumJoints(); ++j) {
      if (isOut_[j] != 0 || isDone_[j] != 0) continue;
      if (balance_.NumSoughtAt(j) > 0) {
        if (ContradictsAcross(balance_, j)) Take(ContradictionAcross(balance_, j), j);
        continue;
      }
      HandStep step = SolveJoint(balance_, j);
      if (!step.Equations.empty()) Take(std::move(step), j);
    }
  }

  const TrussGraph& graph_;
  TrussBalance balance_;
  TrussPieces pieces_;
  std::vector<std::vector<int>> jointsOf_;  // of each piece, ascending
  Table<char> isOut_;                       // of a part that contradicts itself
  Table<char> isDone_;                      // whose equations have been used
  JointOrder order_;
  SectionSearch sections_;
  std::set<std::size_t> withNewReaction_;  // pieces
  int last_ = 0;
  HandSolution solution_;
};

}  // namespace

const char* KindWord(HandStepKind kind) {
  constexpr std::array words = {"reactions", "zero-force", "joint", "section", "together"};
  return words[static_cast<std::size_t>(kind)];
}

bool HandSolution::Contradicts() const {
  return std::ranges::any_of(Steps, [](const HandStep& step) { return step.Contradicts; });
}

HandSolution SolveByHand(const TrussGraph& graph) { return HandSolver(graph).All(); }
