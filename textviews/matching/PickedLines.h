#pragma once

#include "textviews/lines/LineStore.h"
#include "textviews/matching/MatchSearch.h"

#include <functional>

namespace textviews
{
/// The lines of another store that match, as the lines of a store of their own: only their numbers
/// are kept. To be read only; none may be added or removed here.
class PickedLines final : public LineStore
{
public:
    /// The others have to live as long as this.
    explicit PickedLines(const LineStore& whole) : m_Whole(whole), m_Search(whole) {}

    MatchSearch&       Search() { return m_Search; }
    const MatchSearch& Search() const { return m_Search; }

    int              Count() const override { return m_Search.Found().Rows(); }
    std::string_view Line(int index) const override;
    std::string_view LineNow(int index) const override;
    bool             GoesOn(int index) const override;
    /// That line and as many after it as are worth being handled together.
    Block                BlockOf(int index) const override;
    std::optional<Block> BlockSoon(int index) const override;
    int                  NextInMemory(int) const override { return Count(); } ///< None is measured.
    uint64_t             RoughBytes(int first, int last) const override;

private:
    int   LineOf(int index) const;
    bool  HasRoom() const;
    void  Gather(std::string_view line) const;
    Block Gathered(int first) const;

    const LineStore& m_Whole;
    MatchSearch      m_Search;

    /// @name Of the latest block
    /// @{
    mutable std::string           m_Together;
    mutable std::vector<uint32_t> m_Starts;
    /// @}
};
} // namespace textviews
