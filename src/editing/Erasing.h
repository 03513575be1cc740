// Erasing: the record stays in its table and is skipped by everyone; its labels are given up.
#pragma once

#include "editing/EditingContext.h"
#include "editing/Picking.h"

/// Erases a live member or support, or an active force, and redraws. Supports have no selection of their own.
void EraseObject(const EditingContext& on, const Selection& object);
void EraseSupport(const EditingContext& on, int support);
