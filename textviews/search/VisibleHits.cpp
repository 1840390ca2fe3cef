#include "textviews/search/VisibleHits.h"

#include <algorithm>

namespace textviews
{
void VisibleHits::SetFinder(std::shared_ptr<HitFinder> finder)
{
    m_Finder = std::move(finder);
    Forget();
}

std::vector<ByteSpan> VisibleHits::In(int line, std::string_view text, const ByteSpan& bytes)
{
    std::vector<ByteSpan> hits;
    if (!m_Finder)
    {
        return hits;
    }
    // A hit may begin that far before the first of those bytes.
    const size_t reach = m_Finder->Reach();
    for (size_t at = bytes.begin - std::min(bytes.begin, reach);
         at < std::min(bytes.end, text.size());)
    {
        const LinePiece piece = PieceAt(text, at, reach);
        const auto      goOn = [&](Found& found, size_t& budget)
        {
            found.from = std::max(found.from, piece.begin);
            while (found.from < piece.end && budget > 0)
            {
                m_Finder->HitsIn(text, piece, found.from, budget, found.hits);
            }
            return found.from >= piece.end;
        };
        const std::vector<ByteSpan>& known = m_Known.In(line, text, piece.begin, goOn).hits;
        const auto                   first =
            std::partition_point(known.begin(), known.end(),
                                 [&](const ByteSpan& hit) { return hit.end <= bytes.begin; });
        for (auto hit = first; hit != known.end() && hit->begin < bytes.end; ++hit)
        {
            hits.push_back(*hit);
        }
        at = piece.end;
    }
    return hits;
}
} // namespace textviews
