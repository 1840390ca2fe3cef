#pragma once

#include "textviews/rules/LineJudge.h"
#include "textviews/search/SearchState.h"

#include <vector>

namespace textviews
{
/// The way to the next line that is an error, or where there is none, a warning: once round all
/// lines, in steps. Lines may come and go between them, if it is told.
class ErrorSearch
{
public:
    using State = SearchState;

    /// Begins with that line; one before the first (behind the last) stands for the other end.
    void Begin(int line, bool forward, int lineCount);
    void Stop() { m_State = State::Idle; }
    /// Goes on for about `budget` bytes.
    /// Lines of which `known`, which may be null, knows that they are neither are passed over.
    /// Nothing is done while a disk is waited for.
    State Step(const LineStore& lines, const LineBands* known, LineJudge& judge, size_t budget);

    State     GetState() const { return m_State; }
    bool      IsWaiting() const { return m_IsWaiting; }
    bool      IsForward() const { return m_Forward; }
    int       Line() const { return m_Found.line; }        ///< Valid when found.
    LineMarks Marks() const { return m_Found.marks; }      ///< What it is.
    bool      HasWrapped() const { return m_FoundBehind; } ///< It lies past an end.

    /// To be told of every line that comes, after it came, and of every line that goes.
    /// @{
    void LineInserted(int line);
    void LineErased(int line);
    /// @}

private:
    bool IsUnderWay(int lineCount);
    bool Skip(const LineBands* known, int lineCount);
    void LookThrough(const LineStore::Block& block, LineJudge& judge, size_t& budget);
    void TakeMarked();
    void Finish();
    void LeaveBlock() { m_From = -1; }

    State m_State = State::Idle;
    bool  m_Forward = true;
    bool  m_IsWaiting = false;
    bool  m_Wrapped = false;
    bool  m_BegunBehind = false; ///< Past an end.
    int   m_Start = 0;           ///< Where it began.
    int   m_Next = 0;            ///< The line that is looked at next.

    MarkedLine m_Found{-1, 0};        ///< The first error on the way, or else warning so far.
    bool       m_FoundBehind = false; ///< Past an end.

    /// @name The lines of a block that are looked at
    /// @{
    int                     m_First = 0;
    int                     m_End = 0;
    int                     m_From = -1; ///< The line to go on with; -1: none has been begun.
    std::vector<MarkedLine> m_Marked;    ///< So far.
    /// @}
};
} // namespace textviews
