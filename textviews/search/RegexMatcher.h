#pragma once

#include "textviews/search/HitFinder.h"
#include "textviews/search/LineSieve.h"
#include "textviews/search/SearchQuery.h"

#include <memory>

namespace re2
{
class RE2;
}

namespace textviews
{
/// A regular expression to look for in lines, in a time linear in their bytes whatever it is. "."
/// stands for any character of a line, and for a byte that is no valid text; nothing else in an
/// expression is equal to such a byte. What is empty is no hit.
class RegexMatcher final : public HitFinder
{
public:
    /// Null when the text is no expression, and why.
    static std::shared_ptr<HitFinder> Make(const SearchQuery& query, QueryProblem& problem);
    /// The expression that finds that text and nothing else.
    static String Quoted(const String& text);
    ~RegexMatcher() override;

    size_t Reach() const override;
    void   HitsIn(std::string_view line, const LinePiece& piece, size_t& from, size_t& budget,
                  std::vector<ByteSpan>& hits) override;
    const std::vector<int>& LinesIn(const LineStore::Block& block, int from, int end,
                                    bool onlyFirst) override;
    bool                    IsSureOfLines() const override { return false; }

private:
    RegexMatcher(std::unique_ptr<re2::RE2> expression, std::unique_ptr<re2::RE2> forBlocks,
                 std::unique_ptr<LineSieve> sieve, bool wholeWords);

    void HitsInText(std::string_view text, const LinePiece& piece, size_t& from, size_t& budget,
                    std::vector<ByteSpan>& hits) const;
    bool NextHit(std::string_view text, const LinePiece& piece, size_t from, ByteSpan& hit) const;
    bool Holds(std::string_view text) const;
    void LinesLeftBySieve(const LineStore::Block& block, int from, int end, bool onlyFirst);
    bool Join(const LineStore::Block& block, int from, int end);
    void LinesInJoined(int from, bool onlyFirst);

    std::unique_ptr<re2::RE2>  m_Expression;
    std::unique_ptr<re2::RE2>  m_ForBlocks; ///< The same for joined lines; null where that differs.
    std::unique_ptr<LineSieve> m_Sieve;     ///< Null where it would not pay.
    bool                       m_WholeWords; ///< The hit is the first group of the expression.
    std::string                m_Joined;     ///< Lines, a newline after each.
    std::vector<size_t>        m_Ends;       ///< Where their newlines are.
    std::vector<int>           m_Lines;
};
} // namespace textviews
