#pragma once

#include "textviews/matching/LineSet.h"
#include "textviews/search/HitFinder.h"
#include "textviews/search/SearchedLines.h"

#include <memory>
#include <vector>

namespace textviews
{
/// How many lines are shown beside those that match.
struct LinesAround
{
    int before = 0;
    int after = 0;

    bool operator==(const LinesAround& other) const
    {
        return before == other.before && after == other.after;
    }
};

/// The lines that have hits, and some around them, found in steps; lines may come and go. The rows
/// are those lines, from top to bottom. It takes a quarter of a byte for each line of the view at
/// most, however many match.
class MatchingLines
{
public:
    static constexpr int k_MostAround = 1000;

    void Begin(std::shared_ptr<HitFinder> finder, int lineCount, const LinesAround& around);
    /// Goes on for about `budget` bytes; true when there is nothing left to look at.
    bool Step(const SearchedLines& lines, size_t budget);
    bool IsWaiting() const { return m_IsWaiting; } ///< For lines, since the last step.
    bool IsComplete() const { return m_Due.Size() == 0; }
    int  Matches() const { return m_Matches.Size(); } ///< So far.

    int  Rows() const { return m_Shown.Size(); }
    int  LineOf(int row) const { return m_Shown.At(row); }
    int  RowOf(int line) const { return m_Shown.Before(line); } ///< Of that line or the next shown.
    bool IsMatch(int row) const { return m_Matches.Has(LineOf(row)); }
    /// Lines are left out between that row and the one before it, in groups of lines that have
    /// others around them.
    bool HasGapBefore(int row) const;

    size_t Bytes() const { return m_Matches.Bytes() + m_Shown.Bytes() + m_Due.Bytes(); }

    /// To be told of every line that comes, after it came, and of every line that goes.
    /// @{
    void LineInserted(int line);
    void LineErased(int line);
    void LinesCleared();
    /// @}

private:
    void LookThrough(const LineStore::Block& block, size_t& budget);
    bool LookThroughLine(std::string_view line, size_t& budget);
    void Match(int line);
    void Done(int first, int end);
    void ShowAnew(int first, int end);
    bool HasContext() const { return m_Around.before > 0 || m_Around.after > 0; }

    std::shared_ptr<HitFinder> m_Finder;
    LinesAround                m_Around;
    LineSet                    m_Matches;
    LineSet                    m_Shown;    ///< Those and what is around them.
    LineSet                    m_Due;      ///< Have not been looked at yet.
    int                        m_Next = 0; ///< None before it is due.
    size_t                     m_From = 0; ///< In that line: where to go on.
    bool                       m_HasHit = false;
    bool                       m_IsWaiting = false;
    std::vector<ByteSpan>      m_Found;
};
} // namespace textviews
