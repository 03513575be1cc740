// How many vectors are independent, for comparing.
#pragma once

#include <vector>

/// By elimination with complete pivoting in double precision; what is smaller than 1e-7 is 0.
int NumericRank(std::vector<std::vector<double>> rows);
