// A double quote ends a name early in a truss file, and what follows it shifts all fields behind it.
#pragma once

#include <string>

#include "document/Truss.h"

/// The first element, in the order of the file, whose name a truss file cannot hold: `member "p"q,r"`. UTF-8
/// on one line, a very long name cut short; empty when every name can stand in a file.
std::string ElementWithBrokenName(const Truss& truss);
