#include "explanation/DistinctNames.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <string_view>

#include "explanation/Directions.h"
#include "text/NumberText.h"

namespace {

// Places are told with at least so many figures, however few the reports show.
constexpr int FewestFigures = 4;

constexpr const char* MemberWord = "member ";

constexpr double OfTheSize = 1e7;

// Whether a name reads like more than one thing where it stands among words or in an equation.
bool IsOdd(std::string_view name) {
  return name.find_first_of(" \xA0()[]{}<>=+-*/|,:;\xB7\xD7\xF7\x96") != std::string::npos;
}

// Names of joints stand behind the word, and are no numbers there.
bool IsOddForForce(std::string_view name) {
  return IsOdd(name) ||
         (!name.empty() && std::string_view("0123456789.").find(name.front()) != std::string_view::npos);
}

std::string InBrackets(std::string_view name) { return '[' + std::string(name) + ']'; }

std::int64_t CellOf(double at, double size) { return static_cast<std::int64_t>(std::floor(at / size)); }

}  // namespace

std::string NameBesideValue(std::string_view name) {
  return IsOddForForce(name) ? InBrackets(name) : std::string(name);
}

DistinctNames::DistinctNames(const TrussGraph& graph, const ReportFormat& format, OddNames odd)
    : graph_(graph),
      format_(format),
      odd_(odd),
      ofJoints_(WorthOf(graph.Joints)),
      ofForces_(WorthOf(graph.Unknowns)),
      places_(graph.NumJoints()),
      joints_(graph.NumJoints()),
      forces_(graph.NumUnknowns()) {
  format_.SigFigs = std::max(format_.SigFigs, FewestFigures);
  FindPlaces();
  NameJoints();
  NameForces();
  FindSpots();
}

template <class Named>
Table<DistinctNames::Own> DistinctNames::WorthOf(const Table<Named>& named) {
  std::map<std::string_view, int> count;
  for (const Named& one : named.First(named.Size())) ++count[one.Name];
  Table<Own> worth(named.Size());
  for (int i = 1; i <= named.Size(); ++i) {
    const SharedText& name = named[i].Name;
    const bool isMissing = name.empty() || name == UnnamedCaption;
    worth[i] = isMissing ? Own::IsMissing : count[name] > 1 ? Own::IsShared : Own::Tells;
  }
  return worth;
}

void DistinctNames::FindPlaces() {
  std::map<std::string, int> count;
  for (int j = 1; j <= graph_.NumJoints(); ++j) {
    places_[j] = PairText(graph_.Joints[j].X, graph_.Joints[j].Y, format_);
    ++count[places_[j]];
  }
  const std::string& separator = format_.Numbers.DecimalSeparator;
  for (int j = 1; j <= graph_.NumJoints(); ++j) {
    if (count[places_[j]] == 1) continue;
    places_[j] = PairOf(GeneralText(graph_.Joints[j].X, separator),
                        GeneralText(graph_.Joints[j].Y, separator), format_);
  }
}

SharedText DistinctNames::OwnOfJoint(int joint) const {
  const SharedText& name = graph_.Joints[joint].Name;
  return odd_ == OddNames::InBrackets && IsOdd(name) ? SharedText(InBrackets(name)) : name;
}

SharedText DistinctNames::OwnOfForce(const PlacedUnknown& unknown) const {
  return odd_ == OddNames::InBrackets && IsOddForForce(unknown.Name) ? SharedText(InBrackets(unknown.Name))
                                                                     : unknown.Name;
}

std::string DistinctNames::ForceInEquation(int unknown) const {
  const SharedText& name = forces_[unknown];
  const bool isPlain = ofForces_[unknown] == Own::Tells && !IsOddForForce(graph_.Unknowns[unknown].Name);
  const bool hasBrackets = ofForces_[unknown] == Own::Tells && odd_ == OddNames::InBrackets;
  return isPlain || hasBrackets ? name.String() : InBrackets(name);
}

void DistinctNames::NameJoints() {
  for (int j = 1; j <= graph_.NumJoints(); ++j) {
    if (ofJoints_[j] == Own::IsMissing) {
      joints_[j] = places_[j];
    } else {
      joints_[j] = OwnOfJoint(j);
      if (ofJoints_[j] == Own::IsShared) joints_[j] = joints_[j] + " at " + places_[j];
    }
  }
}

void DistinctNames::NameForces() {
  std::map<std::string, int> count;
  for (int k = 1; k <= graph_.NumUnknowns(); ++k) {
    forces_[k] = NameOf(graph_.Unknowns[k], ofForces_[k]);
    if (ofForces_[k] != Own::Tells) ++count[forces_[k]];
  }
  std::map<std::string, int> number;
  for (int k = 1; k <= graph_.NumUnknowns(); ++k) {
    if (ofForces_[k] == Own::Tells || count[forces_[k]] == 1) continue;
    const int ofTheSame = ++number[forces_[k]];
    forces_[k] = forces_[k] + " #" + std::to_string(ofTheSame);
  }
}

std::string DistinctNames::EndsOf(const PlacedUnknown& member) const {
  return joints_[member.JointA] + " to " + joints_[member.JointB];
}

