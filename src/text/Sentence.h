// A remark as a sentence of its own.
#pragma once

#include <string>

/// A remark that begins with a small letter and has no full stop gets a capital and a full stop.
inline std::string AsSentence(std::string remark) {
  if (remark.empty()) return remark;
  if (remark[0] >= 'a' && remark[0] <= 'z') remark[0] = static_cast<char>(remark[0] - 'a' + 'A');
  return remark + '.';
}
