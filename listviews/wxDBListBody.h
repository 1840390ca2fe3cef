#pragma once

#include "listviews/wxDBListBase.h"
#include "vesta/Export.h"

#include <wx/timer.h>

#include <chrono>
#include <functional>

namespace listviews
{
class CellText;
class DrawnRows;
class SelectionWork;
class TypingWatch;
struct RowBand;
} // namespace listviews
class wxDBListSource;

/// The rows of a list. It turns clicks and arrow keys into selection events; what is selected is
/// the source's to know. Main thread.
class TOLVAN_API wxDBListBody : public wxDBListBase
{
public:
    /// `titles` are drawn anew with every scroll.
    wxDBListBody(wxWindow& list, listviews::ListModel& model, wxDBListSource& source,
                 wxDoubleBufferedWindow& titles, bool singleSelection);
    ~wxDBListBody() override;

    void OnLDown(wxMouseEvent& event);
    void OnLUp(wxMouseEvent& event);
    void OnDoubleClick(wxMouseEvent& event);
    void OnRDown(wxMouseEvent& event);
    void OnMotion(wxMouseEvent& event);
    void OnLeave(wxMouseEvent& event);
    void OnKey(wxKeyEvent& event);
    void OnFocus(wxFocusEvent& event);
    void Notify(wxTimerEvent& event); ///< The pointer rests: the cell's whole text is its tooltip.

    /// @name Places
    /// Body pixels.
    /// @{
    wxRect GetItemRect(int row) const;
    wxRect GetColumnRect(int column) const;
    wxRect GetCellRect(int row, int column) const;
    /// @}

    /// @name Changes of the model
    /// The model's rows have come or gone, its columns have become wider or narrower: the
    /// scrollbars follow.
    /// @{
    void RowsChanged();
    void ColumnsChanged();
    /// @}
    /// Asks for those rows that are selected or have the keys and were drawn otherwise, or the
    /// other way round. Costs next to nothing, and looks when the redraw delay is over.
    void RedrawMarks() { GatherLater(); }
    void ShowRow(int row);  ///< Scrolls by the least that shows the whole row.
    void TraceScrollbars(); ///< Logs every change of the scrollbars from now on.

    /// Tells that every selected row is deselected. False when the list is gone.
    bool DeselectAll(bool resetAnchor);
    /// The same, and then that this row is selected; of very many rows in idle time.
    bool SelectOnly(int row, const wxPoint& point);
    /// What is told so.
    listviews::SelectionWork& Selecting() { return *m_Selecting; }

    /// Draws a text within the room of a cell; false when it does not paint on that context now.
    bool DrawCellText(wxDC& dc, const wxString& text, const wxRect& room);
    bool DrawAsciiText(wxDC& dc, const String& text, const wxRect& room); ///< Or false, too.
    /// Fills a part of a cell. Texts that were drawn before may come on top.
    void FillCell(wxDC& dc, const wxRect& rect, const wxColour& colour);

    int CellTextWidth(wxDC& dc, const wxString& text) const; ///< Pixels.
    /// Pixels of the widest of the cells seen and of a sample of the others, as far as the time
    /// goes.
    int WidestCell(int column, std::chrono::steady_clock::duration time);

private:
    void     DrawBitmap() override;
    void     DrawRow(wxDC& dc, const listviews::ListGeometry& geometry, int row);
    void     DrawCells(wxDC& dc, const listviews::ListGeometry& geometry, int row,
                       const wxColour& ground);
    void     DrawGrid(const listviews::ListGeometry& geometry, const listviews::RowBand& band);
    void     DrawFocus(const listviews::ListGeometry&         geometry,
                       const std::vector<listviews::RowBand>& drawn);
    wxColour GroundOf(int row, bool hovered) const;
    wxColour FocusColourOn(int row) const;
    wxRect   FocusFrame(const listviews::ListGeometry& geometry) const;
    void     AskForChangedRows();

    int  HoverRow() const;
    void SetHoverRow(int row);
    void ShowCursor(const wxPoint& pointer);

    bool IsAdding(bool modifier) const { return modifier && !m_SingleSelection; }
    bool SelectByClick(const wxMouseEvent& event, std::function<void()> then);
    bool ProcessSelection(const wxMouseEvent& event, int row, bool isRange,
                          std::function<void()> then);
    bool EndSelecting(bool adding);
    void MoveAnchor(int step, const wxKeyEvent& event);
    void ShowAnchor();

    wxDBListSource& m_Source;
    bool            m_SingleSelection;
    wxPoint         m_Pointer{-1, -1}; ///< Where it was seen last.
    wxTimer         m_HoverTimer;

    std::unique_ptr<listviews::DrawnRows>     m_Drawn;
    std::unique_ptr<listviews::TypingWatch>   m_Typing;
    std::unique_ptr<listviews::SelectionWork> m_Selecting;

    listviews::CellText* m_CellText = nullptr; ///< While it paints.

    wxDECLARE_EVENT_TABLE();
};
