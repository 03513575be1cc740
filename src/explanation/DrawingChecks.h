// Oversights of the drawing that the equations take at their word: what was meant to meet and does not, what
// lies on one another, what stands alone.
#pragma once

#include <string>
#include <vector>

#include "analysis/FormatSigFigs.h"
#include "document/Truss.h"
#include "explanation/NearPlaces.h"

enum class CheckKind {
  NearEnds,            ///< two joints nearly meet
  ThroughJoint,        ///< a member passes through a joint at which it does not end
  CoincidentMembers,   ///< two members lie on one another, all along or for a part
  NoLength,            ///< a member begins and ends at one joint
  CoincidentSupports,  ///< two supports stand at one place
  Apart,               ///< a support or a force touches no member
  SingleMemberJoint,   ///< a joint has one member and no support
  OutsideDrawing,      ///< a reaction is drawn outside the canvas
  EqualNames,          ///< joints have one name, or members and reactions
};

/// "near-ends", "through-joint" ...: the words by which programs know the kinds; null for a kind that is told
/// to people only.
const char* KindWord(CheckKind kind);

struct DrawingCheck {
  CheckKind Kind = CheckKind::NearEnds;
  float X = 0, Y = 0;  ///< where to look, world coordinates
  std::string Text;    ///< by name and place, a single-byte text
};

inline constexpr const char* ChecksHeading = "Checks of the drawing:";
inline constexpr const char* NothingFoundText = "Nothing was found.";

/// Joints that nearly meet, members through joints and members on one another are told up to this many of
/// each, the last with the words that there are more: of n elements at one place there would be n squared.
inline constexpr int MostPairs = 100;

/// All findings, by kind in the order of CheckKind. Joints nearly meet when the mouse would join them, or
/// when they are not farther apart than a thousandth of the drawing's width; a joint is on a member within
/// that thousandth. The joint list and the view must be up to date.
std::vector<DrawingCheck> CheckDrawing(const Truss& truss, const DrawnWhere& where,
                                       const ReportFormat& format);
