#pragma once

#include <algorithm>
#include <vector>

namespace appearance
{
/// The order in which things were used, the latest first. Knows them by their addresses only.
template <class Thing> class UseOrder
{
public:
    void Use(const Thing* thing)
    {
        Forget(thing);
        m_Used.insert(m_Used.begin(), thing);
    }
    void Forget(const Thing* thing)
    {
        m_Used.erase(std::remove(m_Used.begin(), m_Used.end(), thing), m_Used.end());
    }
    /// Those in that order; the ones that were never used behind them, in the order that they have.
    std::vector<Thing*> Sorted(std::vector<Thing*> things) const
    {
        const auto rank = [this](const Thing* thing)
        { return std::find(m_Used.begin(), m_Used.end(), thing) - m_Used.begin(); };
        std::vector<std::pair<std::ptrdiff_t, Thing*>> ranked;
        ranked.reserve(things.size());
        for (Thing* const thing : things)
        {
            ranked.emplace_back(rank(thing), thing);
        }
        std::stable_sort(ranked.begin(), ranked.end(),
                         [](const auto& a, const auto& b) { return a.first < b.first; });
        std::transform(ranked.begin(), ranked.end(), things.begin(),
                       [](const auto& each) { return each.second; });
        return things;
    }

private:
    std::vector<const Thing*> m_Used;
};
} // namespace appearance
