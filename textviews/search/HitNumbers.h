#pragma once

#include "textviews/search/LineSearch.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace textviews
{
/// Counts the hits in lines, in steps, goes on as lines come and go, and knows the number of one of
/// them: the third, say. It keeps sums of some hundred lines each, so that a change costs no more
/// than those.
class HitNumbers
{
public:
    void Begin(std::shared_ptr<HitFinder> finder, int lineCount);
    void Stop();
    bool IsActive() const { return m_Finder != nullptr; }
    /// Goes on for about `budget` bytes; true when there is nothing left to count.
    bool    Step(const SearchedLines& lines, size_t budget);
    bool    IsWaiting() const { return m_IsWaiting; } ///< For lines, since the last step.
    bool    IsCounted() const;                        ///< All hits are.
    int64_t Hits() const { return m_Hits; }           ///< So far.

    /// The hit whose number is wanted; line -1 for none. Whether it is another one than before.
    bool SetCurrent(const SearchPlace& hit);
    /// From 1 on; 0 when it is none of the hits, or not known yet.
    int64_t Current() const { return m_Number; }

    /// To be told of every line that comes, after it came, and of every line that goes.
    /// @{
    void LineInserted(int line);
    void LineErased(int line);
    void LinesCleared();
    /// @}

private:
    /// Neighbouring lines that are counted, or that are not.
    struct Chunk
    {
        int     lines = 0;
        bool    counted = false;
        size_t  bytes = 0; ///< Counted ones'.
        int64_t hits = 0;  ///< Those of its first line that lie before `from`, when not counted.
        size_t  from = 0;
    };
    struct ChunkPlace
    {
        size_t chunk = 0;
        int    firstLine = 0;
    };
    /// On the way to the current hit.
    struct Rank
    {
        bool    begun = false;
        bool    done = false;
        int     line = 0;
        size_t  from = 0;
        int64_t before = 0;
    };

    ChunkPlace ChunkOf(int line) const;
    void       Uncount(size_t chunk);
    void       Reopen(const ChunkPlace& place);
    void       CountOn(const SearchedLines& lines, size_t& budget);
    void       CountLine(std::string_view line, size_t& budget);
    void       CountLines(const LineStore::Block& block, size_t& budget);
    bool       GoThrough(std::string_view line, size_t& from, int64_t& hits, size_t& budget);
    void       SkipCounted();
    void       Close(int lines, size_t bytes, int64_t hits);
    void       BeginRank();
    void       RankOn(const SearchedLines& lines, size_t& budget);
    void       RankWithin(std::string_view line, size_t& budget);

    std::shared_ptr<HitFinder> m_Finder;
    std::vector<Chunk>         m_Chunks; ///< All lines; none is empty.
    ChunkPlace                 m_Open;   ///< The first that is not counted.
    int                        m_Lines = 0;
    int64_t                    m_Hits = 0;
    SearchPlace                m_Current{-1, 0};
    Rank                       m_Rank;
    int64_t                    m_Number = 0;
    std::vector<ByteSpan>      m_Found;
    bool                       m_IsWaiting = false;
};
} // namespace textviews
