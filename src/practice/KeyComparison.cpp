#include "practice/KeyComparison.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include "explanation/Directions.h"
#include "practice/CsvReading.h"
#include "practice/JointMatch.h"
#include "text/CodePage.h"

namespace {

constexpr double SharesOfGrid = 0.1;
constexpr double SameLoad = 1e-5;

std::string PlaceText(double x, double y, const ReportFormat& format) { return PairText(x, y, format); }

using Ends = std::pair<int, int>;               // joints of the key, the smaller number first
using Pushes = std::set<std::pair<Axis, int>>;  // axis and sign

struct Resultant {
  double X = 0, Y = 0;
};

Ends EndsOf(int a, int b) { return {std::min(a, b), std::max(a, b)}; }

std::map<Ends, std::vector<int>> MembersByEnds(const TrussGraph& graph) {
  std::map<Ends, std::vector<int>> members;
  for (int k = 1; k <= graph.NumUnknowns(); ++k) {
    const PlacedUnknown& unknown = graph.Unknowns[k];
    if (unknown.IsMember()) members[EndsOf(unknown.JointA, unknown.JointB)].push_back(k);
  }
  return members;
}

std::map<int, Pushes> SupportsByJoint(const TrussGraph& graph) {
  std::map<int, Pushes> supports;
  for (int k = 1; k <= graph.NumUnknowns(); ++k) {
    const PlacedUnknown& unknown = graph.Unknowns[k];
    if (!unknown.IsMember()) supports[unknown.JointA].insert({unknown.Along, unknown.Sign});
  }
  return supports;
}

std::map<int, Resultant> LoadsByJoint(const TrussGraph& graph) {
  std::map<int, Resultant> loads;
  for (const PlacedLoad& load : graph.Loads) {
    loads[load.Joint].X += static_cast<double>(load.Fx);
    loads[load.Joint].Y += static_cast<double>(load.Fy);
  }
  std::erase_if(loads, [](const auto& load) { return load.second.X == 0 && load.second.Y == 0; });
  return loads;
}

std::string SupportText(const Pushes& pushes) {
  if (pushes.size() == 2 && pushes.contains({Axis::X, 1}) && pushes.contains({Axis::Y, 1})) return "a clamp";
  if (pushes.size() > 1) return "more than one support";
  const auto [axis, sign] = *pushes.begin();
  if (axis == Axis::X) return std::string("a roller that pushes to the ") + (sign > 0 ? "right" : "left");
  return std::string("a roller that pushes ") + (sign > 0 ? "up" : "down");
}

class Comparer {
 public:
  Comparer(const DrawnTruss& key, const DrawnTruss& drawn, double nearX, double nearY,
           const ReportFormat& format)
      : key_(key), drawn_(drawn), format_(format), match_(key.Graph, drawn.Graph, nearX, nearY) {}

  KeyComparison Compare() {
    TellNearJoints();
    CompareMembers();
    CompareSupports();
    CompareLoads();
    if (result_.IsSame()) CompareValues();
    return std::move(result_);
  }

 private:
  std::string At(const TrussGraph& graph, int joint) const {
    return PlaceText(graph.Joints[joint].X, graph.Joints[joint].Y, format_);
  }
  std::string InKey(int joint) const { return At(key_.Graph, joint); }
  std::string InDrawing(int joint) const { return At(drawn_.Graph, joint); }

  void Remark(std::string text) { result_.Remarks.push_back(std::move(text)); }

  void TellNearJoints() {
    for (int j = 1; j <= drawn_.Graph.NumJoints(); ++j) {
      const int joint = match_.OfDrawn(j);
      if (joint != 0 && !match_.IsExact(j))
        Remark("The joint at " + InDrawing(j) + " is taken for that at " + InKey(joint) + " of the key.");
      if (joint == 0 && match_.NearestTo(j) != 0)
        Remark("The end at " + InDrawing(j) + " is not joined to the joint at " + InKey(match_.NearestTo(j)) +
               '.');
    }
  }

