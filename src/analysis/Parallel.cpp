// Threads live as long as the job; starting one costs less than a thousandth of the jobs that ask for it.
#include "analysis/Parallel.h"

#include <exception>
#include <mutex>
#include <new>
#include <system_error>
#include <thread>
#include <vector>

namespace {

/// What the copies of a job throw: out of a thread nothing may be thrown, as that would end the program.
class FirstFailure {
 public:
  void Run(const std::function<void()>& job) {
    try {
      job();
    } catch (...) {
      const std::scoped_lock lock(mutex_);
      if (!failure_) failure_ = std::current_exception();
    }
  }
  void ThrowIfAny() const {
    if (failure_) std::rethrow_exception(failure_);
  }

 private:
  std::mutex mutex_;
  std::exception_ptr failure_;
};

}  // namespace

void RunInParallel(unsigned numThreads, const std::function<void()>& job) {
  if (numThreads == 0) numThreads = std::thread::hardware_concurrency();
  FirstFailure failure;
  std::vector<std::thread> helpers;
  try {
    if (numThreads > 1) helpers.reserve(numThreads - 1);  // so that none is lost for want of memory
    while (helpers.size() + 1 < numThreads) helpers.emplace_back([&] { failure.Run(job); });
  } catch (const std::system_error&) {
    // No thread to be had: those that run take its share.
  } catch (const std::bad_alloc&) {
    // No memory for a thread: the same.
  }
  failure.Run(job);
  for (std::thread& helper : helpers) helper.join();
  failure.ThrowIfAny();
}
