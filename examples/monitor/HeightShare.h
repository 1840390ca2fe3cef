#pragma once

#include <vector>

/// A part of a window that stands above or below others.
struct HeightWish
{
    int content = 0; ///< Pixels in which all that is in it could be seen.
    int least = 0;   ///< Pixels that it gets in any case.
};

/// How parts share a height: each gets what it could use if that is possible; otherwise those that
/// want more than their share have equal parts of the rest. The last one gets what nobody needs.
std::vector<int> ShareHeight(int total, const std::vector<HeightWish>& wishes);
