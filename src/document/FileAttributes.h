// What the system keeps of a file besides its bytes.
#pragma once

#include <sys/stat.h>

/// Gives the open file `to` the owner, group, mode, access list and other extended attributes of the open
/// file `from`, whose status is `old`. Returns false when not the same people could use it in the same way;
/// other attributes are kept as far as the system allows.
[[nodiscard]] bool KeepAttributes(int from, const struct stat& old, int to);
