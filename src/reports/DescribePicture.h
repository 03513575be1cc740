// What a picture of the truss shows, in words, for those who cannot see it.
#pragma once

#include <string>

#include "document/Truss.h"
#include "reports/TrussPaint.h"

/// How many members, joints, supports and applied forces there are to be seen, and whether they are named.
/// ASCII. The joint list must be up to date.
std::string DescribePicture(const Truss& truss, PictureContent content);
