// Rows, columns and joints are counted in int here, as the truss counts them, the places of a vector in
// std::size_t.
#pragma once

#include <cstddef>

/// `index` is not negative.
constexpr std::size_t At(int index) { return static_cast<std::size_t>(index); }
