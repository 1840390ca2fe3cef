#pragma once

#include "textviews/search/HitFinder.h"

#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace textviews
{
/// The hits in the lines that a view draws. They are looked for when a line is drawn, in no more
/// bytes than a picture may cost, and remembered. Main thread.
class VisibleHits
{
public:
    /// What finds them; null: there are none.
    void SetFinder(std::shared_ptr<HitFinder> finder);
    bool IsOn() const { return m_Finder != nullptr; }

    /// Whenever the lines' numbers or contents change.
    void Forget();

    /// Before the lines of a picture.
    void BeginPicture();
    /// The hits that lie at least in part in those bytes of the line, in order.
    std::vector<ByteSpan> In(int line, std::string_view text, const ByteSpan& bytes);
    /// Some were not looked for in this picture: another one is due.
    bool IsIncomplete() const { return m_Incomplete; }

private:
    struct Known
    {
        size_t                from = 0; ///< Where to go on.
        std::vector<ByteSpan> hits;
    };

    std::shared_ptr<HitFinder>              m_Finder;
    std::map<std::pair<int, size_t>, Known> m_Known; ///< By line and piece.
    size_t                                  m_KnownHits = 0;
    size_t                                  m_Budget = 0;
    bool                                    m_Incomplete = false;
};
} // namespace textviews
