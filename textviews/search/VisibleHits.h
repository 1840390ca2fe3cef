#pragma once

#include "textviews/lines/PictureCache.h"
#include "textviews/search/HitFinder.h"

#include <memory>
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
    void Forget() { m_Known.Forget(); }

    /// Before the lines of a picture.
    void BeginPicture() { m_Known.BeginPicture(); }
    /// The hits that lie at least in part in those bytes of the line, in order.
    std::vector<ByteSpan> In(int line, std::string_view text, const ByteSpan& bytes);
    /// Some were not looked for in this picture: another one is due.
    bool IsIncomplete() const { return m_Known.IsIncomplete(); }

private:
    struct Found
    {
        size_t                from = 0; ///< Where to go on.
        std::vector<ByteSpan> hits;
    };

    std::shared_ptr<HitFinder> m_Finder;
    PictureCache<Found>        m_Known;
};
} // namespace textviews
