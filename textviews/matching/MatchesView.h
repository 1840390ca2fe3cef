#pragma once

#include "textviews/lines/LineSpan.h"
#include "textviews/matching/PickedLines.h"
#include "textviews/search/LineWatcher.h"
#include "textviews/search/SearchCompanion.h"
#include "textviews/wxTextLineCtrl.h"

#include <functional>

namespace textviews
{
/// Those lines of a text view that match what its search bar looks for, and some around them, with
/// the numbers that they have there. A click, or Enter, on a line goes there. It looks as the view
/// does, and has to go before it. Main thread.
class MatchesView final : public wxTextLineCtrl, private LineWatcher, private SearchCompanion
{
public:
    MatchesView(wxWindow* parent, wxTextLineCtrl& whole);
    ~MatchesView() override;

    /// Before the view goes, or this one is no longer wanted: nothing is shown any more.
    void Leave();

    const LinesAround& Around() const { return Picked().Search().Around(); }
    void               SetAround(const LinesAround& around);
    /// Called when the user has chosen others.
    std::function<void(const LinesAround&)> onAround;

    bool IsComplete() const { return !Picked().Search().HasWork(); }
    int  Matches() const { return Picked().Search().Found().Matches(); } ///< So far.
    int  WholeLine(int row) const { return Picked().Search().Found().LineOf(row); }
    bool HasGapBefore(int row) const { return Picked().Search().Found().HasGapBefore(row); }

protected:
    void DrawBitmap() override;

private:
    /// What was seen and selected before lines came or went, by the view's own lines.
    struct Kept
    {
        int     anchor = -1;
        int     end = -1;
        int     partLine = -1; ///< Of which a part is selected.
        int     top = -1;
        int     below = 0; ///< Pixels of that line that are scrolled away,
        int64_t cell = 0;  ///< or where lines wrap, the cell of it that comes first.
        bool    follows = false;
        /// Those lines are not found yet, and were not when the view was last scrolled there.
        bool     isSelectionAway = false;
        bool     isTopAway = false;
        int      position = 0;
        LineSpan part;
    };

    PickedLines&       Picked() { return static_cast<PickedLines&>(*m_Lines); }
    const PickedLines& Picked() const { return static_cast<const PickedLines&>(*m_Lines); }

    int64_t NumberOf(int row) const override;
    bool    IsMarked(int row) const override;
    bool    IsQuiet(int row) const override;
    int     OriginOf(int row) const override;

    const wxTextLineCtrl& Whole() const override;
    bool                  RunReadingCommand(int id) override;

    void LineInserted(int line) override;
    void LineErased(int line) override;
    void LinesCleared() override;
    void LookChanged() override;

    void LookFor(const std::shared_ptr<HitFinder>& finder, bool shown) override;
    bool HasWork() const override;
    bool IsWaiting() const override { return Picked().Search().IsWaiting(); }
    void Work() override;

    void Keep();
    void ShowRows();
    int  RowOf(int line) const;
    void DrawGaps();
    void GoToRow(int row);
    void MoveBy(int rows);
    void OnRowClick(wxMouseEvent& event);
    void OnRowKey(wxKeyEvent& event);
    void OnRowMenu(wxMouseEvent& event);
    void OnAround(wxCommandEvent& event);

    wxTextLineCtrl* m_Whole; ///< Null once this has left it.
    bool            m_HasKept = false;
    Kept            m_Kept;
};
} // namespace textviews
