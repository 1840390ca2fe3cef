#include "listviews/arranging/Arrangement.h"

#include "listviews/arranging/NaturalKey.h"

#include <algorithm>

namespace listviews
{
namespace
{
constexpr size_t kStepItems = 4;  // their texts may be long, and the host may take long for them
constexpr size_t kMostText = 512; // bytes of a text that count

// Numbers stand before texts.
constexpr char kNumber = 1;
constexpr char kText = 2;

// Keys of several columns stand behind one another: each text has an end that is less than any
// character.
void AppendKey(std::string& key, ArrangedItems& items, int item, const SortRule& rule)
{
    const size_t begin = key.size();
    if (const std::optional<double> number = items.NumberOf(item, rule.type))
    {
        key += kNumber;
        AppendNumberKey(key, *number);
    }
    else
    {
        key += kText;
        const String text = items.TextOf(item, rule.type);
        AppendNaturalKey(key, std::string_view(text).substr(0, kMostText));
        key += '\0';
    }
    if (!rule.ascending)
    {
        std::transform(key.begin() + static_cast<std::ptrdiff_t>(begin), key.end(),
                       key.begin() + static_cast<std::ptrdiff_t>(begin),
                       [](char c) { return static_cast<char>(~c); });
    }
}
} // namespace

Arrangement::Arrangement(ArrangedItems& items, FilterQuery query, SortRules rules,
                         std::optional<std::vector<int>> among)
    : m_Items(items),
      m_Query(std::move(query)),
      m_Rules(std::move(rules)),
      m_Among(std::move(among)),
      m_End(m_Among ? m_Among->size() : static_cast<size_t>(std::max(items.Count(), 0))),
      m_Sort(m_Rules.empty() ? 0 : m_End)
{
    m_Matching.reserve(m_Rules.empty() ? m_End : 0);
}

void Arrangement::AddKey(int item)
{
    m_Key.clear();
    for (const SortRule& rule : m_Rules)
    {
        AppendKey(m_Key, m_Items, item, rule);
    }
    m_Sort.Add(item, m_Key);
}

bool Arrangement::Step()
{
    if (m_Next == m_End)
    {
        return !m_Rules.empty() && m_Sort.Step();
    }
    // Items may have gone since it began.
    const int count = m_Items.Count();
    for (const size_t end = std::min(m_Next + kStepItems, m_End); m_Next < end; ++m_Next)
    {
        const int item = m_Among ? (*m_Among)[m_Next] : static_cast<int>(m_Next);
        if (item >= count ||
            !m_Query.Matches([this, item](int type) { return m_Items.TextOf(item, type); }))
        {
            continue;
        }
        if (m_Rules.empty())
        {
            m_Matching.push_back(item);
        }
        else
        {
            AddKey(item);
        }
    }
    return m_Next < m_End || !m_Rules.empty();
}

std::vector<int> Arrangement::Rows()
{
    return m_Rules.empty() ? std::move(m_Matching) : m_Sort.Items();
}
} // namespace listviews
