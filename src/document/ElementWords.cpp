// What is told of a label is looked for among all that can have one, and only when somebody asks.
#include "document/ElementWords.h"

#include <cmath>

#include "document/SupportReactions.h"
#include "text/NumberText.h"

namespace {

bool IsNamed(const Truss& truss, LabelIndex label) {
  return label != 0 && !truss.Name(label).empty() && truss.Name(label) != UnnamedCaption;
}

// "AB " or nothing.
std::string NameBefore(const Truss& truss, LabelIndex label) {
  return IsNamed(truss, label) ? truss.Name(label) + " " : std::string();
}

std::string MemberPlace(const MemberRec& member, const std::string& separator) {
  return "from " + PointInWords(member.X1, member.Y1, separator) + " to " +
         PointInWords(member.X2, member.Y2, separator);
}

std::string SupportPlace(const SupportRec& support, const std::string& separator) {
  return (support.IsClamp() ? "clamp at " : "roller at ") + PointInWords(support.X, support.Y, separator);
}

std::string ReactionNames(const Truss& truss, const SupportRec& support) {
  const bool first = IsNamed(truss, support.NameLabel1);
  if (!support.IsClamp()) return first ? "force " + truss.Name(support.NameLabel1) : "force not named yet";
  const bool second = IsNamed(truss, support.NameLabel2);
  if (!first && !second) return "forces not named yet";
  const auto name = [&](LabelIndex label, bool named) {
    return named ? truss.Name(label).String() : std::string("one without a name");
  };
  return "forces " + name(support.NameLabel1, first) + " and " + name(support.NameLabel2, second);
}

// "1000 down": a component with the word for its direction, without a sign.
std::string Component(float value, const char* positive, const char* negative, const std::string& separator) {
  return SevenDigitText(double{std::abs(value)}, separator) + ' ' + (value < 0 ? negative : positive);
}

std::string ForceInWords(const ForceRec& force, const std::string& separator) {
  return "force at " + PointInWords(force.X, force.Y, separator) + ", " +
         Component(force.Fx, "right", "left", separator) + ", " +
         Component(force.Fy, "up", "down", separator);
}

std::string JointPlace(const JointRec& joint, const std::string& separator) {
  return "joint at " + PointInWords(joint.X, joint.Y, separator);
}

// What a label names; nothing when it names nothing that is there.
std::string NamedByLabel(const Truss& truss, LabelIndex label, const std::string& separator) {
  for (const MemberRec& member : truss.MembersInUse()) {
    if (member.Live && (member.NameLabel1 == label || member.NameLabel2 == label))
      return "member " + MemberPlace(member, separator);
  }
  for (const SupportRec& support : truss.SupportsInUse()) {
    if (!support.Live) continue;
    const bool isFirst = support.NameLabel1 == label;
    if (!isFirst && !(support.IsClamp() && support.NameLabel2 == label)) continue;
    const bool alongX = DirectionOf(support.TypeIndex, isFirst ? 1 : 2).IsAlongX();
    return (alongX ? "x-reaction of the " : "y-reaction of the ") + SupportPlace(support, separator);
  }
  for (const JointRec& joint : truss.JointsInUse()) {
    if (joint.NameLabel == label) return JointPlace(joint, separator);
  }
  return {};
}

std::string LabelInWords(const Truss& truss, LabelIndex label, const std::string& separator) {
  const std::string named = NamedByLabel(truss, label, separator);
  if (named.empty()) return {};
  return IsNamed(truss, label) ? "name " + truss.Name(label) + " of the " + named : "no name yet: " + named;
}

// "2 members", "a force"; nothing when there are none.
void TellCount(std::string& text, int count, const char* thing) {
  if (count == 0) return;
  if (!text.empty()) text += ", ";
  text += count == 1 ? std::string("a ") + thing : std::to_string(count) + ' ' + thing + 's';
}

std::string TellCounts(int members, int clamps, int rollers, int forces) {
  std::string text;
  TellCount(text, members, "member");
  TellCount(text, clamps, "clamp");
  TellCount(text, rollers, "roller");
  TellCount(text, forces, "force");
  return text;
}

std::string AroundJoint(const Truss& truss, const JointRec& joint) {
  const auto isHere = [&joint](float x, float y) { return x == joint.X && y == joint.Y; };
  int members = 0, clamps = 0, rollers = 0, forces = 0;
  for (const MemberRec& member : truss.MembersInUse())
    members += int{member.Live && (isHere(member.X1, member.Y1) || isHere(member.X2, member.Y2))};
  for (const SupportRec& support : truss.SupportsInUse()) {
    if (support.Live && isHere(support.X, support.Y)) ++(support.IsClamp() ? clamps : rollers);
  }
  for (const ForceRec& force : truss.ForcesInUse()) forces += int{force.Active && isHere(force.X, force.Y)};
  return TellCounts(members, clamps, rollers, forces);
}

std::string HoldsHow(const SupportRec& support) {
  if (support.IsClamp()) return "holds both ways";
  const ReactionDirection direction = DirectionOf(support.TypeIndex, 1);
  if (direction.IsAlongX()) return direction.X > 0 ? "pushes right" : "pushes left";
  return direction.Y > 0 ? "pushes up" : "pushes down";
}

}  // namespace

std::string PointInWords(float x, float y, const std::string& separator) {
  return '(' + SevenDigitText(double{x}, separator) + (separator == "," ? "; " : ", ") +
         SevenDigitText(double{y}, separator) + ')';
}

std::string InWords(const Truss& truss, const Element& element, const std::string& separator) {
  switch (element.Kind) {
    case ElementKind::Member: {
      const MemberRec& member = truss.Members[element.Index];
      return "member " + NameBefore(truss, member.NameLabel1) + MemberPlace(member, separator);
    }
    case ElementKind::Joint: {
      const JointRec& joint = truss.Joints[element.Index];
      return "joint " + NameBefore(truss, joint.NameLabel) + "at " +
             PointInWords(joint.X, joint.Y, separator);
    }
    case ElementKind::Support: {
      const SupportRec& support = truss.Supports[element.Index];
      return SupportPlace(support, separator) + ", " + ReactionNames(truss, support);
    }
    case ElementKind::Force:
      return ForceInWords(truss.Forces[element.Index], separator);
    case ElementKind::Label:
      break;
  }
  return LabelInWords(truss, static_cast<LabelIndex>(element.Index), separator);
}

std::string MoreInWords(const Truss& truss, const Element& element) {
  if (element.Kind == ElementKind::Joint) return AroundJoint(truss, truss.Joints[element.Index]);
  if (element.Kind == ElementKind::Support) return HoldsHow(truss.Supports[element.Index]);
  return {};
}

std::string AllInWords(const Truss& truss) {
  int members = 0, clamps = 0, rollers = 0, forces = 0;
  for (const MemberRec& member : truss.MembersInUse()) members += int{member.Live};
  for (const SupportRec& support : truss.SupportsInUse()) {
    if (support.Live) ++(support.IsClamp() ? clamps : rollers);
  }
  for (const ForceRec& force : truss.ForcesInUse()) forces += int{force.Active};
  const std::string text = TellCounts(members, clamps, rollers, forces);
  return text.empty() ? "nothing drawn yet" : text;
}
