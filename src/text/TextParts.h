// A text told part after part, so that a long one never stands in memory as a whole.
#pragma once

#include <functional>
#include <string_view>

/// Takes the next part.
using TakeText = std::function<void(std::string_view part)>;
