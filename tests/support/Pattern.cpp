#include "Pattern.h"

#include <regex>

struct Pattern::Compiled {
  std::regex Expression;
};

namespace {

Pattern::Parts PartsOf(const std::smatch& match) {
  Pattern::Parts parts;
  for (const std::ssub_match& part : match) parts.push_back(part.str());
  return parts;
}

}  // namespace

Pattern::Pattern(std::string_view expression)
    : compiled_(new Compiled{std::regex(expression.begin(), expression.end(), std::regex::optimize)}) {}

Pattern::~Pattern() = default;

std::optional<Pattern::Parts> Pattern::Whole(const std::string& text) const {
  std::smatch match;
  if (!std::regex_match(text, match, compiled_->Expression)) return std::nullopt;
  return PartsOf(match);
}

std::vector<Pattern::Parts> Pattern::All(const std::string& text) const {
  std::vector<Parts> all;
  for (std::sregex_iterator found(text.begin(), text.end(), compiled_->Expression), end; found != end;
       ++found)
    all.push_back(PartsOf(*found));
  return all;
}
