// Builds a truss for a test in a few literal lines, as a user would draw it.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "document/Truss.h"

class TrussBuilder {
 public:
  TrussBuilder& Member(float x1, float y1, float x2, float y2, const std::string& name = UnnamedCaption);
  TrussBuilder& Clamp(float x, float y, const std::string& xName = UnnamedCaption,
                      const std::string& yName = UnnamedCaption, std::int16_t type = 1);
  TrussBuilder& Roller(float x, float y, const std::string& name = UnnamedCaption, std::int16_t type = 5);
  TrussBuilder& Force(float x, float y, float fx, float fy);

  /// Names the joint at a position; the joint must exist when the truss is built.
  TrussBuilder& Joint(float x, float y, const std::string& name);

  /// Erases what was added last, as the Erase tool does: the record stays.
  TrussBuilder& ThenErased();

  /// The truss with its joint list up to date.
  operator Truss() const;

 private:
  enum class Kind { None, Member, Support, Force };

  Truss truss_;
  Kind last_ = Kind::None;
  std::vector<std::pair<std::pair<float, float>, std::string>> jointNames_;
};
