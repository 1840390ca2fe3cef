#include "textviews/lines/TextSelection.h"

namespace textviews
{
void TextSelection::Drag(int line, int count)
{
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
    m_Anchor = count > 0 ? 0 : -1;
    m_End = count - 1;
}

void TextSelection::LineInserted(int line)
{
    m_Anchor = IndexAfterInsert(m_Anchor, line);
    m_End = IndexAfterInsert(m_End, line);
}

void TextSelection::LineErased(int line)
{
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

int IndexAfterInsert(int index, int inserted)
{
    return index >= inserted && index != -1 ? index + 1 : index;
}

int IndexAfterErase(int index, int erased)
{
    if (index == erased)
    {
        return -1;
    }
    return index > erased ? index - 1 : index;
}
} // namespace textviews
