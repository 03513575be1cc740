#include "explanation/MotionExtent.h"

#include <algorithm>
#include <cmath>

#include "explanation/At.h"
#include "explanation/MovingPieces.h"

namespace {

class ExtentFinder {
 public:
  ExtentFinder(const TrussGraph& graph, const std::vector<SelfStress>& stresses)
      : graph_(graph),
        stresses_(stresses),
        at_(WrittenPlaces(graph)),
        pieces_(graph),
        unknownsAt_(UnknownsByJoint(graph)),
        displacements_(At(graph.NumJoints()) + 1),
        placeOf_(At(graph.NumJoints()) + 1, -1),
        stressesAt_(At(graph.NumJoints()) + 1),
        components_(PiecesOf(graph)),
        numStatesOf_(At(components_.Count)) {
    for (const SelfStress& stress : stresses) {
      const int joint = graph.Unknowns[stress.Forces.front().Unknown].JointA;
      ++numStatesOf_[At(components_.OfJoint[joint])];
    }
    for (std::size_t s = 0; s < stresses.size(); ++s) {
      for (const UnknownForce& force : stresses[s].Forces) {
        const PlacedUnknown& unknown = graph.Unknowns[force.Unknown];
        for (const int joint : {unknown.JointA, unknown.JointB}) {
          std::vector<std::size_t>& list = stressesAt_[At(joint)];
          if (joint != 0 && (list.empty() || list.back() != s)) list.push_back(s);
        }
      }
    }
  }

  template <class Field>
  MotionExtent Of(const Motion& motion, const std::vector<ModularRow>& exactRows) {
    for (const JointDisplacement& at : motion.Joints) displacements_[At(at.Joint)] = at;
    MotionExtent extent = MotionExtent::Small;
    if (TurnsOrSlidesFreely(motion) || IsIndependent<Field>(motion, exactRows, {})) {
      extent = MotionExtent::MovesOn;
    } else if (IsHeldAtSecondOrder(motion)) {
      extent = MotionExtent::Tightens;
    } else if (FitsWithoutTheSuperfluous<Field>(motion, exactRows)) {
      extent = MotionExtent::MovesOn;
    }
    for (const JointDisplacement& at : motion.Joints) displacements_[At(at.Joint)] = {};
    return extent;
  }

 private:
  const JointDisplacement& Of(int joint) const { return displacements_[At(joint)]; }
  bool Moves(int joint) const { return Of(joint).Joint != 0; }

  // Unknowns that act on what moves, each once.
  std::vector<int> Touching(const Motion& motion) const {
    std::vector<int> touching;
    for (const JointDisplacement& at : motion.Joints) {
      touching.insert(touching.end(), unknownsAt_[at.Joint].begin(), unknownsAt_[at.Joint].end());
    }
    std::ranges::sort(touching);
    touching.erase(std::unique(touching.begin(), touching.end()), touching.end());
    return touching;
  }

  // All that moves is one piece, and nothing holds it from outside but where it may slide or at its centre.
  bool TurnsOrSlidesFreely(const Motion& motion) const {
    const JointDisplacement& first = motion.Joints.front();
    const WrittenPlace& origin = at_[first.Joint];
    double turn = 0;
    bool slides = true;
    for (const JointDisplacement& at : motion.Joints) {
      const double dx = at.Dx - first.Dx;
      const double dy = at.Dy - first.Dy;
      if (IsNothing(dx) && IsNothing(dy)) continue;
      slides = false;
      const double x = at_[at.Joint].X - origin.X;
      const double y = at_[at.Joint].Y - origin.Y;
      const double rate = (x * dy - y * dx) / (x * x + y * y);
      if (turn == 0) turn = rate;
      const double size = std::abs(turn) * std::sqrt(x * x + y * y);
      if (std::abs(dx + turn * y) > 1e-9 * size || std::abs(dy - turn * x) > 1e-9 * size) return false;
    }
    const std::vector<int> touching = Touching(motion);
    return std::ranges::all_of(touching, [&](int k) {
      const PlacedUnknown& unknown = graph_.Unknowns[k];
      if (!unknown.IsMember()) return slides;
      if (Moves(unknown.JointA) && Moves(unknown.JointB)) return true;
      if (slides) return false;
      const WrittenPlace& held = at_[Moves(unknown.JointA) ? unknown.JointB : unknown.JointA];
      const double x = held.X - origin.X;
      const double y = held.Y - origin.Y;
      const double size = std::abs(turn) * std::sqrt(x * x + y * y);
      return std::abs(first.Dx - turn * y) <= 1e-9 * size && std::abs(first.Dy + turn * x) <= 1e-9 * size;
    });
  }

