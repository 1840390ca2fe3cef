#include "textviews/lines/TextSelection.h"

#include <wx/defs.h>

#include <algorithm>
#include <climits>
#include <cstdint>

namespace textviews
{
void TextSelection::BeginSpan(int line, const ByteSpan& what, SpanUnit by)
{
    Clear();
    m_Span.Begin(line, what, by);
}

void TextSelection::PutSpan(const LineSpan& span)
{
    Clear();
    m_Span = span;
}

void TextSelection::Click(int line, int count)
{
    m_Span.Clear();
    m_Anchor = m_End = line < count ? line : -1;
}

void TextSelection::Clear()
{
    m_Span.Clear();
    m_Anchor = m_End = -1;
}

void TextSelection::Drag(int line, int count)
{
    if (m_Anchor == -1)
    {
        m_Anchor = m_Span.Line();
    }
    m_Span.Clear();
    if (line == -1 && m_Anchor == -1)
    {
        return;
    }
    if (m_Anchor == -1)
    {
        m_Anchor = line;
    }
    m_End = line == -1 ? count - 1 : line;
}

void TextSelection::SelectAll(int count)
{
    m_Span.Clear();
    m_Anchor = count > 0 ? 0 : -1;
    m_End = count - 1;
}

void TextSelection::LineInserted(int line)
{
    m_Span.LineInserted(line);
    m_Anchor = IndexAfterInsert(m_Anchor, line);
    m_End = IndexAfterInsert(m_End, line);
}

void TextSelection::LineErased(int line)
{
    m_Span.LineErased(line);
    if (IsEmpty())
    {
        return;
    }
    const int  first = First();
    const int  last = Last();
    const bool downward = m_Anchor <= m_End;
    if (line > last)
    {
        return;
    }
    const int newFirst = line < first ? first - 1 : first;
    const int newLast = last - 1;
    if (newLast < newFirst)
    {
        Clear();
        return;
    }
    m_Anchor = downward ? newFirst : newLast;
    m_End = downward ? newLast : newFirst;
}

int SelectionStep(int key, bool ctrl, int page)
{
    const int most = std::max(page - 1, 1); // one line of the former page stays
    switch (key)
    {
    case WXK_UP:
        return -1;
    case WXK_DOWN:
        return 1;
    case WXK_PAGEUP:
        return ctrl ? -INT_MAX : -most;
    case WXK_PAGEDOWN:
        return ctrl ? INT_MAX : most;
    case WXK_HOME:
        return ctrl ? -INT_MAX : 0;
    case WXK_END:
        return ctrl ? INT_MAX : 0;
    default:
        return 0;
    }
}

int LineAfter(int line, int step, int count)
{
    return static_cast<int>(std::clamp<int64_t>(static_cast<int64_t>(line) + step, 0, count - 1));
}
} // namespace textviews
