#include "document/BrokenName.h"

#include "text/CodePage.h"
#include "text/ControlCharacters.h"

namespace {

bool IsBroken(std::string_view name) { return name.find('"') != std::string_view::npos; }

std::string WithKind(const char* kind, std::string_view name) {
  constexpr std::size_t longest = 40;
  const std::string shown = std::string(name.substr(0, longest)) + (name.size() > longest ? "..." : "");
  return std::string(kind) + " \"" + VisibleText(ToUtf8(shown)) + '"';
}

}  // namespace

std::string ElementWithBrokenName(const Truss& truss) {
  for (const SupportRec& support : truss.SupportsInUse()) {
    if (!support.Live) continue;
    const SharedText& first = truss.Name(support.NameLabel1);
    if (IsBroken(first)) return WithKind("reaction", first);
    if (support.IsClamp() && IsBroken(truss.Name(support.NameLabel2))) {
      return WithKind("reaction", truss.Name(support.NameLabel2));
    }
  }
  for (const MemberRec& member : truss.MembersInUse()) {
    if (!member.Live) continue;
    for (const LabelIndex label : {member.NameLabel1, member.NameLabel2}) {
      if (IsBroken(truss.Name(label))) return WithKind("member", truss.Name(label));
    }
  }
  for (const JointRec& joint : truss.JointsInUse()) {
    if (IsBroken(truss.Name(joint.NameLabel))) return WithKind("joint", truss.Name(joint.NameLabel));
  }
  return "";
}
