#include "editing/EditingWords.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "editing/Picking.h"
#include "editing/Supports.h"

namespace {

// Nothing without an object.
std::string InWords(const Truss& truss, const Selection& object, const std::string& separator) {
  if (object.Type == ObjectType::None) return {};
  const ElementKind kind = object.Type == ObjectType::Member ? ElementKind::Member : ElementKind::Force;
  return InWords(truss, Element{kind, object.Index}, separator);
}

// "joint A", "joint", "grid point"; nothing where it is the cursor's place alone that counts.
std::string SnapInWords(const Truss& truss, const SnappedPoint& point) {
  for (const JointRec& joint : truss.JointsInUse()) {
    if (joint.X != point.X || joint.Y != point.Y) continue;
    const bool named = joint.NameLabel != 0 && !truss.Name(joint.NameLabel).empty() &&
                       truss.Name(joint.NameLabel) != UnnamedCaption;
    return named ? "joint " + truss.Name(joint.NameLabel) : "joint";
  }
  return truss.Settings.SnapGrid ? "grid point" : "";
}

// What the Move tool takes hold of: an end of a member (1, 2) or the head of a force (3).
std::string HandleInWords(const Truss& truss, const Selection& object, int handle,
                          const std::string& separator) {
  const std::string whole = " of " + InWords(truss, object, separator);
  if (handle == 3) return "the head" + whole;
  const MemberRec& member = truss.Members[object.Index];
  return "the end " +
         (handle == 1 ? PointInWords(member.X1, member.Y1, separator)
                      : PointInWords(member.X2, member.Y2, separator)) +
         whole;
}

std::string UnderInWords(const Truss& truss, const Drawing& drawing, const MouseEditing& editing, Tool tool,
                         PixelPoint at, const std::string& separator) {
  if (editing.IsDragging()) return {};
  if (ActsOnSupports(tool)) {
    const int support = SupportAt(truss, drawing, at.X, at.Y);
    if (support != 0) return InWords(truss, Element{ElementKind::Support, support}, separator);
  }
  if (!ActsOnLines(tool)) return {};
  const int handle = editing.HandleUnder(at);
  if (handle != 0) return HandleInWords(truss, editing.Selected(), handle, separator);
  return InWords(truss, ObjectAt(truss, drawing, at.X, at.Y), separator);
}

bool IsLiveElement(const Truss& truss, const Element& element) {
  const int index = element.Index;
  switch (element.Kind) {
    case ElementKind::Member:
      return index <= truss.NumMembers && truss.Members[index].Live;
    case ElementKind::Support:
      return index <= truss.NumSupports && truss.Supports[index].Live;
    default:
      return index <= truss.NumForces && truss.Forces[index].Active;
  }
}

// What has begun to be dragged at the cursor.
std::string DragInWords(const Truss& truss, const Drawing& drawing, const MouseEditing& editing, Tool tool,
                        PixelPoint cursor, const std::string& separator) {
  if (editing.ActionCode() != 0)
    return "moving " + HandleInWords(truss, editing.Selected(), editing.ActionCode(), separator);
  const int support = tool == Tool::Move ? SupportAt(truss, drawing, cursor.X, cursor.Y) : 0;
  if (support != 0) return "moving " + InWords(truss, Element{ElementKind::Support, support}, separator);
  const auto from = editing.LocationOf(cursor);
  return "from " + CursorInWords(truss, drawing, editing, tool, from ? from->Pixel : cursor, separator);
}

// With the Move tool it is the ends and heads that are moved, by a press of their own.
std::string PickedInWords(const Truss& truss, const MouseEditing& editing, Tool tool,
                          const std::string& separator) {
  const Selection picked = editing.Selected();
  if (picked.Type == ObjectType::None) return "nothing changed";
  const std::string words = "picked " + InWords(truss, picked, separator);
  if (tool != Tool::Move) return words;
  if (picked.Type == ObjectType::Member) return words + "; its ends can be moved";
  const ForceRec& force = truss.Forces[picked.Index];
  const auto head = editing.LocationOf({force.PixX2, force.PixY2});
  return words + "; its head" + (head ? " at " + PointInWords(head->X, head->Y, separator) : "") +
         " can be moved";
}

std::string WholeInWords(const Truss& truss, const Element& element, const std::string& separator) {
  const std::string more = MoreInWords(truss, element);
  return InWords(truss, element, separator) + (more.empty() ? "" : ", " + more);
}

}  // namespace

std::string CursorInWords(const Truss& truss, const Drawing& drawing, const MouseEditing& editing, Tool tool,
                          PixelPoint cursor, const std::string& separator) {
  const auto point = editing.LocationOf(cursor);
  if (!point) return {};
  constexpr float samePlace = 0.5F;
  const bool isThere =
      std::abs(point->Pixel.X - cursor.X) <= samePlace && std::abs(point->Pixel.Y - cursor.Y) <= samePlace;
  std::string words = (isThere ? "" : "snaps to ") + PointInWords(point->X, point->Y, separator);
  for (const auto& [before, more] :
       {std::pair(", ", SnapInWords(truss, *point)),
        std::pair(", on ", UnderInWords(truss, drawing, editing, tool, cursor, separator))}) {
    if (!more.empty()) words += before + more;
  }
  return words;
}

std::string PressInWords(const ChangesInWords& before, const Truss& truss, const Drawing& drawing,
                         const MouseEditing& editing, Tool tool, PixelPoint cursor,
                         const std::string& separator) {
  if (editing.IsDragging()) return DragInWords(truss, drawing, editing, tool, cursor, separator);
  const std::string changes = before.Since(truss, separator);
  return changes.empty() ? PickedInWords(truss, editing, tool, separator) : changes;
}

std::string ChangesInWords::Since(const Truss& now, const std::string& separator) const {
  constexpr int mostTold = 3;
  std::string words;
  int changes = 0;
  const auto tell = [&](const char* what, const std::string& element) {
    if (++changes <= mostTold) words += (words.empty() ? "" : "; ") + std::string(what) + element;
  };
  const auto compare = [&](ElementKind kind, int numBefore, int numNow) {
    for (int i = 1; i <= std::max(numBefore, numNow); ++i) {
      const Element element{kind, i};
      const bool was = IsLiveElement(before_, element);
      const bool is = IsLiveElement(now, element);
      if (is && !was) tell("made ", InWords(now, element, separator));
      if (was && !is) tell("erased ", InWords(before_, element, separator));
      if (!was || !is) continue;
      const std::string whole = WholeInWords(now, element, separator);
      if (whole != WholeInWords(before_, element, separator)) tell("now ", whole);
    }
  };
  compare(ElementKind::Member, before_.NumMembers, now.NumMembers);
  compare(ElementKind::Support, before_.NumSupports, now.NumSupports);
  compare(ElementKind::Force, before_.NumForces, now.NumForces);
  if (changes > mostTold) words += " and " + std::to_string(changes - mostTold) + " more changes";
  return words;
}
