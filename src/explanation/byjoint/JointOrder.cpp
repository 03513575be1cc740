#include "explanation/byjoint/JointOrder.h"

#include "explanation/byjoint/JointBalance.h"

void JointOrder::LookAt(int joint) {
  for (std::set<int>* joints : {&oneByOne_, &across_, &slanted_, &pairs_, &poor_, &poorAcross_, &false_})
    joints->erase(joint);
  const int numSought = balance_.NumSoughtAt(joint);
  if (isOut_[joint] != 0 || numSought == 0) return;
  if (numSought > 2) {
    LookAcross(joint);
    return;
  }
  const double share = SolvableShare(balance_, joint);
  if (share == 0) {
    if (ContradictsAcross(balance_, joint)) false_.insert(joint);
  } else if (share < NearlyVanishing) {
    poor_.insert(joint);
  } else {
    (IsSolvedInPair(balance_, joint) ? pairs_ : oneByOne_).insert(joint);
  }
}

void JointOrder::LookAcross(int joint) {
  const AcrossLine across = OneAcross(balance_, joint);
  if (across.Unknown == 0) return;
  if (across.Share < NearlyVanishing) {
    poorAcross_.insert(joint);
  } else {
    (balance_.Across(across.Line).Kind == BalanceKind::Across ? slanted_ : across_).insert(joint);
  }
}

int JointOrder::Next(const std::set<int>& joints, int last) const {
  if (joints.empty()) return 0;
  int next = 0;
  if (last != 0) {
    for (const int k : balance_.ActingAt(last)) {
      const PlacedUnknown& unknown = balance_.Graph().Unknowns[k];
      if (!unknown.IsMember()) continue;
      const int far = unknown.JointA == last ? unknown.JointB : unknown.JointA;
      if (joints.contains(far) && (next == 0 || far < next)) next = far;
    }
  }
  return next == 0 ? *joints.begin() : next;
}

int JointOrder::Poor() const {
  int best = 0;
  double largest = 0;
  for (const int joint : poor_) {
    const double share = SolvableShare(balance_, joint);
    if (share <= largest) continue;
    largest = share;
    best = joint;
  }
  return best;
}