  void CompareMembers() {
    const auto wanted = MembersByEnds(key_.Graph);
    std::map<Ends, std::vector<int>> found;
    for (const auto& [ends, members] : MembersByEnds(drawn_.Graph)) {
      const int a = match_.OfDrawn(ends.first);
      const int b = match_.OfDrawn(ends.second);
      const auto inKey = wanted.find(EndsOf(a, b));
      const std::size_t numWanted = a == 0 || b == 0 || inKey == wanted.end() ? 0 : inKey->second.size();
      for (std::size_t i = numWanted; i < members.size(); ++i) {
        ++result_.Members.TooMany;
        Remark("The member from " + InDrawing(ends.first) + " to " + InDrawing(ends.second) +
               (numWanted == 0 ? " is not in the key." : " is there once too often."));
      }
      if (numWanted > 0) found[EndsOf(a, b)] = members;
    }
    for (const auto& [ends, members] : wanted) {
      const std::vector<int>& drawn = found[ends];
      for (std::size_t i = drawn.size(); i < members.size(); ++i) {
        ++result_.Members.Missing;
        Remark("The member from " + InKey(ends.first) + " to " + InKey(ends.second) + " is missing.");
      }
      for (std::size_t i = 0; i < std::min(drawn.size(), members.size()); ++i)
        unknowns_.emplace_back(members[i], drawn[i]);
    }
  }

  // Of the key's joints and the drawing's that are the same; those of the drawing alone have a key joint of
  // 0.
  template <class Value>
  struct AtJoint {
    std::map<int, Value> Taken;                    // by joint of the key
    std::vector<std::pair<int, Value>> Elsewhere;  // by joint of the drawing
  };
  template <class Value>
  AtJoint<Value> ByKeyJoint(const std::map<int, Value>& drawn) const {
    AtJoint<Value> sorted;
    for (const auto& [joint, value] : drawn) {
      if (match_.OfDrawn(joint) != 0) {
        sorted.Taken.emplace(match_.OfDrawn(joint), value);
      } else {
        sorted.Elsewhere.emplace_back(joint, value);
      }
    }
    return sorted;
  }

  template <class Value, class Same, class Text>
  Difference CompareAtJoints(const std::map<int, Value>& wanted, const std::map<int, Value>& drawn, Same same,
                             Text text) {
    Difference difference;
    const auto tooMany = [&](const std::string& place, const Value& value) {
      ++difference.TooMany;
      Remark("At " + place + " stands " + text(value) + ", which is not in the key.");
    };
    const AtJoint<Value> found = ByKeyJoint(drawn);
    for (const auto& [joint, value] : wanted) {
      const auto other = found.Taken.find(joint);
      if (other == found.Taken.end()) {
        ++difference.Missing;
        Remark("At " + InKey(joint) + ' ' + text(value) + " is missing.");
      } else if (!same(value, other->second)) {
        ++difference.Missing;
        ++difference.TooMany;
        Remark("At " + InKey(joint) + " stands " + text(other->second) + " in place of " + text(value) + '.');
      }
    }
    for (const auto& [joint, value] : found.Taken) {
      if (!wanted.contains(joint)) tooMany(InKey(joint), value);
    }
    for (const auto& [joint, value] : found.Elsewhere) tooMany(InDrawing(joint), value);
    return difference;
  }

  void CompareSupports() {
    result_.Supports = CompareAtJoints(SupportsByJoint(key_.Graph), SupportsByJoint(drawn_.Graph),
                                       std::equal_to<Pushes>(), SupportText);
  }

  void CompareLoads() {
    const auto same = [](const Resultant& a, const Resultant& b) {
      return std::hypot(a.X - b.X, a.Y - b.Y) <= SameLoad * std::hypot(a.X, a.Y);
    };
    const auto text = [this](const Resultant& load) {
      return "a load of " + PairText(load.X, load.Y, format_);
    };
    result_.Loads = CompareAtJoints(LoadsByJoint(key_.Graph), LoadsByJoint(drawn_.Graph), same, text);
  }

  void MatchReactions() {
    std::map<std::pair<int, std::pair<Axis, int>>, int> inKey;
    for (int k = 1; k <= key_.Graph.NumUnknowns(); ++k) {
      const PlacedUnknown& unknown = key_.Graph.Unknowns[k];
      if (!unknown.IsMember()) inKey[{unknown.JointA, {unknown.Along, unknown.Sign}}] = k;
    }
    for (int k = 1; k <= drawn_.Graph.NumUnknowns(); ++k) {
      const PlacedUnknown& unknown = drawn_.Graph.Unknowns[k];
      if (unknown.IsMember()) continue;
      const auto found = inKey.find({match_.OfDrawn(unknown.JointA), {unknown.Along, unknown.Sign}});
      if (found != inKey.end()) unknowns_.emplace_back(found->second, k);
    }
  }

