#include "explanation/MotionChoices.h"

#include "explanation/Directions.h"
#include "explanation/DistinctNames.h"
#include "explanation/MotionText.h"

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

const Motion* MotionOf(const MotionChoice& choice, const ExactReasons& reasons) {
  return choice.What == MotionChoice::Kind::Motion ? NumberIn(reasons.Motions, choice.Number) : nullptr;
}

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

const char* NoteOnChoice(const MotionChoice* choice) {
  if (choice == nullptr) return "The truss has neither motions nor states of self-stress.";
  if (choice->What == MotionChoice::Kind::Motion) {
    return "Grey: at rest. The size of the motion means nothing; lengths change at second order only.";
  }
  return "C: compression, T: tension. Only the proportions mean something; no load is needed for them.";
}
