#include "textviews/rules/ErrorSearch.h"

#include <algorithm>

namespace textviews
{
void ErrorSearch::Begin(int line, bool forward, int lineCount)
{
    *this = {};
    m_Forward = forward;
    m_State = State::Running;
    m_BegunBehind = line < 0 || line >= lineCount;
    m_Start = m_BegunBehind ? (forward ? 0 : lineCount - 1) : line;
    m_Next = m_Start;
}

// Past an end it goes on from the other one; false when the way round is complete.
bool ErrorSearch::IsUnderWay(int lineCount)
{
    const bool isPastEnd = m_Forward ? m_Next >= lineCount : m_Next < 0;
    if (isPastEnd && !m_Wrapped)
    {
        m_Wrapped = true;
        m_Next = m_Forward ? 0 : lineCount - 1;
    }
    if (m_Next < 0 || m_Next >= lineCount)
    {
        return false;
    }
    return !m_Wrapped || (m_Forward ? m_Next < m_Start : m_Next > m_Start);
}

// Whether there was something to pass over.
bool ErrorSearch::Skip(const LineBands* known, int lineCount)
{
    if (!known || m_From >= 0)
    {
        return false;
    }
    const int       from = m_Next;
    const LineMarks wanted = m_Found.line < 0 ? k_ErrorMark | k_WarningMark : k_ErrorMark;
    const int       next = known->NextMarked(from, m_Forward, wanted);
    m_Next = next >= 0 ? next : m_Forward ? lineCount : -1;
    return m_Next != from;
}

ErrorSearch::State ErrorSearch::Step(const LineStore& lines, const LineBands* known,
                                     LineJudge& judge, size_t budget)
{
    m_IsWaiting = false;
    while (m_State == State::Running && budget > 0)
    {
        if (!IsUnderWay(lines.Count()))
        {
            Finish();
            break;
        }
        if (Skip(known, lines.Count()))
        {
            continue;
        }
        const auto block = lines.BlockSoon(m_Next);
        if (!block)
        {
            m_IsWaiting = true;
            break;
        }
        LookThrough(*block, judge, budget);
    }
    return m_State;
}

void ErrorSearch::LookThrough(const LineStore::Block& block, LineJudge& judge, size_t& budget)
{
    if (m_From < 0)
    {
        const int blockEnd = block.firstLine + block.lineCount;
        m_First = m_Forward ? m_Next
                            : std::max(block.firstLine, m_Wrapped ? m_Start + 1 : block.firstLine);
        m_End = !m_Forward ? m_Next + 1 : m_Wrapped ? std::min(blockEnd, m_Start) : blockEnd;
        m_From = m_First;
        m_Marked.clear();
    }
    int from = m_From - block.firstLine;
    judge.Judge(block, from, m_End - block.firstLine, budget, m_Marked);
    m_From = block.firstLine + from;
    if (m_From >= m_End)
    {
        TakeMarked();
        m_Next = m_Forward ? m_End : m_First - 1;
        LeaveBlock();
    }
}

void ErrorSearch::TakeMarked()
{
    if (!m_Forward)
    {
        std::reverse(m_Marked.begin(), m_Marked.end());
    }
    for (const MarkedLine& each : m_Marked)
    {
        const bool isError = (each.marks & k_ErrorMark) != 0;
        if (isError || m_Found.line < 0)
        {
            m_Found = each;
            m_FoundBehind = m_Wrapped || m_BegunBehind;
        }
        if (isError)
        {
            m_State = State::Found;
            return;
        }
    }
}

// There is no error: a warning will do.
void ErrorSearch::Finish()
{
    m_State = m_Found.line >= 0 ? State::Found : State::NotFound;
}

void ErrorSearch::LineInserted(int line)
{
    for (int* const place : {&m_Next, &m_Start, &m_Found.line})
    {
        *place += line <= *place ? 1 : 0;
    }
    LeaveBlock();
}

void ErrorSearch::LineErased(int line)
{
    for (int* const place : {&m_Next, &m_Start})
    {
        *place -= line < *place || (line == *place && !m_Forward) ? 1 : 0;
    }
    m_Found.line = line == m_Found.line ? -1 : m_Found.line - (line < m_Found.line ? 1 : 0);
    LeaveBlock();
}
} // namespace textviews
