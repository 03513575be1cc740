// Runs one job on several threads at once; the copies share the work out among themselves.
#pragma once

#include <functional>

/// Runs `job` on `numThreads` threads, this one included (0: as many as the machine has), and returns when
/// all have ended. Where no more threads can be had, fewer do the work. What a copy throws, the first to do
/// so, is thrown here when all have ended.
void RunInParallel(unsigned numThreads, const std::function<void()>& job);
