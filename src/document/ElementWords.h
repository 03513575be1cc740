// What the elements of the truss are called in words, for those who cannot see where they stand.
#pragma once

#include <compare>
#include <cstdint>
#include <string>

#include "document/Truss.h"

/// In the order in which they are told.
enum class ElementKind : std::uint8_t { Member, Joint, Support, Force, Label };

/// An element of the truss: a record of the table of its kind.
struct Element {
  ElementKind Kind = ElementKind::Member;
  int Index = 0;  ///< 1-based; of a label its LabelIndex

  friend auto operator<=>(const Element&, const Element&) = default;
};

// All texts are single-byte texts; names stand in them as they are. Numbers are those of the value editor,
// with the decimal separator of the user's locale.

/// "(3, 4)"; where the separator is a comma, "(0,5; 4)".
std::string PointInWords(float x, float y, const std::string& separator);

/// "member AB from (0, 0) to (3, 0)", "joint A at (3, 4)"; without the name where there is none yet.
/// "clamp at (0, 0), forces Ax and Ay", "roller at (4, 0), force B"; what is not named yet is told as such.
/// "force at (3, 4), 0 right, 1000 down".
/// "name AB of the member from (0, 0) to (3, 0)"; "no name yet: x-reaction of the clamp at (0, 0)".
/// The index must be one of the kind's table, and of labels one that names something, else the text is empty.
std::string InWords(const Truss& truss, const Element& element, const std::string& separator);

/// What belongs to it besides: of a joint how many members meet there, and what supports and loads it ("2
/// members, a clamp, a force"); of a roller in which direction it pushes ("pushes up"), of a clamp that it
/// holds both ways. Empty for the others.
std::string MoreInWords(const Truss& truss, const Element& element);

/// How many there are of each kind: "3 members, a clamp, a roller, a force"; "nothing drawn yet".
std::string AllInWords(const Truss& truss);
