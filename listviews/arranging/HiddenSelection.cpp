#include "listviews/arranging/HiddenSelection.h"

namespace listviews
{
void HiddenSelection::Add(int item, String key)
{
    const auto index = static_cast<size_t>(item);
    if (index >= m_Items.size())
    {
        m_Items.resize(index + index / 2 + 1);
    }
    m_Count += !m_Items[index];
    m_Items[index] = true;
    if (!key.empty())
    {
        m_Named.emplace_back(item, std::move(key));
    }
}

void HiddenSelection::AddKey(const String& key)
{
    m_Count += m_Keys.insert(key).second;
}

bool HiddenSelection::Take(int item, const std::function<String()>& keyOf)
{
    const auto index = static_cast<size_t>(item);
    if (index < m_Items.size() && m_Items[index])
    {
        m_Items[index] = false;
        --m_Count;
        return true;
    }
    const bool isNamed = !m_Keys.empty() && m_Keys.erase(keyOf()) > 0;
    m_Count -= isNamed;
    return isNamed;
}

void HiddenSelection::ItemsChanged()
{
    for (const auto& [item, key] : m_Named)
    {
        if (m_Items[static_cast<size_t>(item)])
        {
            m_Items[static_cast<size_t>(item)] = false;
            m_Count -= !m_Keys.insert(key).second;
        }
    }
    m_Named.clear();
}

void HiddenSelection::Clear()
{
    *this = HiddenSelection();
}
} // namespace listviews
