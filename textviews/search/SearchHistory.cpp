#include "textviews/search/SearchHistory.h"

#include <algorithm>

namespace textviews
{
void SearchHistory::Set(std::vector<String> texts)
{
    m_Texts = std::move(texts);
    m_Texts.resize(std::min(m_Texts.size(), k_Most));
    m_Place = 0;
}

void SearchHistory::Add(const String& text)
{
    m_Place = 0;
    if (text.empty())
    {
        return;
    }
    m_Texts.erase(std::remove(m_Texts.begin(), m_Texts.end(), text), m_Texts.end());
    m_Texts.insert(m_Texts.begin(), text);
    m_Texts.resize(std::min(m_Texts.size(), k_Most));
}

// What is shown is not what it was if the user has typed since.
const String& SearchHistory::Older(const String& shown)
{
    if (m_Place == 0 || m_Texts[m_Place - 1] != shown)
    {
        m_Place = 0;
        m_Typed = shown;
    }
    m_Place += m_Place < m_Texts.size() ? 1 : 0;
    // The text that is shown already may be the latest one.
    m_Place += m_Place == 1 && m_Texts.front() == shown && m_Texts.size() > 1 ? 1 : 0;
    return At(shown);
}

const String& SearchHistory::Newer(const String& shown)
{
    if (m_Place == 0 || m_Texts[m_Place - 1] != shown)
    {
        return shown;
    }
    --m_Place;
    m_Place -= m_Place == 1 && m_Texts.front() == m_Typed ? 1 : 0;
    return At(shown);
}

const String& SearchHistory::At(const String& shown) const
{
    if (m_Texts.empty())
    {
        return shown;
    }
    return m_Place == 0 ? m_Typed : m_Texts[m_Place - 1];
}
} // namespace textviews
