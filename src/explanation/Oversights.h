// Oversights of a drawing that let its truss move, and what its author most likely meant. As all advice each
// has been judged exactly.
#pragma once

#include <vector>

#include "explanation/Advice.h"

/// Of a truss that can move, in this order:
/// Joints of forces where nothing else is: the forces are to be moved to other joints.
/// Members that are drawn across joints where they do not end, to be drawn in parts that do, where that stops
/// a motion. Nothing is said of joints without a member or a support, or that nearly meet the member's end.
/// Rollers that stand alone and would stop a motion of the whole truss if they were clamps; none where
/// `others` turn a roller, or add one that makes the same clamp.
std::vector<Advice> Oversights(const TrussGraph& graph, const ExactReasons& reasons, const NearPlaces& near,
                               const std::vector<Advice>& others);
