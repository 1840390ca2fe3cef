#pragma once

#include "benchmarks/ListWorkload.h"
#include "listviews/wxDBListBody.h"
#include "listviews/wxDBListCtrl.h"
#include "listviews/wxDBListHeader.h"
#include "textviews/wxTextLineCtrl.h"

#include <wx/listbase.h>
#include <wx/platinfo.h>

#include <functional>
#include <vector>

/// Our views with counts of what they do to be seen.

struct PaintCounts
{
    int paints = 0; ///< Paint events.
    int draws = 0;  ///< Those of them for which the picture was drawn anew.
};

/// Counts the paint events of the window.
inline void CountPaints(wxWindow* window, PaintCounts& counts)
{
    window->Bind(wxEVT_PAINT,
                 [&counts](wxPaintEvent& event)
                 {
                     ++counts.paints;
                     event.Skip();
                 });
}

/// A list of any number of rows that can be selected.
class WatchedList : public wxDBListCtrl
{
public:
    WatchedList(wxWindow* parent, int rows)
        : wxDBListCtrl(parent, wxID_ANY, false), m_Selected(static_cast<size_t>(rows))
    {
        for (int column = 0; column < kCellColumns; ++column)
        {
            AddColumn(column, SFormat("Column %d", column), kCellColumnWidth);
        }
        Insert(0, static_cast<unsigned long>(rows), true);
        CountPaints(GetBody(), body);
        CountPaints(GetHeader(), header);
        Bind(wxEVT_LIST_ITEM_SELECTED, [this](wxListEvent& event) { Select(event, true); });
        Bind(wxEVT_LIST_ITEM_DESELECTED, [this](wxListEvent& event) { Select(event, false); });
    }

    bool IsRowSelected(int row) override { return m_Selected[static_cast<size_t>(row)]; }
    std::vector<int> GetSelection() override
    {
        std::vector<int> rows;
        for (int row = 0; row < static_cast<int>(m_Selected.size()); ++row)
        {
            if (IsRowSelected(row))
            {
                rows.push_back(row);
            }
        }
        return rows;
    }
    String GetDisplayText(int row, int column) override { return WorkloadCell(row, column); }
    // The first row after a paint event is that of a new picture.
    void PrepareToDraw(int row) override
    {
        wxDBListCtrl::PrepareToDraw(row);
        ++rowsDrawn;
        if (m_DrawnAt != body.paints)
        {
            m_DrawnAt = body.paints;
            ++body.draws;
            onFrame();
        }
    }

    PaintCounts           body;
    PaintCounts           header; ///< Its draws are not known.
    int                   rowsDrawn = 0;
    std::function<void()> onFrame = [] {};

private:
    void Select(const wxListEvent& event, bool selected)
    {
        m_Selected[static_cast<size_t>(event.GetIndex())] = selected;
        RedrawItem(static_cast<int>(event.GetIndex()));
    }

    std::vector<bool> m_Selected;
    int               m_DrawnAt = 0; ///< The number of the paint event.
};

class WatchedText : public wxTextLineCtrl
{
public:
    explicit WatchedText(wxWindow* parent) : wxTextLineCtrl(parent) { CountPaints(this, counts); }

    PaintCounts           counts;
    std::function<void()> onFrame = [] {};

protected:
    void DrawBitmap() override
    {
        wxTextLineCtrl::DrawBitmap();
        ++counts.draws;
        onFrame();
    }
};

/// A place on the vertical thumb of a view that is scrolled to its top, in pixels of the screen.
inline wxPoint OnTopThumb(const wxWindow* view)
{
    constexpr int kWithin = 8; // pixels below the thumb's upper end
    const wxPoint client = view->ClientToScreen(wxPoint(0, 0));
    const int     right = client.x + view->GetClientSize().x;
    const int     width = view->GetScreenRect().GetRight() + 1 - right;
    const bool    steppers = wxPlatformInfo::Get().GetToolkitMajorVersion() < 3;
    return {right + width / 2, client.y + kWithin + (steppers ? width : 0)};
}
