#include "listviews/keys/TypedText.h"

#include "internal/text/Utf8.h"

#include <cwctype>

namespace listviews
{
namespace
{
wchar_t Lower(wchar_t character)
{
    return static_cast<wchar_t>(std::towlower(static_cast<wint_t>(character)));
}
} // namespace

void TypedText::Add(wchar_t character, Clock::time_point now)
{
    if (!IsOpen(now))
    {
        m_Text.clear();
    }
    m_Last = now;
    m_Text += Lower(character);
    m_IsCycle = m_Text.find_first_not_of(m_Text.front()) == std::wstring::npos;
}

bool TypedText::IsStartOf(const String& cell) const
{
    const char*       at = cell.data();
    const char* const end = at + cell.size();
    // "aa" asks for the next row with an "a".
    const size_t count = m_IsCycle ? 1 : m_Text.size();
    for (size_t i = 0; i < count; ++i)
    {
        if (at == end)
        {
            return false;
        }
        const internal::Utf8Char next = internal::DecodeUtf8(at, end);
        if (Lower(static_cast<wchar_t>(next.code)) != m_Text[i])
        {
            return false;
        }
        at += next.length;
    }
    return true;
}
} // namespace listviews
