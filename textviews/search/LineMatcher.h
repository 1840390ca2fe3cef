#pragma once

#include "textviews/search/ByteFinder.h"
#include "textviews/search/HitFinder.h"
#include "textviews/search/SearchQuery.h"

#include <cstdint>
#include <string>

namespace textviews
{
/// A text to look for in lines. Characters are compared by their codes, without `matchCase` by the
/// locale's lower case of each; bytes that are no valid text equal only themselves. An empty text
/// is found nowhere.
class LineMatcher final : public HitFinder
{
public:
    explicit LineMatcher(const SearchQuery& query);

    size_t Reach() const override;
    /// Always goes to the piece's end.
    void HitsIn(std::string_view line, const LinePiece& piece, size_t& from, size_t& budget,
                std::vector<ByteSpan>& hits) override;
    /// Blocks are looked through as a whole.
    const std::vector<int>& LinesIn(const LineStore::Block& block, int from, int end,
                                    bool onlyFirst) override;
    bool                    IsSureOfLines() const override { return !m_WholeWords; }

private:
    bool     Holds(std::string_view line) const;
    uint32_t Folded(uint32_t code) const;
    void     PrepareFallbacks();
    void     PrepareQuickBytes();
    size_t   StartOf(std::string_view line, size_t end, bool ascii) const;
    bool     IsWord(std::string_view line, const ByteSpan& span) const;
    /// False where the bytes are not all ASCII: then what is kept is no lower case of them.
    bool KeepLowerCaseOf(std::string_view bytes);
    void QuickLines(const LineStore::Block& block, std::string_view bytes, int from, int end,
                    bool onlyFirst);
    void SlowLines(const LineStore::Block& block, int from, int end, bool onlyFirst);

    std::vector<uint32_t> m_Codes;       ///< Of the text, folded.
    std::vector<size_t>   m_Fallbacks;   ///< Characters still agreed with after a disagreement.
    std::vector<uint32_t> m_FoldedCodes; ///< Of the most frequent characters.
    ByteFinder            m_Bytes;       ///< The text for comparing whole blocks of bytes.
    bool                  m_MatchCase;
    bool                  m_WholeWords;
    bool                  m_Quick = false; ///< Plain blocks can be compared by bytes.
    std::string           m_LowerCase;     ///< A block's bytes.
    std::vector<int>      m_Lines;
};
} // namespace textviews
