#pragma once

#include <cstddef>
#include <vector>

namespace listviews
{
/// Rows that are selected and go from sight with the order that is to be shown.
struct LeavingRows
{
    std::vector<bool> shown;    ///< By item: what stays in sight.
    std::vector<int>  rows;     ///< As they are still shown.
    size_t            told = 0; ///< Those of them that are deselected.
};
} // namespace listviews
