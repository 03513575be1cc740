#include "explanation/MotionChoices.h"

#include <algorithm>
#include <cmath>

#include "explanation/Directions.h"
#include "explanation/DistinctNames.h"
#include "explanation/MotionText.h"
#include "explanation/RigidityMatrix.h"

namespace {

constexpr std::size_t MostListed = 4;

std::string MotionTitle(const DistinctNames& joints, const Motion& motion) {
  if (motion.Kind == MotionKind::Rigid) return "the whole truss moves";
  std::vector<std::string> names;
  for (const JointDisplacement& at : motion.Joints) names.push_back(joints.Joint(at.Joint));
  return ListOf(names, MostListed) + (names.size() == 1 ? " moves" : " move");
}

std::string SelfStressTitle(const DistinctNames& names, const SelfStress& stress) {
  std::vector<int> unknowns;
  for (const UnknownForce& force : stress.Forces) unknowns.push_back(force.Unknown);
  return names.Forces(unknowns, MostListed);
}

template <class Item>
const Item* NumberIn(const std::vector<Item>& items, int number) {
  return number >= 1 && number <= static_cast<int>(items.size())
             ? &items[static_cast<std::size_t>(number - 1)]
             : nullptr;
}

}  // namespace

std::vector<MotionChoice> MotionChoices(const TrussGraph& graph, const ExactReasons& reasons,
                                        const ReportFormat& format) {
  const DistinctNames names(graph, format);
  std::vector<MotionChoice> choices;
  int number = 0;
  for (const Motion& motion : reasons.Motions) {
    ++number;
    choices.push_back({MotionChoice::Kind::Motion, number,
                       "Motion " + std::to_string(number) + ": " + MotionTitle(names, motion)});
  }
  number = 0;
  for (const SelfStress& stress : reasons.SelfStresses) {
    ++number;
    choices.push_back({MotionChoice::Kind::SelfStress, number,
                       "Self-stress " + std::to_string(number) + ": " + SelfStressTitle(names, stress)});
  }
  return choices;
}

std::string BeginningOfText(const MotionChoice& choice) {
  return (choice.What == MotionChoice::Kind::Motion ? "Motion " : "Self-stress ") +
         std::to_string(choice.Number) + '.';
}

const Motion* MotionOf(const MotionChoice& choice, const ExactReasons& reasons) {
  return choice.What == MotionChoice::Kind::Motion ? NumberIn(reasons.Motions, choice.Number) : nullptr;
}

namespace {

// Whether each member keeps its direction, so that it keeps its length however far it goes.
bool IsPureSliding(const TrussGraph& graph, const Motion& motion) {
  constexpr double nothing = 1e-12;  // of the largest displacement, which is 1
  const std::vector<double> by = DisplacementsByColumn(graph, motion);
  const auto differs = [&](const PlacedUnknown& member, Axis axis) {
    const auto a = static_cast<std::size_t>(ColumnOf(member.JointA, axis));
    const auto b = static_cast<std::size_t>(ColumnOf(member.JointB, axis));
    return std::abs(by[a] - by[b]) > nothing;
  };
  return std::ranges::none_of(graph.Unknowns.First(graph.NumUnknowns()), [&](const PlacedUnknown& unknown) {
    return unknown.IsMember() && (differs(unknown, Axis::X) || differs(unknown, Axis::Y));
  });
}

}  // namespace

const SelfStress* SelfStressOf(const MotionChoice& choice, const ExactReasons& reasons) {
  return choice.What == MotionChoice::Kind::SelfStress ? NumberIn(reasons.SelfStresses, choice.Number)
                                                       : nullptr;
}

std::string DescribeChoice(const MotionChoice* choice, const TrussGraph& graph, const ExactReasons& reasons,
                           const ReportFormat& format) {
  if (choice == nullptr) return "The truss as it stands; it has neither motions nor states of self-stress.";
  const std::string name = choice->Title.substr(0, choice->Title.find(':'));
  if (const Motion* motion = MotionOf(*choice, reasons))
    return name + ".  " + MotionText(graph, *motion, format);
  if (const SelfStress* stress = SelfStressOf(*choice, reasons))
    return name + ".  " + SelfStressText(graph, *stress, format);
  return name + '.';
}

const char* NoteOnChoice(const MotionChoice* choice, const TrussGraph& graph, const ExactReasons& reasons) {
  if (choice == nullptr) return "The truss has neither motions nor states of self-stress.";
  if (choice->What == MotionChoice::Kind::Motion) {
    const Motion* motion = MotionOf(*choice, reasons);
    return motion != nullptr && IsPureSliding(graph, *motion)
               ? "Grey: at rest. The size of the motion means nothing; no member turns or changes its length."
               : "Grey: at rest. The size of the motion means nothing; lengths change at second order only.";
  }
  return "C: compression, T: tension. Only the proportions mean something; no load is needed for them.";
}
