#pragma once

#include <chrono>
#include <functional>
#include <utility>

namespace listviews
{
constexpr int  k_MostSampledRows = 10000;
constexpr auto k_FitTime = std::chrono::milliseconds(16);    // for one column, and its title
constexpr auto k_FitAllTime = std::chrono::milliseconds(80); // for all of them

/// The most that `measure` gives for the rows from `seen.first` up to, without, `seen.second`, and
/// for a sample of the `count` rows, as far as the time goes. Wherever that ends, the rows looked
/// at lie all over the list. The first dozens have five times `k_FitTime` when all of that is
/// given, so that a short list is looked at as a whole.
int WidestRow(std::pair<int, int> seen, int count, std::chrono::steady_clock::duration time,
              const std::function<int(int row)>& measure);
} // namespace listviews
