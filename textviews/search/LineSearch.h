#pragma once

#include "textviews/lines/LineStore.h"
#include "textviews/search/LineMatcher.h"

#include <memory>
#include <vector>

namespace textviews
{
/// A search through the lines, done in steps. The unit is the line: at most one hit a line, the
/// first one in it. Lines may come and go between the steps, if the search is told.
class LineSearch
{
public:
    enum class State
    {
        Idle,
        Running,
        Found,
        NotFound
    };

    /// Begins at line `start` and goes once round all lines. A start before the first line (after
    /// the last one) goes on from the other end.
    void Begin(const String& text, bool forward, bool matchCase, int start);
    /// Goes on for about `budget` bytes.
    State Step(const LineStore& lines, size_t budget);
    void  Stop() { m_State = State::Idle; }

    State            GetState() const { return m_State; }
    bool             IsForward() const { return m_Forward; }
    bool             HasWrapped() const { return m_Wrapped; } ///< It went past an end.
    const LineMatch& Match() const { return m_Match; }        ///< Valid when found.

    /// To be told of lines that come (before others) and go.
    /// @{
    void LineInserted(int line);
    void LineErased(int line);
    /// @}

private:
    struct Range
    {
        int first = 0;
        int end = 0;
    };

    bool   WrapIfAtEnd(int count);
    Range  RangeIn(const LineStore::Block& block) const;
    size_t LookThrough(const LineStore::Block& block, size_t budget);
    void   MoveBeyond(const Range& range);
    void   TakeMatch(int line, const LineMatch& match);

    std::unique_ptr<LineMatcher> m_Matcher;
    LineMatcher::Progress        m_Progress; ///< Within a long line.
    State                        m_State = State::Idle;
    bool                         m_Forward = true;
    bool                         m_Wrapped = false;
    int                          m_Next = 0;  ///< The line that is looked at next.
    int                          m_Start = 0; ///< The line that the way round began at.
    LineMatch                    m_Match;
};

/// Counts the lines that hold a text, in steps, and goes on as lines come.
class HitCounter
{
public:
    void Begin(const String& text, bool matchCase);
    void Stop() { m_Matcher.reset(); }
    bool IsActive() const { return m_Matcher != nullptr; }
    /// Goes on for about `budget` bytes; true when all lines are counted.
    bool Step(const LineStore& lines, size_t budget);
    int  Hits() const { return m_Hits; } ///< So far.

    /// To be told of every line that comes before others, after it came; of every line that goes,
    /// before it goes.
    /// @{
    void LineInserted(const LineStore& lines, int line);
    void LineErased(const LineStore& lines, int line);
    void LinesCleared();
    /// @}

private:
    size_t CountIn(const LineStore::Block& block, size_t budget);
    size_t CountLate(const LineStore& lines, size_t budget);
    void   Shift(int line, int by);

    std::unique_ptr<LineMatcher> m_Matcher;
    LineMatcher::Progress        m_Progress;
    LineMatcher::Progress        m_LateProgress; ///< In the first of `m_Late`.
    int                          m_Next = 0;     ///< The first line that is not counted yet.
    int                          m_Hits = 0;
    std::vector<int>             m_LongHits; ///< Long lines among them: none is read again.
    std::vector<int>             m_Late;     ///< Long lines that came before `m_Next`, to count.
};
} // namespace textviews
