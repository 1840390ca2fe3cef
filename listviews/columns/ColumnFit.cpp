#include "listviews/columns/ColumnFit.h"

#include <algorithm>
#include <numeric>

namespace listviews
{
namespace
{
constexpr int kLeastRows = 64; // are looked at for longer: a font's first texts take their time
constexpr int kPatience = 5;

// Near the golden section of the rows, where steps spread best, and without a common divisor.
long long StepOf(int count)
{
    long long step = std::max(1LL, static_cast<long long>(count * 0.618034));
    while (std::gcd(step, static_cast<long long>(count)) != 1)
    {
        ++step;
    }
    return step;
}
} // namespace

int WidestRow(std::pair<int, int> seen, int count, std::chrono::steady_clock::duration time,
              const std::function<int(int row)>& measure)
{
    const auto start = std::chrono::steady_clock::now();
    const auto isTime = [&](int looked)
    {
        const int patience = looked < kLeastRows && time >= k_FitTime ? kPatience : 1;
        return std::chrono::steady_clock::now() < start + patience * time;
    };
    const int  visible = std::max(seen.second - seen.first, 0);
    const int  most = visible + std::min(count, k_MostSampledRows);
    const auto step = StepOf(std::max(count, 1));
    int        widest = 0;
    for (int i = 0; i < most && isTime(i); ++i)
    {
        const int row =
            i < visible ? seen.first + i : static_cast<int>((i - visible) * step % count);
        widest = std::max(widest, measure(row));
    }
    return widest;
}
} // namespace listviews