  // Where the constraints are independent, the positions that satisfy them form a smooth surface, and every
  // motion is the beginning of a path on it. It is enough to look at the constraints of what moves, with the
  // rest held; `superfluous` ones, ascending, left out.
  template <class Field>
  bool IsIndependent(const Motion& motion, const std::vector<ModularRow>& exactRows,
                     const std::vector<int>& superfluous) {
    if (numStatesOf_[At(ComponentOf(motion))] == superfluous.size()) return true;
    int numMoving = 0;
    for (const JointDisplacement& at : motion.Joints) placeOf_[At(at.Joint)] = numMoving++;
    const int numColumns = 2 * numMoving;
    std::vector<ModularRow> rows;
    for (const int k : Touching(motion)) {
      if (std::ranges::binary_search(superfluous, k)) continue;
      ModularRow row;
      for (const ModularEntry& entry : exactRows[At(k - 1)]) {
        const int joint = entry.Column / 2 + 1;
        if (Moves(joint)) row.push_back({2 * placeOf_[At(joint)] + entry.Column % 2, entry.Value});
      }
      rows.push_back(std::move(row));
    }
    for (const JointDisplacement& at : motion.Joints) placeOf_[At(at.Joint)] = -1;
    const auto numRows = static_cast<int>(rows.size());
    return numRows < numColumns && RankOf<Field>(std::move(rows), numColumns) == numRows;
  }

  // The same, with members left out that only repeat what keeps a piece in its shape: wherever it goes, they
  // fit. Without those of the part that stands still, too, nothing may be left that any state of self-stress
  // needs; this is asked last, because it looks at the whole component.
  template <class Field>
  bool FitsWithoutTheSuperfluous(const Motion& motion, const std::vector<ModularRow>& exactRows) {
    std::vector<int> superfluous;
    for (const MovingPiece& piece : pieces_.Of(motion))
      AddSuperfluous<Field>(piece.Members, exactRows, superfluous);
    std::ranges::sort(superfluous);
    if (!superfluous.empty() && IsIndependent<Field>(motion, exactRows, superfluous)) return true;
    const std::size_t missing = numStatesOf_[At(ComponentOf(motion))] - superfluous.size();
    const std::vector<int> standing = StandingMembers(motion);
    if (standing.size() < missing) return false;
    std::vector<int> ofStanding;
    AddSuperfluous<Field>(standing, exactRows, ofStanding);
    return ofStanding.size() == missing;
  }

  int ComponentOf(const Motion& motion) const { return components_.OfJoint[motion.Joints.front().Joint]; }

  // The members of the motion's component that do not move.
  std::vector<int> StandingMembers(const Motion& motion) const {
    const int component = ComponentOf(motion);
    std::vector<int> members;
    for (int k = 1; k <= graph_.NumUnknowns(); ++k) {
      const PlacedUnknown& unknown = graph_.Unknowns[k];
      const bool isThere = unknown.IsMember() && components_.OfJoint[unknown.JointA] == component;
      if (isThere && !Moves(unknown.JointA) && !Moves(unknown.JointB)) members.push_back(k);
    }
    return members;
  }

