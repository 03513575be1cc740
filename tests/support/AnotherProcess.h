// A part of a test that another process runs, because it is killed or becomes another user in it.
#pragma once

#include <gtest/gtest.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <functional>
#include <string>

/// A user who owns nothing.
inline constexpr uid_t Nobody = 65534;

/// What `act` says in a process of its own, which ends without any cleaning up.
inline std::string InAnotherProcess(const std::function<std::string()>& act) {
  std::array<int, 2> ends{};
  EXPECT_EQ(pipe(ends.data()), 0);
  const pid_t child = fork();
  if (child == 0) {
    const std::string answer = act();
    _exit(write(ends[1], answer.data(), answer.size()) == static_cast<ssize_t>(answer.size()) ? 0 : 1);
  }
  close(ends[1]);
  std::string answer(1000, '\0');
  answer.resize(static_cast<std::size_t>(std::max<ssize_t>(read(ends[0], answer.data(), answer.size()), 0)));
  close(ends[0]);
  int status = -1;
  waitpid(child, &status, 0);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "the process did not end by itself";
  return answer;
}
