// Threads live as long as the job; starting one costs less than a thousandth of the jobs that ask for it.
#include "analysis/Parallel.h"

#include <system_error>
#include <thread>
#include <vector>

void RunInParallel(unsigned numThreads, const std::function<void()>& job) {
  if (numThreads == 0) numThreads = std::thread::hardware_concurrency();
  std::vector<std::thread> helpers;
  try {
    for (unsigned started = 1; started < numThreads; ++started) helpers.emplace_back(job);
  } catch (const std::system_error&) {
    // No thread to be had: those that run take its share.
  }
  job();
  for (std::thread& helper : helpers) helper.join();
}
