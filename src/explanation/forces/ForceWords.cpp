#include "explanation/forces/ForceWords.h"

#include <cmath>
#include <optional>
#include <utility>

#include "document/SupportReactions.h"
#include "explanation/forces/TrussForces.h"

ForceWords::ForceWords(const Truss& truss, const TrussAnalysis& analysis, ReportFormat format)
    : truss_(truss), analysis_(analysis), format_(std::move(format)) {
  for (int k = 1; k <= analysis.System.NumUnknowns(); ++k)
    unknowns_[analysis.System.UnknownList[k].Label] = k;
}

ForceWords::Kind ForceWords::Find(LabelIndex label, double& value) const {
  const auto found = unknowns_.find(label);
  if (found == unknowns_.end()) return Kind::Open;
  if (analysis_.Reading.Code == Outcome::Inconsistent) return Kind::Contradicted;
  const std::optional<double> solution = analysis_.Reading.Values[found->second];
  if (!solution) return Kind::Open;
  value = *solution;
  return Kind::Known;
}

namespace {

constexpr const char* OpenWord = "undetermined";
constexpr const char* ContradictedWord = "no value";

}  // namespace

std::string ForceWords::OfMember(const MemberRec& member) const {
  double value = 0;
  const Kind kind = Find(member.NameLabel1, value);
  if (kind != Kind::Known) return kind == Kind::Open ? OpenWord : ContradictedWord;
  const std::string magnitude = FormatSigFigs(std::abs(value), format_);
  switch (SenseOf(value)) {
    case ForceSense::Pushing:
      return "compression " + magnitude;
    case ForceSense::Pulling:
      return "tension " + magnitude;
    default:
      return "force 0";
  }
}

std::string ForceWords::OfReaction(const SupportRec& support, int component) const {
  const LabelIndex label = component == 1 ? support.NameLabel1 : support.NameLabel2;
  const ReactionDirection direction = DirectionOf(support.TypeIndex, component);
  const SharedText& name = truss_.Name(label);
  const bool isNamed = !name.empty() && name != UnnamedCaption;
  const std::string words = std::string(isNamed ? name.View() : direction.IsAlongX() ? "x" : "y") + ' ';
  double value = 0;
  const Kind kind = Find(label, value);
  if (kind != Kind::Known) return words + (kind == Kind::Open ? OpenWord : ContradictedWord);
  if (SenseOf(value) == ForceSense::Zero) return words + '0';
  const bool isPositive = (value > 0) == (direction.Sign() > 0);
  const char* along =
      direction.IsAlongX() ? (isPositive ? " right" : " left") : (isPositive ? " up" : " down");
  return words + FormatSigFigs(std::abs(value), format_) + along;
}

std::string ForceWords::Of(const Element& element) const {
  if (element.Kind == ElementKind::Member) return OfMember(truss_.Members[element.Index]);
  if (element.Kind != ElementKind::Support) return {};
  const SupportRec& support = truss_.Supports[element.Index];
  std::string words = OfReaction(support, 1);
  if (support.IsClamp()) words += ", " + OfReaction(support, 2);
  return words;
}
