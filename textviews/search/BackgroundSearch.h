#pragma once

#include "textviews/search/HitNumbers.h"
#include "textviews/search/LineSearch.h"
#include "textviews/search/LineWatcher.h"
#include "textviews/search/SearchQuery.h"

#include <functional>

namespace textviews
{
/// A search through the lines of a view and the count of the hits, done in slices that are short
/// enough for a window to live meanwhile. Has to be told of the lines as long as it is active. Main
/// thread.
class BackgroundSearch final : public LineWatcher
{
public:
    /// `changed`: lines that came or went have left something to count, or have ended the search.
    BackgroundSearch(const LineStore& lines, std::function<void()> changed);

    /// What is looked for from now on. Ends a search and a count of something else.
    void                SetQuery(const SearchQuery& query);
    const SearchQuery&  Query() const { return m_Query; }
    const QueryProblem& Problem() const { return m_Problem; } ///< Of an expression that is none.
    /// What finds it; null when it is no expression.
    const std::shared_ptr<HitFinder>& Finder() const { return m_Finder; }

    /// Reads lines from now on as they are shown, or as they are stored. Ends a search, and counts
    /// anew.
    void LookAtShown(bool shown);
    bool LooksAtShown() const { return m_Lines.AreAsShown(); }

    /// Begins; see `LineSearch::Begin`. Not without something that finds it.
    void              Find(bool forward, const SearchPlace& start);
    void              StopSearch() { m_Search.Stop(); }
    bool              IsSearching() const;
    const LineSearch& Outcome() const { return m_Search; } ///< Once it is searching no more.

    /// Begins to count what is looked for, or ends that. Nothing is counted where nothing is looked
    /// for.
    void    Count(bool on);
    bool    HasCount() const { return m_Numbers.IsActive(); }
    bool    IsCounting() const { return HasCount() && !m_Numbers.IsCounted(); }
    int64_t Hits() const { return m_Numbers.Hits(); } ///< So far.
    /// The hit that is shown, line -1 for none, and its number; 0 where that is not known.
    void    SetCurrent(const SearchPlace& hit);
    int64_t Current() const { return m_Numbers.Current(); }

    bool IsActive() const { return IsSearching() || HasCount(); }
    bool HasWork() const { return IsSearching() || m_HasNumbersToFind; }
    /// It cannot go on before lines have come from a disk, which the view's store tells of.
    bool IsWaiting() const { return m_IsWaiting; }
    /// Goes on for a slice of time with the search; while there is none, with the count.
    void Work();

    void LineInserted(int line) override;
    void LineErased(int line) override;
    void LinesCleared() override;

private:
    bool Step();
    void CountOn();

    SearchedLines              m_Lines;
    std::function<void()>      m_Changed;
    SearchQuery                m_Query;
    QueryProblem               m_Problem;
    std::shared_ptr<HitFinder> m_Finder; ///< Null also where nothing is looked for.
    LineSearch                 m_Search;
    HitNumbers                 m_Numbers;
    bool                       m_HasNumbersToFind = false;
    bool                       m_IsWaiting = false;
};
} // namespace textviews
