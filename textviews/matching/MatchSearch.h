#pragma once

#include "textviews/matching/MatchingLines.h"

namespace textviews
{
/// Looks for the lines of a view that match, in slices that are short enough for a window to live
/// meanwhile. What was found before is kept until there is something to show in its place. Main
/// thread.
class MatchSearch
{
public:
    explicit MatchSearch(const LineStore& lines) : m_Lines(lines) { m_Lines.WaitForDisk(false); }

    /// Begins anew with what is looked for; null: there are no matches.
    void SetFinder(std::shared_ptr<HitFinder> finder);
    void SetAround(const LinesAround& around);
    /// Whether lines are looked at as they are shown, or as they are stored.
    void LookAtShown(bool shown);

    const std::shared_ptr<HitFinder>& Finder() const { return m_Finder; } ///< Of what is wanted.
    const LinesAround&                Around() const { return m_Around; }
    const MatchingLines&              Found() const { return m_Found; }

    bool HasWork() const { return m_HasNext || !m_Found.IsComplete(); }
    /// It cannot go on before lines have come from a disk, which the view's store tells of.
    bool IsWaiting() const { return (m_HasNext ? m_Next : m_Found).IsWaiting(); }
    void Work(); ///< For a slice of time.

    /// To be told of every line that comes, after it came, and of every line that goes.
    /// @{
    void LineInserted(int line);
    void LineErased(int line);
    void LinesCleared();
    /// @}

private:
    void BeginAnew();
    void Step();

    SearchedLines              m_Lines;
    std::shared_ptr<HitFinder> m_Finder;
    LinesAround                m_Around;
    MatchingLines              m_Found;
    MatchingLines              m_Next; ///< To be shown once something is in it.
    bool                       m_HasNext = false;
};
} // namespace textviews