  void CompareValues() {
    MatchReactions();
    const double largest = LargestOf(key_.Solutions);
    result_.AreValuesRight = true;
    for (const auto& [inKey, inDrawing] : unknowns_) {
      const std::optional<double>& wanted = key_.Solutions[inKey];
      const std::optional<double>& found = drawn_.Solutions[inDrawing];
      const bool isRight =
          wanted ? JudgeValue(found, *wanted, largest) == Verdict::Right : !found.has_value();
      if (isRight) continue;
      result_.AreValuesRight = false;
      Remark("The force " + drawn_.Graph.Unknowns[inDrawing].Name + " is " + ValueText(found) +
             " in place of " + ValueText(wanted) + '.');
    }
  }

  std::string ValueText(const std::optional<double>& value) const {
    return value ? FormatSigFigs(*value, format_) : "not determined";
  }

  const DrawnTruss& key_;
  const DrawnTruss& drawn_;
  const ReportFormat& format_;
  JointMatch match_;
  std::vector<std::pair<int, int>> unknowns_;  // of the key and of the drawing
  KeyComparison result_;
};

Resultant LowestCorner(const TrussGraph& graph) {
  Resultant corner{graph.Joints[1].X, graph.Joints[1].Y};
  for (const PlacedJoint& joint : graph.Joints.First(graph.NumJoints())) {
    corner.X = std::min<double>(corner.X, joint.X);
    corner.Y = std::min<double>(corner.Y, joint.Y);
  }
  return corner;
}

// The drawing moved as a whole so that its left and lower edges are those of the key.
struct Shifted {
  DrawnTruss Truss;
  double Dx = 0, Dy = 0;  ///< by which the drawing stands off
};
Shifted OntoKey(const DrawnTruss& key, const DrawnTruss& drawn) {
  const Resultant to = LowestCorner(key.Graph);
  const Resultant from = LowestCorner(drawn.Graph);
  Shifted shifted{drawn, from.X - to.X, from.Y - to.Y};
  for (PlacedJoint& joint : shifted.Truss.Graph.Joints.First(drawn.Graph.NumJoints())) {
    joint.X = static_cast<float>(joint.X - shifted.Dx);
    joint.Y = static_cast<float>(joint.Y - shifted.Dy);
  }
  return shifted;
}

}  // namespace

std::string Difference::Text() const {
  return (Missing > 0 ? '-' + std::to_string(Missing) : "") +
         (TooMany > 0 ? '+' + std::to_string(TooMany) : "");
}

KeyComparison CompareWithKey(const DrawnTruss& key, const DrawnTruss& drawn, double gridX, double gridY,
                             const ReportFormat& format) {
  const double nearX = SharesOfGrid * std::abs(gridX);
  const double nearY = SharesOfGrid * std::abs(gridY);
  KeyComparison comparison = Comparer(key, drawn, nearX, nearY, format).Compare();
  if (comparison.IsSame() || key.Graph.NumJoints() == 0 || drawn.Graph.NumJoints() == 0) return comparison;
  const Shifted shifted = OntoKey(key, drawn);
  if (Comparer(key, shifted.Truss, nearX, nearY, format).Compare().IsSame()) {
    comparison.Remarks.insert(comparison.Remarks.begin(), "The whole truss stands off by " +
                                                              PairText(shifted.Dx, shifted.Dy, format) + '.');
  }
  return comparison;
}

std::string ComparisonHeadings() { return "file,truss,members,supports,loads,values,remarks\r\n"; }

std::string ComparisonAsCsv(const std::string& file, const KeyComparison& comparison) {
  std::string text = CsvTextField(file) + (comparison.IsSame() ? ",same" : ",differs");
  for (const Difference* difference : {&comparison.Members, &comparison.Supports, &comparison.Loads})
    text += ',' + difference->Text();
  text += comparison.IsSame() ? (comparison.AreValuesRight ? ",right," : ",wrong,") : ",,";
  std::string remarks;
  for (const std::string& remark : comparison.Remarks) remarks += (remarks.empty() ? "" : " ") + remark;
  return text + CsvTextField(ToUtf8(remarks)) + "\r\n";
}

std::string ComparisonInWords(const KeyComparison& comparison) {
  std::string text = comparison.IsSame()
                         ? (comparison.AreValuesRight ? "This is the truss of the key, with its values."
                                                      : "This is the truss of the key, but its "
                                                        "values differ.")
                         : "This is not the truss of the key.";
  text += '\n';
  for (const std::string& remark : comparison.Remarks) text += ToUtf8(remark) + '\n';
  return text;
}
