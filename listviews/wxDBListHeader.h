#pragma once

#include "listviews/wxDBListBase.h"
#include "vesta/Export.h"

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
    explicit wxDBListHeader(wxDBListCtrl* list);

    void OnMotion(wxMouseEvent& event);
    void OnLDown(wxMouseEvent& event);
    void OnLUp(wxMouseEvent& event);
    void OnRDown(wxMouseEvent& event);
    void OnLeave(wxMouseEvent& event); ///< Ends the hover look.

    int  PressedColumn() const { return m_Pressed; }
    bool AcceptsFocusFromKeyboard() const override;
    bool IsResizing() const { return m_ResizeStart >= 0; }
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
    int      DrawArrow(wxDC& dc, bool up, const wxRect& room);

    int  m_Pressed = -1;     ///< The column whose title is held down, or -1.
    int  m_ResizeStart = -1; ///< Where the drag of an edge began, pixels; -1 when there is none.
    int  m_Hovered = -1;     ///< The column whose edge or title the pointer is on, or -1.
    bool m_OnEdge = false;   ///< The resize cursor is shown.

    wxDECLARE_EVENT_TABLE();
};
