#pragma once

#include "textviews/search/LineSearch.h"
#include "textviews/search/LineWatcher.h"

#include <functional>

namespace textviews
{
/// A search through the lines of a view and the count of those with a hit, done in slices that are
/// short enough for a window to live meanwhile. Has to be told of the lines as long as it is
/// active. Main thread.
class BackgroundSearch final : public LineWatcher
{
public:
    /// `changed`: lines that came or went have left something to count, or have ended the search.
    BackgroundSearch(const LineStore& lines, std::function<void()> changed);

    /// Begins; see `LineSearch::Begin`.
    void              Find(const String& text, bool forward, bool matchCase, int start);
    void              StopSearch() { m_Search.Stop(); }
    bool              IsSearching() const;
    const LineSearch& Outcome() const { return m_Search; } ///< Once it is searching no more.

    /// Begins to count; an empty text ends it.
    void Count(const String& text, bool matchCase);
    bool HasCount() const { return m_Counter.IsActive(); }
    bool IsCounting() const { return m_IsCounting; } ///< Lines are left to be counted.
    int  Hits() const { return HasCount() ? m_Counter.Hits() : 0; } ///< So far.

    bool IsActive() const { return IsSearching() || HasCount(); }
    /// Goes on for a slice of time with the search; while there is none, with the count.
    void Work();

    void LineInserted(int line) override;
    void LineErased(int line) override;
    void LinesCleared() override;

private:
    bool Step();
    void CountOn();

    const LineStore&      m_Lines;
    std::function<void()> m_Changed;
    LineSearch            m_Search;
    HitCounter            m_Counter;
    bool                  m_IsCounting = false;
};
} // namespace textviews