SharedText DistinctNames::NameOf(const PlacedUnknown& unknown, Own own) const {
  if (own == Own::Tells) return OwnOfForce(unknown);
  const bool isShared = own == Own::IsShared;
  if (unknown.IsMember())
    return isShared ? OwnOfForce(unknown) + " (" + EndsOf(unknown) + ")" : MemberWord + EndsOf(unknown);
  const std::string axis = unknown.Along == Axis::X ? "x" : "y";
  const std::string at = "at " + joints_[unknown.JointA];
  if (isShared) return OwnOfForce(unknown) + " (along " + axis + ' ' + at + ")";
  return axis + "-reaction " + at;
}

std::string DistinctNames::Member(int unknown) const {
  const bool isByItsEnds = ofForces_[unknown] == Own::IsMissing && graph_.Unknowns[unknown].IsMember();
  return isByItsEnds ? std::string(forces_[unknown].View().substr(std::string_view(MemberWord).size()))
                     : forces_[unknown].String();
}

std::string DistinctNames::ReactionInWords(int unknown) const {
  return (ofForces_[unknown] == Own::IsMissing ? "the " : "the reaction ") + forces_[unknown];
}

std::string DistinctNames::JointInWords(int joint) const {
  return (ofJoints_[joint] == Own::IsMissing ? "the joint at " : "joint ") + joints_[joint];
}

std::string DistinctNames::JointWithPlace(int joint) const {
  return (ofJoints_[joint] == Own::IsMissing ? "the joint at " : "joint ") + WithPlace(joint);
}

std::string DistinctNames::WithPlace(int joint) const {
  return joints_[joint] + (ofJoints_[joint] == Own::Tells ? " at " + places_[joint] : "");
}

std::string DistinctNames::Equation(int joint, Axis axis) const {
  const std::string letter = axis == Axis::X ? "x" : "y";
  if (ofJoints_[joint] == Own::IsMissing) return letter + " at " + places_[joint];
  return OwnOfJoint(joint) + " - " + letter +
         (ofJoints_[joint] == Own::IsShared ? " at " + places_[joint] : "");
}

std::string DistinctNames::Forces(const std::vector<int>& unknowns, std::size_t most) const {
  std::vector<std::string> list;
  list.reserve(unknowns.size());
  for (const int k : unknowns) list.push_back(forces_[k]);
  return ListOf(list, most);
}

std::string DistinctNames::ForcesAtStart(const std::vector<int>& unknowns, std::size_t most) const {
  const std::string list = Forces(unknowns, most);
  return ofForces_[unknowns.front()] == Own::IsMissing ? Capital(list) : list;
}

std::string DistinctNames::Members(const std::vector<int>& unknowns, std::size_t most) const {
  std::vector<std::string> list;
  list.reserve(unknowns.size());
  for (const int k : unknowns) list.push_back(Member(k));
  return (unknowns.size() == 1 ? "Member " : "Members ") + ListOf(list, most);
}

std::string DistinctNames::Joints(const std::vector<int>& joints, std::size_t most) const {
  if (joints.size() == 1) return JointInWords(joints.front());
  std::vector<std::string> list;
  list.reserve(joints.size());
  for (const int j : joints) list.push_back(joints_[j]);
  return "joints " + ListOf(list, most);
}

std::string DistinctNames::Point(double x, double y) const {
  const int joint = JointAt(x, y);
  return joint != 0 ? JointInWords(joint) : "the point " + PairText(x, y, format_);
}

void DistinctNames::FindSpots() {
  double size = 0;
  for (const PlacedJoint& joint : graph_.Joints.First(graph_.NumJoints()))
    size = std::max({size, std::abs(double{joint.X}), std::abs(double{joint.Y})});
  near_ = size / OfTheSize;
  if (near_ == 0) return;
  for (int j = 1; j <= graph_.NumJoints(); ++j) {
    const PlacedJoint& joint = graph_.Joints[j];
    spots_.push_back({CellOf(joint.X, near_), CellOf(joint.Y, near_), j});
  }
  std::ranges::sort(spots_);
}

// 0 when there is none. What is near stands in the same or a neighbouring cell.
int DistinctNames::JointAt(double x, double y) const {
  const double farthest = 2 * OfTheSize * near_;
  if (near_ == 0 || !(std::abs(x) < farthest && std::abs(y) < farthest)) return 0;
  int first = 0;
  const std::int64_t row = CellOf(y, near_);
  for (std::int64_t column = CellOf(x, near_) - 1; column <= CellOf(x, near_) + 1; ++column) {
    const auto begin = std::ranges::lower_bound(spots_, Spot{column, row - 1, 0});
    for (auto spot = begin; spot != spots_.end() && spot->Column == column && spot->Row <= row + 1; ++spot) {
      const PlacedJoint& joint = graph_.Joints[spot->Joint];
      const bool isThere = std::abs(joint.X - x) < near_ && std::abs(joint.Y - y) < near_;
      if (isThere && (first == 0 || spot->Joint < first)) first = spot->Joint;
    }
  }
  return first;
}
