#pragma once

#include "listviews/wxDBListBase.h"
#include "vesta/Export.h"

#include <wx/timer.h>

namespace listviews
{
class CellText;
struct ColumnActions;
} // namespace listviews

/// The titles of a list: a click on one is told to the host (`wxEVT_LIST_COL_CLICK`, and
/// `wxEVT_LIST_COL_RIGHT_CLICK` with the other button; a menu of the columns opens when no handler
/// takes that), dragging its right edge changes the column's width (`wxEVT_LIST_COL_BEGIN_DRAG`,
/// `wxEVT_LIST_COL_END_DRAG`), a double click there fits it to its content. A title that is dragged
/// itself moves its column, and clicks nothing. The points of its events are shifted by its height,
/// so that they read in the body's pixels. Main thread.
class TOLVAN_API wxDBListHeader : public wxDBListBase
{
public:
    /// `actions`: the list's; they outlive the titles.
    wxDBListHeader(wxWindow& list, listviews::ListModel& model,
                   const listviews::ColumnActions& actions);
    ~wxDBListHeader() override;

    void OnMotion(wxMouseEvent& event);
    void OnLDown(wxMouseEvent& event);
    void OnLUp(wxMouseEvent& event);
    void OnDoubleClick(wxMouseEvent& event);
    void OnRDown(wxMouseEvent& event);
    void OnLeave(wxMouseEvent& event); ///< Ends the hover look.

    int  PressedColumn() const; ///< The one whose title is held down, or -1.
    bool IsResizing() const;
    bool IsMovingTitle() const; ///< One is dragged to another place.
    bool GiveUpMove(); ///< It stays where it is, and nothing is clicked; whether there was one.
    int  TitleWidth(int column) const; ///< Pixels that the whole title takes.
    /// As a right click on that title does, or beside the titles (-1). `where`: client pixels.
    void AskForMenu(int column, const wxPoint& where);
    bool AcceptsFocusFromKeyboard() const override;
    /// Columns have been inserted, moved or removed: what is held down is let go.
    void ForgetColumns();

protected:
    void DrawBitmap() override;

private:
    void    Resize(int x);
    void    Hover(int x);
    void    HoverAnew();
    void    ShowCursor(bool onEdge);
    wxPoint InBody(const wxMouseEvent& event) const;
    void    OnCaptureLost(wxMouseCaptureLostEvent& event);

    wxString LabelOf(int column) const; ///< Empty when there is no such column.

    bool MayMove(int x) const;
    void MoveTitle(int x);
    void DropTitle();
    void ScrollToPointer();

    void     MeasureTitles(const wxDC& dc);
    wxColour FaceOf(int column) const;
    void     DrawTitle(wxDC& dc, listviews::CellText& cells, int column, const wxRect& rect);
    int      DrawImage(wxDC& dc, int image, const wxRect& room);
    int      DrawRank(wxDC& dc, listviews::CellText& cells, int rank, const wxRect& room);
    int      DrawArrow(wxDC& dc, bool up, const wxRect& room);
    int      ArrowHeight() const;
    int      ArrowWidth() const;
    int      ImageWidth(int image) const;
    void     DrawTitleCursor(listviews::CellText& cells, const wxRect& rect);
    void     DrawMove(wxDC& dc, listviews::CellText& cells);

    const listviews::ColumnActions& m_Actions;
    bool                            m_OnEdge = false; ///< The resize cursor is shown.
    wxFont                          m_TitleFont;      ///< That was measured, at that scale.
    double                          m_TitleScale = 0;
    int                             m_TitleHeight = 0; ///< Pixels of a line of text.
    int                             m_DrawnScroll = 0; ///< Pixels, when they were drawn last.
    int                             m_PointerX = -1;   ///< Where it was seen last; -1: not here.
    wxTimer                         m_MoveTimer; ///< Scrolls under a title that is held outside.

    wxDECLARE_EVENT_TABLE();
};
