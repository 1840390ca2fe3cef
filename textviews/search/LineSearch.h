#pragma once

#include "textviews/lines/TextCells.h"
#include "textviews/search/HitFinder.h"
#include "textviews/search/SearchState.h"
#include "textviews/search/SearchedLines.h"

#include <memory>
#include <vector>

namespace textviews
{
/// Where in a line, as it was searched, the text was found. Columns count characters.
struct LineMatch
{
    int      line = -1;
    int      column = -1;
    int      length = 0;
    ByteSpan bytes; ///< The same in bytes.
};

/// Where a search begins: a byte of a line.
struct SearchPlace
{
    static constexpr size_t k_End = ~size_t{0}; ///< Behind the line's last byte.

    int    line = 0;
    size_t byte = 0;
};

/// A search through the lines, done in steps. Lines may come and go between the steps, if the
/// search is told.
class LineSearch
{
public:
    using State = SearchState;
    /// What a search goes on by.
    enum class Unit
    {
        Line, ///< The first hit of each line.
        Hit   ///< Each hit.
    };

    /// Begins with hits that begin at the place or after it, backwards with those before it, and
    /// goes once round all lines. A start before the first line (after the last one) goes on from
    /// the other end.
    void Begin(std::shared_ptr<HitFinder> finder, bool forward, const SearchPlace& start,
               Unit unit);
    /// Goes on for about `budget` bytes.
    State Step(const SearchedLines& lines, size_t budget);
    void  Stop() { m_State = State::Idle; }

    State            GetState() const { return m_State; }
    bool             IsWaiting() const { return m_IsWaiting; } ///< For lines, since the last step.
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

    bool     WrapIfAtEnd(int count);
    Range    RangeIn(const LineStore::Block& block) const;
    ByteSpan LimitsOf(int line) const;
    void     LookThrough(const SearchedLines& lines, size_t& budget);
    void     LookThroughShort(const LineStore::Block& block, size_t& budget);
    bool     LookThroughLine(std::string_view text, size_t& budget);
    bool     LookForFirst(std::string_view text, const ByteSpan& limits, size_t& budget);
    bool     LookForLast(std::string_view text, const ByteSpan& limits, size_t& budget);
    void     Locate(std::string_view text, size_t& budget);
    void     GoTo(int line);

    std::shared_ptr<HitFinder> m_Finder;
    State                      m_State = State::Idle;
    Unit                       m_Unit = Unit::Line;
    bool                       m_Forward = true;
    bool                       m_Wrapped = false;
    bool                       m_IsWaiting = false;
    int                        m_Next = 0; ///< The line that is looked at next.
    SearchPlace                m_Start;    ///< Where the way round began.
    LineMatch                  m_Match;
    std::vector<ByteSpan>      m_Hits; ///< Of a piece of the line.

    /// @name Within the line
    /// @{
    bool      m_InLine = false;  ///< It is being looked through.
    size_t    m_Byte = 0;        ///< Where to go on.
    size_t    m_Piece = 0;       ///< Backwards: where the piece begins.
    ByteSpan  m_Last;            ///< Backwards: its last hit so far; empty for none.
    bool      m_Located = false; ///< The hit is found; its column is being counted.
    TextPlace m_Place;           ///< So far.
    /// @}
};
} // namespace textviews
