#include "listviews/arranging/Arrangement.h"

#include "listviews/arranging/NaturalKey.h"

#include <algorithm>

namespace listviews
{
namespace
{
constexpr size_t kStepItems = 4;         // the host may take long for their texts
constexpr size_t kLongText = 64 * 1'024; // bytes: to look through it is a step by itself
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

String Arrangement::TextOf(int item, int type)
{
    String text = m_Items.TextOf(item, type);
    m_IsLong |= text.size() >= kLongText;
    return text;
}

void Arrangement::AddKey(int item)
{
    m_Key.clear();
    for (const SortRule& rule : m_Rules)
    {
        if (const auto number = m_Items.NumberOf(item, rule.type))
        {
            AppendCellKey(m_Key, *number, rule.ascending);
        }
        else
        {
            AppendCellKey(m_Key, TextOf(item, rule.type), rule.ascending);
        }
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
    const int    count = m_Items.Count();
    const size_t end = std::min(m_Next + kStepItems, m_End);
    for (m_IsLong = false; m_Next < end && !m_IsLong; ++m_Next)
    {
        const int item = m_Among ? (*m_Among)[m_Next] : static_cast<int>(m_Next);
        if (item >= count ||
            !m_Query.Matches([this, item](int type) { return TextOf(item, type); }))
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
