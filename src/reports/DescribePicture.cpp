#include "reports/DescribePicture.h"

#include <algorithm>

namespace {

std::string Counted(int number, const std::string& thing) {
  return (number == 0 ? "no" : std::to_string(number)) + ' ' + thing + (number == 1 ? "" : "s");
}

std::string Supports(const Truss& truss) {
  int clamps = 0;
  for (const SupportRec& support : truss.SupportsInUse()) clamps += int{support.Live && support.IsClamp()};
  const int all = NumLiveSupports(truss);
  std::string text = Counted(all, "support");
  if (all > 0) text += " (" + Counted(clamps, "clamp") + ", " + Counted(all - clamps, "roller") + ')';
  return text;
}

std::string Forces(const Truss& truss, bool values) {
  const int forces = NumActiveForces(truss);
  return Counted(forces, "applied force") + (values && forces > 0 ? " (its size beside each arrow)" : "");
}

// How many names the picture shows, and how many of them are still to be given.
struct Names {
  explicit Names(const Truss& truss) : truss_(truss) {
    for (const MemberRec& member : truss.MembersInUse()) {
      if (member.Live) Count(member.NameLabel1);
    }
    for (const SupportRec& support : truss.SupportsInUse()) {
      if (!support.Live) continue;
      Count(support.NameLabel1);
      if (support.IsClamp()) Count(support.NameLabel2);
    }
    for (const JointRec& joint : truss.JointsInUse()) Count(joint.NameLabel);
  }

  std::string Told() const {
    if (all_ > 0 && unnamed_ == all_) return "Nothing is named yet.";
    std::string text = "Joints, member forces and reaction forces are named";
    if (unnamed_ > 0) text += ", but for " + std::to_string(unnamed_) + " of " + std::to_string(all_);
    return text + '.';
  }

 private:
  void Count(LabelIndex label) {
    ++all_;
    unnamed_ += int{label == 0 || truss_.Name(label) == UnnamedCaption};
  }

  const Truss& truss_;
  int all_ = 0, unnamed_ = 0;
};

}  // namespace

std::string DescribePicture(const Truss& truss, PictureContent content) {
  return "Drawing of a truss with " + Counted(NumLiveMembers(truss), "member") + ", " +
         Counted(truss.NumJoints, "joint") + ", " + Supports(truss) + " and " +
         Forces(truss, content.ForceValues) + ". " +
         (content.Names ? Names(truss).Told() : "Names are not shown.");
}
