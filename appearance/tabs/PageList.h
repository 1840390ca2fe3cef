#pragma once

#include <wx/bmpbndl.h>
#include <wx/popupwin.h>

#include <functional>
#include <vector>

namespace appearance
{
/// A list of pages that floats over a window, drawn in the colours of the scheme. It shows which
/// row is marked and tells of the pointer; the keys are somebody else's.
class PageList : public wxPopupWindow
{
public:
    struct Row
    {
        wxString       text;
        wxBitmapBundle icon;
        bool           isModified = false;
    };

    PageList(wxWindow* parent, std::vector<Row> rows);

    /// Shows it with its upper right corner there, or as near as the display lets it be; `centred`:
    /// its middle.
    void Open(const wxPoint& screen, bool centred);

    int  Marked() const { return m_Marked; }
    int  Count() const { return static_cast<int>(m_Rows.size()); }
    int  PageLength() const { return m_Seen; } ///< Rows.
    void Mark(int row);
    /// Marks the next row that begins like this, or else has it in it; without regard to case.
    void MarkByTyping(const wxString& typed);

    std::function<void()> m_OnPicked; ///< The marked row was clicked.

private:
    wxSize BestSize(const wxRect& display) const;
    int    RowHeight() const;
    int    RowAt(const wxPoint& point) const;
    void   ScrollTo(int first);

    void OnPaint(wxPaintEvent& event);
    void OnMotion(wxMouseEvent& event);
    void OnRelease(wxMouseEvent& event);
    void OnWheel(wxMouseEvent& event);

    std::vector<Row> m_Rows;
    int              m_Marked = 0;
    int              m_First = 0; ///< The first row that is seen.
    int              m_Seen = 1;  ///< How many are.
    int              m_WheelTurn = 0;
};
} // namespace appearance
