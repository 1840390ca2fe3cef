#pragma once

#include "listviews/wxDBListBase.h"
#include "vesta/Export.h"

#include <functional>

namespace listviews
{
class CellText;
}

/// The titles of a list: a click on one is told to the host (`wxEVT_LIST_COL_CLICK`, and
/// `wxEVT_LIST_COL_RIGHT_CLICK` with the other button), dragging its right edge changes the
/// column's width (`wxEVT_LIST_COL_BEGIN_DRAG`, `wxEVT_LIST_COL_END_DRAG`). The points of its
/// events are shifted by its height, so that they read in the body's pixels. Main thread.
class TOLVAN_API wxDBListHeader : public wxDBListBase
{
public:
    /// `resize` gives a column the width (pixels) that a hand drags it to.
    wxDBListHeader(wxWindow& list, listviews::ListModel& model,
                   std::function<void(int column, int width)> resize);

    void OnMotion(wxMouseEvent& event);
    void OnLDown(wxMouseEvent& event);
    void OnLUp(wxMouseEvent& event);
    void OnRDown(wxMouseEvent& event);
    void OnLeave(wxMouseEvent& event); ///< Ends the hover look.

    int  PressedColumn() const; ///< The one whose title is held down, or -1.
    bool IsResizing() const;
    bool AcceptsFocusFromKeyboard() const override;
    /// Columns have been inserted, moved or removed: what is held down is let go.
    void ForgetColumns();

protected:
    void DrawBitmap() override;

private:
    void    Resize(int x);
    void    Hover(int x);
    void    ShowCursor(bool onEdge);
    wxPoint InBody(const wxMouseEvent& event) const;

    wxColour FaceOf(int column) const;
    void     DrawTitle(wxDC& dc, listviews::CellText& cells, int column, const wxRect& rect);
    int      DrawImage(wxDC& dc, int image, const wxRect& room);
    int      DrawRank(wxDC& dc, listviews::CellText& cells, int rank, const wxRect& room);
    int      DrawArrow(wxDC& dc, bool up, const wxRect& room);

    std::function<void(int, int)> m_Resize;
    bool                          m_OnEdge = false; ///< The resize cursor is shown.

    wxDECLARE_EVENT_TABLE();
};
