// Whether the document differs from its file. There is no changed flag: the question is answered by reading
// the file, so that undoing an edit by hand, or editing the file elsewhere, gives the true answer.
#pragma once

#include "document/Truss.h"

/// True if the truss differs from the file FileName, or was never saved. A truss without a live element never
/// counts as changed, and settings never do. A file that cannot be read back counts as changed. The joint
/// list is sorted by name on the way.
bool TrussChanged(Truss& truss);
