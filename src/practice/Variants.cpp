#include "practice/Variants.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>

#include "analysis/Unknowns.h"
#include "explanation/Directions.h"
#include "explanation/ExactVerdict.h"
#include "explanation/TrussGraph.h"
#include "practice/ForceNames.h"
#include "practice/MirroredTruss.h"
#include "practice/OtherNames.h"
#include "practice/RoundLoads.h"
#include "practice/Verdicts.h"

namespace {

using Loads = std::vector<RoundLoad>;

Loads LoadsOf(const Truss& truss) {
  Loads loads;
  for (const ForceRec& force : truss.ForcesInUse()) {
    if (force.Active) loads.push_back({force.Fx, force.Fy});
  }
  return loads;
}

void SetLoads(Truss& truss, const Loads& loads) {
  auto load = loads.begin();
  for (ForceRec& force : truss.ForcesInUse()) {
    if (!force.Active) continue;
    force.Fx = load->Fx;
    force.Fy = load->Fy;
    ++load;
  }
}

// Of each live member, in table order, whether it carries nothing. Nothing when not all forces are known.
std::optional<std::vector<bool>> MembersWithoutForce(const Truss& truss, const TrussAnalysis& analysis) {
  const ColumnMap columns(analysis.System.UnknownList);
  const double largest = LargestOf(analysis.Reading.Values);
  std::vector<bool> without;
  for (const MemberRec& member : truss.MembersInUse()) {
    if (!member.Live) continue;
    const std::optional<double>& value = analysis.Reading.Values[columns.Column(member.NameLabel1)];
    if (!value) return std::nullopt;
    without.push_back(IsNoForce(*value, largest));
  }
  return without;
}

// Whether the loads leave something over at any joint.
bool IsLoaded(const TrussGraph& graph) {
  Table<std::pair<double, double>> sums(graph.NumJoints());
  for (const PlacedLoad& load : graph.Loads) {
    sums[load.Joint].first += static_cast<double>(load.Fx);
    sums[load.Joint].second += static_cast<double>(load.Fy);
  }
  return std::ranges::any_of(sums.First(sums.Size()),
                             [](const auto& sum) { return sum != std::pair(0.0, 0.0); });
}

class Maker {
 public:
  Maker(const Truss& original, const VariantWishes& wishes, const std::function<bool(double)>& goOn)
      : original_(original), wishes_(wishes), goOn_(goOn), numbers_(wishes.Seed), loads_(LoadsOf(original)) {
    used_.insert(loads_);
  }

  Variants Make() {
    Variants made;
    Truss sorted = original_;
    const TrussAnalysis analysis = SolveTruss(sorted);
    made.Why = WhyNotSolvable(sorted, analysis);
    if (made.Why.empty()) made.Why = WhyNotByName(GraphOf(sorted, analysis));
    if (!made.Why.empty()) return made;
    withoutForce_ = MembersWithoutForce(sorted, analysis);
    while (static_cast<int>(made.All.size()) < wishes_.NumVariants) {
      if (goOn_ && !goOn_(static_cast<double>(made.All.size()) / wishes_.NumVariants)) {
        made.Why = "this was ended";
        break;
      }
      std::optional<Variant> next = Next(static_cast<int>(made.All.size()) + 1);
      if (!next) {
        made.Why = "only " + Counted(static_cast<int>(made.All.size()), "variant", "variants") +
                   " could be found whose loads differ and "
                   "leave the same members without force";
        break;
      }
      made.All.push_back(std::move(*next));
    }
    return made;
  }

 private:
  // After so many vain tries on one level of roundness the numbers get less round.
  static constexpr int TriesOnLevel = 40;

  std::optional<Variant> Next(int number) {
    for (; level_ < NumRoundnessLevels; ++level_, numTries_ = 0) {
      while (numTries_ < TriesOnLevel) {
        if (std::optional<Variant> variant = Try(number)) {
          numTries_ = 0;
          return variant;
        }
        ++numTries_;
      }
    }
    return std::nullopt;
  }

  // Where loads only cancel in a member together, each by itself will not do.
  Loads OtherLoads() {
    const bool areScaledTogether = numTries_ >= TriesOnLevel / 2;
    const double ratio = RoundRatio(level_, numbers_);
    Loads loads;
    loads.reserve(loads_.size());
    for (const RoundLoad& load : loads_)
      loads.push_back(areScaledTogether ? Scaled(load, ratio) : RoundLoadLike(load, level_, numbers_));
    return loads;
  }

  std::optional<Variant> Try(int number) {
    Loads loads = OtherLoads();
    // Drawn whether they are needed or not, so that one wish does not change what another gives.
    const bool isMirrored = numbers_.Below(2) == 1;
    const std::uint64_t names = numbers_.Next();
    if (used_.contains(loads)) return std::nullopt;

    Variant variant{number, original_, {}};
    SetLoads(variant.Document, loads);
    if (wishes_.Mirrors && isMirrored) MirrorTruss(variant.Document);
    if (wishes_.Renames) GiveOtherNames(variant.Document, names);
    variant.Analysis = SolveTruss(variant.Document);
    const bool fits = WhyNotSolvable(variant.Document, variant.Analysis).empty() &&
                      MembersWithoutForce(variant.Document, variant.Analysis) == withoutForce_;
    if (!fits) return std::nullopt;
    used_.insert(std::move(loads));
    return variant;
  }

  const Truss& original_;
  const VariantWishes& wishes_;
  const std::function<bool(double)>& goOn_;
  SeededNumbers numbers_;
  Loads loads_;
  std::set<Loads> used_;
  std::optional<std::vector<bool>> withoutForce_;
  int level_ = 0;
  int numTries_ = 0;
};

}  // namespace

std::string WhyNotSolvable(const Truss& truss, const TrussAnalysis& analysis) {
  if (analysis.System.NumUnknowns() == 0) return "the truss has no unknown forces";
  const auto& values = analysis.Reading.Values;
  const bool areAllKnown =
      analysis.Reading.Code != Outcome::Inconsistent &&
      std::ranges::all_of(values.First(values.Size()), [](const auto& value) { return value.has_value(); });
  if (!areAllKnown) return "the solutions of this truss do not give every force";
  const TrussGraph graph = GraphOf(truss, analysis);
  if (LargestOf(values) == 0 && IsLoaded(graph))
    return "all forces of this truss are 0, as far as its solutions show: its loads are too small";
  const ExactVerdict verdict = JudgeExactly(graph);
  const bool isUnique = verdict.Code() != Outcome::Inconsistent && verdict.SelfStresses() == 0;
  return isUnique ? "" : "the forces of this truss are not unique, exactly";
}

Variants MakeVariants(const Truss& original, const VariantWishes& wishes,
                      const std::function<bool(double done)>& goOn) {
  const Loads loads = LoadsOf(original);
  const bool isLoaded = std::ranges::any_of(loads, [](const RoundLoad& load) { return load != RoundLoad{}; });
  if (!isLoaded) return {{}, "the truss has no load that could be another one"};
  return Maker(original, wishes, goOn).Make();
}
