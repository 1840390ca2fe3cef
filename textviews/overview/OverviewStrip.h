#pragma once

#include "appearance/wxtColorManaged.h"
#include "textviews/overview/StripLayout.h"

#include <wx/window.h>

#include <cstdint>
#include <functional>
#include <vector>

namespace internal
{
class EnabledEvent;
}

namespace textviews
{
/// What a strip shows.
struct StripPicture
{
    std::vector<uint8_t> rows;  ///< Marks of each row of pixels; see `LineJudge.h`.
    StripSpan            frame; ///< The rows of what is seen.

    bool operator==(const StripPicture& other) const
    {
        return rows == other.rows && frame == other.frame;
    }
};

/// The narrow strip at the right edge of a view that shows where in all of its lines something is,
/// and which of them are seen. A press or a drag scrolls there. A child of the view, which destroys
/// it. Keys and the focus stay with the view.
class OverviewStrip : public wxWindow, public wxtColorManaged
{
public:
    struct Acts
    {
        std::function<void(int row, bool isPress)> goTo;
        std::function<wxString(int row)>           tip;
        std::function<void(wxMouseEvent&)>         onWheel;
        std::function<void()>                      onPlaced; ///< It has another size now.
    };
    OverviewStrip(wxWindow* view, Acts acts);
    ~OverviewStrip() override;

    void ShowPicture(StripPicture picture); ///< Does nothing when that is shown already.
    int  Rows() const { return GetClientSize().y; }

    bool AcceptsFocus() const override { return false; }

private:
    void Place();
    void OnViewSize(wxSizeEvent& event);
    void OnPaint(wxPaintEvent& event);
    void OnPress(wxMouseEvent& event);
    void OnMotion(wxMouseEvent& event);
    void OnRelease(wxMouseEvent& event);
    void OnCaptureLoss(wxMouseCaptureLostEvent& event);
    void OnEnabled(internal::EnabledEvent& event);
    void EndDrag();
    void DrawMarks(wxDC& dc, const StripSpan& lane, uint8_t bit, const wxColour& colour,
                   bool inFrame) const;

    Acts         m_Acts;
    StripPicture m_Picture;
    bool         m_Dragging = false;
};
} // namespace textviews
