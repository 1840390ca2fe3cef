#include "monitor/HeightShare.h"

#include <algorithm>
#include <cstddef>

std::vector<int> ShareHeight(int total, const std::vector<HeightWish>& wishes)
{
    std::vector<int> heights;
    int              left = total;
    for (const HeightWish& wish : wishes)
    {
        heights.push_back(wish.least);
        left -= wish.least;
    }
    // A little to each that could use it, until there is none, or nobody wants more.
    for (bool isGiven = true; isGiven && left > 0;)
    {
        isGiven = false;
        for (size_t i = 0; i < wishes.size() && left > 0; ++i)
        {
            if (heights[i] < wishes[i].content)
            {
                ++heights[i];
                --left;
                isGiven = true;
            }
        }
    }
    if (!heights.empty())
    {
        heights.back() += std::max(left, 0);
    }
    return heights;
}
