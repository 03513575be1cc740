#include "app/ExplanationJson.h"

#include "app/ByJointJson.h"
#include "app/ExplanationReport.h"
#include "app/StepsJson.h"
#include "explanation/MotionText.h"

namespace {

const char* AxisWord(Axis axis) { return axis == Axis::X ? "\"x\"" : "\"y\""; }

std::string ExactJson(const Explanation& explanation) {
  const ExactVerdict& verdict = explanation.Exact.Verdict;
  JsonList determined('[');
  for (const int k : verdict.Determined) determined.Item(std::to_string(k));
  return JsonList('{')
      .Key("rank", verdict.Rank)
      .Key("augmentedRank", verdict.AugmentedRank)
      .Key("mechanisms", verdict.Mechanisms())
      .Key("selfStresses", verdict.SelfStresses())
      .Key("outcome", static_cast<int>(verdict.Code()))
      .Key("determined", determined.Text())
      .Key("agrees", explanation.Rounded.Agrees())
      .Key("within", static_cast<int>(explanation.Rounded.Figures.Within))
      .Key("word", JsonText(VerdictWord(verdict)))
      .Text();
}

void WriteUnknownsAt(JsonStream& list, const TrussGraph& graph) {
  for (const PlacedUnknown& unknown : graph.Unknowns.First(graph.NumUnknowns())) {
    JsonList at('{');
    if (unknown.IsMember()) {
      JsonList joints('[');
      joints.Item(std::to_string(unknown.JointA)).Item(std::to_string(unknown.JointB));
      at.Key("Joints", joints.Text());
    } else {
      at.Key("Joint", unknown.JointA).Key("Axis", AxisWord(unknown.Along));
    }
    list.Item(at.Text());
  }
}

const char* KindOf(const Motion& motion) {
  return motion.Kind == MotionKind::Rigid ? "\"rigid\"" : "\"internal\"";
}

const char* ExtentOf(const Motion& motion) {
  switch (motion.Extent) {
    case MotionExtent::Tightens:
      return "\"tightens\"";
    case MotionExtent::MovesOn:
      return "\"moves on\"";
    case MotionExtent::Small:
      break;
  }
  return "\"small\"";
}

void WriteMotions(JsonStream& list, const Explanation& explanation, const ReportFormat& format) {
  MotionTeller teller(explanation.Graph, format);
  for (const Motion& motion : explanation.Exact.Motions) {
    JsonList joints('[');
    for (const JointDisplacement& at : motion.Joints) {
      joints.Item(JsonList('{').Key("Joint", at.Joint).Key("dx", at.Dx).Key("dy", at.Dy).Text());
    }
    list.Item(JsonList('{')
                  .Key("kind", KindOf(motion))
                  .Key("extent", ExtentOf(motion))
                  .Key("joints", joints.Text())
                  .Key("work", motion.Work)
                  .Key("text", JsonName(teller.Text(motion)))
                  .Text());
  }
}

void WriteSelfStresses(JsonStream& list, const Explanation& explanation, const ReportFormat& format) {
  const MotionTeller teller(explanation.Graph, format);
  for (const SelfStress& stress : explanation.Exact.SelfStresses) {
    JsonList forces('[');
    for (const UnknownForce& force : stress.Forces) {
      forces.Item(JsonList('{').Key("Unknown", force.Unknown).Key("Value", force.Value).Text());
    }
    list.Item(JsonList('{').Key("forces", forces.Text()).Key("text", JsonName(teller.Text(stress))).Text());
  }
}

std::string ProofJson(const std::optional<ContradictionProof>& proof) {
  if (!proof) return "null";
  JsonList equations('[');
  for (const WeightedEquation& equation : proof->Equations) {
    equations.Item(JsonList('{')
                       .Key("Joint", equation.Joint)
                       .Key("Axis", AxisWord(equation.Along))
                       .Key("Factor", equation.Factor)
                       .Text());
  }
  return JsonList('{').Key("equations", equations.Text()).Key("Sum", proof->Sum).Text();
}

void WriteAdvice(JsonStream& list, const std::vector<Advice>& suggestions) {
  for (const Advice& advice : suggestions) {
    if (!advice.IsAddition() && advice.Kind != AdviceKind::Remove) continue;
    JsonList item('{');
    if (advice.Kind == AdviceKind::Remove) {
      item.Key("Remove", advice.Unknown);
    } else if (advice.Kind == AdviceKind::AddRoller) {
      item.Key("Add", "\"roller\"").Key("Joint", advice.JointA).Key("Axis", AxisWord(advice.Along));
    } else {
      JsonList joints('[');
      joints.Item(std::to_string(advice.JointA)).Item(std::to_string(advice.JointB));
      item.Key("Add", "\"member\"").Key("Joints", joints.Text());
    }
    list.Item(item.Text());
  }
}

void WriteFindings(JsonStream& list, const AnalysedFile& file, const ReportFormat& format) {
  for (const DrawingCheck& check : ChecksOf(file, format)) {
    if (KindWord(check.Kind) == nullptr) continue;
    list.Item(JsonList('{')
                  .Key("Kind", JsonText(KindWord(check.Kind)))
                  .Key("X", check.X)
                  .Key("Y", check.Y)
                  .Key("text", JsonName(check.Text))
                  .Text());
  }
}

// None is sure of a force that is determined and shown without a value.
std::string CertainFiguresJson(const Explanation& explanation, const ReportFormat& format) {
  const DrawnFigures& figures = explanation.Rounded.Figures;
  if (figures.IsOneMissing) return "0";
  const std::optional<int> sure = LeastSureFigures(figures.Forces, format);
  return sure ? std::to_string(*sure) : "null";
}

}  // namespace

void AddExplanation(JsonStream& object, const AnalysedFile& file,
                    const std::optional<Explanation>& explanation, const ReportFormat& format) {
  if (explanation) {
    object.Key("exact", ExactJson(*explanation))
        .Array("unknownsAt", [&](JsonStream& list) { WriteUnknownsAt(list, explanation->Graph); })
        .Array("motions", [&](JsonStream& list) { WriteMotions(list, *explanation, format); })
        .Array("selfStresses", [&](JsonStream& list) { WriteSelfStresses(list, *explanation, format); })
        .Key("proof", ProofJson(explanation->Proof))
        .Array("advice", [&](JsonStream& list) { WriteAdvice(list, explanation->Suggestions); })
        .Key("certainFigures", CertainFiguresJson(*explanation, format));
  }
  object.Array("checks", [&](JsonStream& list) { WriteFindings(list, file, format); });
  if (!explanation) return;
  object.Array("steps", [&](JsonStream& list) { WritePivots(list, file); });
  object.Key("byJoint", ByJointJson(file, format));
}