  template <class Field>
  void AddSuperfluous(const std::vector<int>& members, const std::vector<ModularRow>& exactRows,
                      std::vector<int>& superfluous) {
    int numJoints = 0;
    for (const int k : members) {
      for (const int joint : {graph_.Unknowns[k].JointA, graph_.Unknowns[k].JointB}) {
        if (placeOf_[At(joint)] < 0) placeOf_[At(joint)] = numJoints++;
      }
    }
    const auto numRows = static_cast<int>(members.size());
    const int whole = 2 * numJoints - 3;
    if (numRows > whole) {
      std::vector<ModularRow> rows;
      for (const int k : members) {
        rows.push_back(exactRows[At(k - 1)]);
        for (ModularEntry& entry : rows.back())
          entry.Column = 2 * placeOf_[At(entry.Column / 2 + 1)] + entry.Column % 2;
        std::ranges::sort(rows.back(), {}, &ModularEntry::Column);
      }
      const ModularNullSpace states = NullSpaceOf<Field>(Transposed(rows, 2 * numJoints), numRows);
      if (states.Rank == whole) {
        for (const int row : states.Free) superfluous.push_back(members[At(row)]);
      }
    }
    for (const int k : members) {
      for (const int joint : {graph_.Unknowns[k].JointA, graph_.Unknowns[k].JointB}) placeOf_[At(joint)] = -1;
    }
  }

  bool IsHeldAtSecondOrder(const Motion& motion) const {
    std::vector<std::size_t> near;
    for (const JointDisplacement& at : motion.Joints) {
      near.insert(near.end(), stressesAt_[At(at.Joint)].begin(), stressesAt_[At(at.Joint)].end());
    }
    std::ranges::sort(near);
    near.erase(std::unique(near.begin(), near.end()), near.end());
    return std::ranges::any_of(near, [this](std::size_t s) { return WorksAtSecondOrder(stresses_[s]); });
  }

  // The members' force densities times the squares of their relative displacements.
  bool WorksAtSecondOrder(const SelfStress& stress) const {
    double work = 0;
    double size = 0;
    for (const UnknownForce& force : stress.Forces) {
      const PlacedUnknown& unknown = graph_.Unknowns[force.Unknown];
      if (!unknown.IsMember() || unknown.JointA == unknown.JointB) continue;
      const double x = at_[unknown.JointA].X - at_[unknown.JointB].X;
      const double y = at_[unknown.JointA].Y - at_[unknown.JointB].Y;
      const double dx = Of(unknown.JointA).Dx - Of(unknown.JointB).Dx;
      const double dy = Of(unknown.JointA).Dy - Of(unknown.JointB).Dy;
      const double term = force.Value / std::sqrt(x * x + y * y) * (dx * dx + dy * dy);
      work += term;
      size += std::abs(term);
    }
    return std::abs(work) > 1e-7 * size;
  }

  static bool IsNothing(double displacement) { return std::abs(displacement) < 1e-9; }

  const TrussGraph& graph_;
  const std::vector<SelfStress>& stresses_;
  Table<WrittenPlace> at_;
  PieceFinder pieces_;
  Table<std::vector<int>> unknownsAt_;
  std::vector<JointDisplacement> displacements_;  // by joint, of the motion in hand
  std::vector<int> placeOf_;                      // by joint: its number among those in hand, or -1
  std::vector<std::vector<std::size_t>> stressesAt_;
  TrussPieces components_;
  std::vector<std::size_t> numStatesOf_;  // of self-stress, by component
};

}  // namespace

template <class Field>
void FindExtents(const TrussGraph& graph, const std::vector<ModularRow>& exactRows,
                 const std::vector<SelfStress>& stresses, std::vector<Motion>& motions) {
  ExtentFinder finder(graph, stresses);
  for (Motion& motion : motions) motion.Extent = finder.Of<Field>(motion, exactRows);
}

template void FindExtents<FirstField>(const TrussGraph&, const std::vector<ModularRow>&,
                                      const std::vector<SelfStress>&, std::vector<Motion>&);
template void FindExtents<SecondField>(const TrussGraph&, const std::vector<ModularRow>&,
                                       const std::vector<SelfStress>&, std::vector<Motion>&);
