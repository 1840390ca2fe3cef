#pragma once

#include <algorithm>
#include <cstddef>
#include <map>
#include <string_view>
#include <utility>

namespace textviews
{
/// What has been found in pieces of the lines that a view draws. It is looked for when a line is
/// drawn, in no more bytes than a picture may cost, and remembered. A `Found` has `hits`, which are
/// counted. Main thread.
template <class Found> class PictureCache
{
public:
    /// Whenever the lines' numbers or contents change.
    void Forget()
    {
        m_Known.clear();
        m_Hits = 0;
    }
    /// Before the lines of a picture.
    void BeginPicture()
    {
        m_Budget = k_PictureBytes;
        m_IsIncomplete = false;
        if (m_Known.size() > k_MostPieces || m_Hits > k_MostHits)
        {
            Forget();
        }
    }
    /// What is known of the piece of the line that begins at that byte. `goOn` adds to it, takes
    /// what that costs off the budget, and gives whether all is done. Valid until `Forget` or the
    /// next picture.
    template <class GoOn>
    const Found& In(int line, std::string_view text, size_t piece, const GoOn& goOn)
    {
        const char first = text.empty() ? '\0' : text.front();
        Known&     known = m_Known[{line, piece}];
        if (known.size != text.size() || known.first != first)
        {
            known = {{}, text.size(), first};
        }
        const size_t before = known.found.hits.size();
        m_IsIncomplete = !goOn(known.found, m_Budget) || m_IsIncomplete;
        m_Hits += known.found.hits.size() - std::min(known.found.hits.size(), before);
        return known.found;
    }
    /// Some was not looked for in this picture: another one is due.
    bool IsIncomplete() const { return m_IsIncomplete; }

private:
    static constexpr size_t k_PictureBytes = 1024 * 1024; // some milliseconds
    static constexpr size_t k_MostPieces = 4096;          // more than a picture has
    static constexpr size_t k_MostHits = 1'000'000;

    struct Known
    {
        Found  found;
        size_t size = 0; ///< Of the line: one whose disk was waited for is another one then.
        char   first = 0;
    };

    std::map<std::pair<int, size_t>, Known> m_Known; ///< By line and piece.
    size_t                                  m_Hits = 0;
    size_t                                  m_Budget = 0;
    bool                                    m_IsIncomplete = false;
};
} // namespace textviews
