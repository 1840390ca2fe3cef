#include "jobwidgets/selection/ClosedGroups.h"

namespace jobwidgets
{
namespace
{
const char* const kSeparator = ",";
} // namespace

void ClosedGroups::Read(const String& text)
{
    StringTokenizer tokens(text, kSeparator, '"', '\\');
    while (tokens.HasMore() && m_Keys.size() < k_Most)
    {
        m_Keys.insert(tokens.Next());
    }
}

void ClosedGroups::Put(const String& key, bool isClosed)
{
    if (isClosed)
    {
        m_Keys.insert(key);
    }
    else
    {
        m_Keys.erase(key);
    }
}

String ClosedGroups::ToText() const
{
    String text;
    size_t left = k_Most;
    for (auto key = m_Keys.begin(); key != m_Keys.end() && left > 0; ++key, --left)
    {
        text += text.empty() ? "" : kSeparator;
        for (const char c : *key)
        {
            text += c == ',' || c == '"' || c == '\\' ? String("\\") + c : String(1, c);
        }
    }
    return text;
}
} // namespace jobwidgets
