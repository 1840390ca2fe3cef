#include "textviews/search/VisibleHits.h"

#include <algorithm>

namespace textviews
{
namespace
{
constexpr size_t kPictureBytes = 1024 * 1024; // some milliseconds
constexpr size_t kMostPieces = 4096;          // more than a picture has
constexpr size_t kMostHits = 1'000'000;
} // namespace

void VisibleHits::SetFinder(std::shared_ptr<HitFinder> finder)
{
    m_Finder = std::move(finder);
    Forget();
}

void VisibleHits::Forget()
{
    m_Known.clear();
    m_KnownHits = 0;
}

void VisibleHits::BeginPicture()
{
    m_Budget = kPictureBytes;
    m_Incomplete = false;
    if (m_Known.size() > kMostPieces || m_KnownHits > kMostHits)
    {
        Forget();
    }
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
        Known&          known =
            m_Known.try_emplace({line, piece.begin}, Known{piece.begin, {}}).first->second;
        const size_t before = known.hits.size();
        while (known.from < piece.end && m_Budget > 0)
        {
            m_Finder->HitsIn(text, piece, known.from, m_Budget, known.hits);
        }
        m_KnownHits += known.hits.size() - before;
        m_Incomplete = m_Incomplete || known.from < piece.end;
        const auto first =
            std::partition_point(known.hits.begin(), known.hits.end(),
                                 [&](const ByteSpan& hit) { return hit.end <= bytes.begin; });
        for (auto hit = first; hit != known.hits.end() && hit->begin < bytes.end; ++hit)
        {
            hits.push_back(*hit);
        }
        at = piece.end;
    }
    return hits;
}
} // namespace textviews
