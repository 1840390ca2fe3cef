#include "textviews/rules/VisibleRules.h"

#include <algorithm>

namespace textviews
{
namespace
{
constexpr size_t kPictureBytes = 1024 * 1024; // some milliseconds
constexpr size_t kMostPieces = 4096;          // more than a picture has
constexpr size_t kMostHits = 1'000'000;
} // namespace

void VisibleRules::SetRules(std::shared_ptr<const RuleSet> rules)
{
    m_Rules = std::move(rules);
    Forget();
}

void VisibleRules::Forget()
{
    m_Known.clear();
    m_KnownHits = 0;
}

void VisibleRules::BeginPicture()
{
    m_Budget = kPictureBytes;
    m_Incomplete = false;
    if (m_Known.size() > kMostPieces || m_KnownHits > kMostHits)
    {
        Forget();
    }
}

const RuleWork& VisibleRules::In(int line, std::string_view text, size_t byte)
{
    const size_t piece = byte / kPieceBytes * kPieceBytes;
    const char   first = text.empty() ? '\0' : text.front();
    Known&       known = m_Known[{line, piece}];
    if (known.size != text.size() || known.first != first)
    {
        known = {{}, text.size(), first};
    }
    const size_t before = known.work.hits.size();
    const bool   isDone = m_Rules->GoOn(text, piece, known.work, m_Budget);
    m_KnownHits += known.work.hits.size() - std::min(known.work.hits.size(), before);
    m_Incomplete = m_Incomplete || !isDone;
    return known.work;
}
} // namespace textviews
