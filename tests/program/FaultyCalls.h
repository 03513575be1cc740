// Calls of the system that fail on purpose inside the program that links FaultyCalls.cpp.
#pragma once

#include <cstddef>

enum class FaultyCalls { None, Changes, Reads, Memory };  // see FaultyCalls.cpp
enum class FaultKind { Fail, Short, Kill };

struct FaultPlan {
  FaultyCalls Calls = FaultyCalls::None;
  FaultKind Kind = FaultKind::Fail;
  long At = 0;                      ///< the call that fails, from 1; 0: none
  int Error = 0;                    ///< its errno
  std::size_t LeastAllocation = 0;  ///< smaller ones are not counted, bytes
};

/// Calls of this kind count from now on.
void ArmFaults(const FaultPlan& plan);

/// No call counts any more. Returns how many did.
long DisarmFaults();
