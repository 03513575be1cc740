// What happens at a call of the system, in the program that links AtCall.cpp: that it fails, or that somebody
// else changes the disk just before it.
#pragma once

#include <functional>
#include <string>
#include <utility>

class AtCall {
 public:
  /// As long as this lives: before the call of this name ("fchown") that comes after `passed` others of the
  /// same name, `act` is done once. It returns the error (of <cerrno>) with which the call fails; 0: the call
  /// is made.
  AtCall(std::string name, std::function<int()> act, int passed = 0);
  AtCall(const AtCall&) = delete;
  AtCall& operator=(const AtCall&) = delete;
  ~AtCall();

  bool HasCome() const { return passed_ < 0; }

  /// For the functions in AtCall.cpp: the error with which this call fails, 0 for none.
  static int ErrorOf(const char* name);

 private:
  std::string name_;
  std::function<int()> act_;
  int passed_;
  AtCall* other_;  // there may be several at a time
};

/// The call fails with this error.
inline std::function<int()> Fails(int error) {
  return [error] { return error; };
}
