#pragma once

#include "textviews/rules/ErrorSearch.h"
#include "textviews/rules/LineBands.h"
#include "textviews/rules/LineJudge.h"
#include "textviews/search/LineWatcher.h"
#include "textviews/search/SearchedLines.h"

#include <functional>
#include <memory>

namespace textviews
{
/// What rules and the search find in all lines of a view, worked out in slices that are short
/// enough for a window to live meanwhile: the way to the next error, and the bands of a strip. Has
/// to be told of the lines as long as it is active. Main thread.
class RuleIndex final : public LineWatcher
{
public:
    /// `changed`: lines that came or went have left something to do.
    RuleIndex(const LineStore& lines, std::function<void()> changed);

    /// Null: none. `folded`: lines are shown without their escape sequences. Ends a search.
    void SetRules(const std::shared_ptr<const RuleSet>& rules, bool folded);
    /// Of the search; null: none. `asShown`: it looks at the lines as they are shown.
    void SetFinder(std::shared_ptr<HitFinder> finder, bool asShown);
    /// Keeps the bands up to date, or does not.
    void KeepBands(bool on);

    const LineBands& RuleBands() const { return m_Rules.bands; }
    const LineBands& HitBands() const { return m_Hits.bands; }

    /// @name The next error
    /// @{
    bool               CanFind() const { return m_Rules.judge != nullptr; }
    void               Find(int line, bool forward); ///< See `ErrorSearch::Begin`.
    void               StopFinding() { m_Errors.Stop(); }
    bool               IsFinding() const;
    const ErrorSearch& Outcome() const { return m_Errors; } ///< Once it is finding no more.
    /// @}

    bool IsActive() const { return m_KeepsBands || IsFinding(); }
    bool HasWork() const { return IsFinding() || m_HasWork; }
    bool IsWaiting() const { return m_IsWaiting; } ///< For a disk: come again in a moment.
    /// Goes on for a slice of time.
    void Work();

    void LineInserted(int line) override;
    void LineErased(int line) override;
    void LinesCleared() override;

private:
    struct Layer
    {
        explicit Layer(const LineStore& store) : searched(store) {}

        SearchedLines              searched;
        LineBands                  bands;
        std::unique_ptr<LineJudge> judge; ///< Null: nothing is looked for.

        bool HasWork() const { return judge && !bands.IsComplete(); }
        void Reset(int lines) { bands.Reset(judge ? lines : 0); }
    };

    bool Step();
    bool StepBands(Layer& layer);
    void Restart(Layer& layer);
    void WorkOn();

    template <class Act> void ForEach(Act act)
    {
        for (Layer* const layer : {&m_Rules, &m_Hits})
        {
            if (layer->judge)
            {
                act(*layer);
            }
        }
    }

    const LineStore&        m_Lines;
    std::function<void()>   m_Changed;
    Layer                   m_Rules;
    Layer                   m_Hits;
    ErrorSearch             m_Errors;
    std::vector<MarkedLine> m_Marked; ///< Of a step.
    bool                    m_KeepsBands = false;
    bool                    m_HasWork = false; ///< For the bands.
    bool                    m_IsWaiting = false;
};
} // namespace textviews
