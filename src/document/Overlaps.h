// What stands exactly on one another in a truss, where the eye sees one thing and the equations count two.
#pragma once

#include <vector>

#include "document/Truss.h"

/// A place with more than one live support; world coordinates.
struct SupportOverlap {
  float X = 0, Y = 0;
  int Count = 0;  ///< of the supports, 2 or more

  friend bool operator==(const SupportOverlap&, const SupportOverlap&) = default;
};

/// Two ends with more than one live member between them, whichever end each begins at.
struct MemberOverlap {
  int FirstMember = 0;  ///< the first of them in array order
  int Count = 0;        ///< of the members, 2 or more

  friend bool operator==(const MemberOverlap&, const MemberOverlap&) = default;
};

/// In array order of the first support, or member, of each.
struct Overlaps {
  std::vector<SupportOverlap> Supports;
  std::vector<MemberOverlap> Members;
};

/// Places are the same where coordinates are exactly equal, as for joints. Members that lie on one another in
/// part have different ends and are not found.
Overlaps FindOverlaps(const Truss& truss);
