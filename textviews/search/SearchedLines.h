#pragma once

#include "textviews/escapes/LineFolder.h"
#include "textviews/lines/LineStore.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace textviews
{
/// The lines of a view as a search reads them: as they are stored, or as they are shown where
/// escape sequences are followed. Then places in a line are those in the text that it shows. Lines
/// that lie together without any such sequence are read where they are, as fast as stored ones;
/// what was found out about them is noted in the store. Main thread.
class SearchedLines
{
public:
    /// As they are stored.
    SearchedLines(const LineStore& lines) : m_Lines(&lines) {} // NOLINT: it is the same, to read

    void ReadAsShown(bool shown);
    bool AreAsShown() const { return m_AreAsShown; }

    /// Whether lines whose disk does not answer at once are waited for, as at first. Whoever works
    /// in slices while a window lives comes again when they are there.
    void WaitForDisk(bool wait) { m_WaitsForDisk = wait; }

    int Count() const { return m_Lines->Count(); }
    /// The lines that lie together with that one, which must exist, or that line alone; none while
    /// they are on their way. Valid until the next call, or the next change of the lines.
    /// @{
    std::optional<LineStore::Block> BlockOf(int index) const;
    std::optional<LineStore::Block> BlockSoon(int index) const; ///< Does not wait in any case.
    std::optional<std::string_view> LineOf(int index) const;
    /// @}

private:
    bool IsFolded(const LineStore::Block& block) const;
    bool IsKept(int index) const;
    void Keep(const LineStore::Block& block) const;

    LineStore::Block Kept() const;
    LineStore::Block AsShown(const LineStore::Block& block) const;

    const LineStore* m_Lines;
    bool             m_AreAsShown = false;
    bool             m_WaitsForDisk = true;

    /// @name The lines that were folded last
    /// @{
    mutable LineFolder            m_Folder;
    mutable std::string           m_Bytes;
    mutable std::vector<uint32_t> m_Starts;
    mutable int                   m_First = 0;
    mutable uint64_t              m_Changes = 0; ///< Of the store, at that time.
    /// @}
};
} // namespace textviews
