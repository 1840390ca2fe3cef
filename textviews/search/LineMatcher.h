#pragma once

#include "textviews/lines/LineStore.h"
#include "textviews/search/ByteFinder.h"
#include "vesta/String.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace textviews
{
/// Where in a line the text was found. Columns count characters.
struct LineMatch
{
    int line = -1;
    int column = -1;
    int length = 0;
};

/// A text to look for in lines. Characters are compared by their codes, without `matchCase` by the
/// locale's lower case of each; bytes that are no valid text equal only themselves. An empty text
/// is found nowhere.
class LineMatcher
{
public:
    /// How far a long line has been looked through.
    struct Progress
    {
        size_t  byte = 0;
        int64_t column = 0;
        size_t  matched = 0; ///< Characters of the text that the line has last agreed with.
    };

    LineMatcher(const String& text, bool matchCase);

    int Length() const { return static_cast<int>(m_Codes.size()); } ///< Characters.

    /// The lines of [from, end) of the block (counted within it) that hold the text, in order; with
    /// `onlyFirst` no more than one. For blocks of short lines: they are looked through as a whole.
    /// Valid until the next call.
    const std::vector<int>& HitsIn(const LineStore::Block& block, int from, int end,
                                   bool onlyFirst);
    /// Where the line first holds the text.
    bool Find(std::string_view line, LineMatch& match) const;
    /// Looks through at most `budget` bytes of the line from where `progress` stands. True when
    /// found: the match then ends at `progress`. At the line's end `progress.byte` is its size.
    bool Continue(std::string_view line, Progress& progress, size_t budget) const;

private:
    uint32_t Folded(uint32_t code) const;
    void     PrepareFallbacks();
    void     PrepareQuickBytes();
    /// False where the bytes are not all ASCII: then what is kept is no lower case of them.
    bool KeepLowerCaseOf(std::string_view bytes);
    void QuickHits(const LineStore::Block& block, std::string_view bytes, int from, int end,
                   bool onlyFirst);
    void SlowHits(const LineStore::Block& block, int from, int end, bool onlyFirst);

    std::vector<uint32_t> m_Codes;       ///< Of the text, folded.
    std::vector<size_t>   m_Fallbacks;   ///< Characters still agreed with after a disagreement.
    std::vector<uint32_t> m_FoldedCodes; ///< Of the most frequent characters.
    ByteFinder            m_Bytes;       ///< The text for comparing whole blocks of bytes.
    bool                  m_MatchCase;
    bool                  m_Quick = false; ///< Plain blocks can be compared by bytes.
    std::string           m_LowerCase;     ///< A block's bytes.
    std::vector<int>      m_Hits;
};
} // namespace textviews
