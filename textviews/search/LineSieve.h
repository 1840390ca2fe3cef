#pragma once

#include "textviews/lines/LineStore.h"
#include "textviews/search/ByteFinder.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace re2
{
class FilteredRE2;
}

namespace textviews
{
/// Passes over lines that cannot hold a regular expression, since they lack texts without which it
/// is nowhere: one of "lost" and "found" in `(lost|found) \d+`. Looking for those costs a tenth of
/// looking for the expression.
class LineSieve
{
public:
    /// Null where the expression has no such texts, or too many.
    static std::unique_ptr<LineSieve> Make(const std::string& expression);
    ~LineSieve();

    /// The lines of [from, end) of the block (counted within it) that may hold it, in order. For
    /// blocks of nothing but ASCII. Valid until the next call.
    const std::vector<int>& Rest(const LineStore::Block& block, int from, int end);
    /// It has passed over too few lines to be worth its time, which is not tried again.
    bool IsWorthless() const { return m_Worthless; }

private:
    LineSieve(std::unique_ptr<re2::FilteredRE2> filter, const std::vector<std::string>& texts);

    void NoteTexts(const LineStore::Block& block, int from, int end);
    bool MayHold(unsigned texts);
    void Judge(int looked, size_t left);

    std::unique_ptr<re2::FilteredRE2> m_Filter;
    std::vector<ByteFinder>           m_Texts;     ///< In lower case.
    std::map<unsigned, bool>          m_Known;     ///< Whether those texts, as bits, are enough.
    std::string                       m_LowerCase; ///< The block's bytes.
    std::vector<unsigned>             m_Found;     ///< The texts of each line, as bits.
    std::vector<int>                  m_Rest;
    int64_t                           m_LinesLooked = 0;
    int64_t                           m_LinesLeft = 0;
    bool                              m_Worthless = false;
};
} // namespace textviews
