#pragma once

#include "vesta/Export.h"
#include "vesta/String.h"
#include "vesta/Time.h"

#include <wx/bitmap.h>
#include <wx/control.h>

#include <cstdint>
#include <memory>

namespace internal
{
struct Raster;
}
namespace textviews
{
class BarHistory;
struct BarBounds;
} // namespace textviews

/// A small chart of the recent history of one quantity: a bar of one pixel for each value, the
/// newest at the right, with a level meter of the newest value across them. The tooltip tells the
/// current value, the range, the peak and the average. Main thread.
class TOLVAN_API wxBarHistoryCtrl : public wxControl
{
public:
    wxBarHistoryCtrl(); ///< To be followed by `Create`.
    wxBarHistoryCtrl(wxWindow* parent, int id, const wxPoint& position = wxDefaultPosition,
                     const wxSize& size = wxDefaultSize, unsigned style = 0);
    ~wxBarHistoryCtrl() override;

    bool Create(wxWindow* parent, int id, const wxPoint& position = wxDefaultPosition,
                const wxSize& size = wxDefaultSize, unsigned style = 0);

    /// The values that an empty and a full bar stand for. A value below the range shows as a full
    /// bar; in a range without extent nothing is shown.
    void SetBounds(uint32_t lower, uint32_t upper, bool refresh = true);
    /// The value from which on the meter is yellow.
    void SetMidBound(uint32_t mid, bool refresh = true);
    /// Keeps so many values; never fewer than the chart is pixels wide once it has been laid out.
    void LimitHistory(uint32_t limit, bool refresh = true);
    void PushValue(uint32_t value);
    /// Forgets the values, but neither peak nor what they add to the average.
    void Clear(bool refresh = true);
    /// Texts before and after the figures of the tooltip.
    void SetTooltipText(const String& prefix, const String& suffix);

    /// How much of `extent` pixels the value takes in that range.
    static int Scale(uint32_t value, uint32_t lower, uint32_t upper, int extent);

    bool AcceptsFocus() const override { return false; }
    /// Asked for at every paint, and slow to find.
    wxVisualAttributes GetDefaultAttributes() const override { return m_Attributes; }

protected:
    void DoSetToolTip(wxToolTip* tip) override;

private:
    void _Init();
    void OnPaint(wxPaintEvent& event);
    void OnEraseBackground(wxEraseEvent& event);
    void OnSize(wxSizeEvent& event);
    void OnColoursChanged(wxSysColourChangedEvent& event);
    void OnEnter(wxMouseEvent& event);
    void OnLeave(wxMouseEvent& event);

    void   Changed(bool refresh);
    void   Render();
    void   RebuildTooltip();
    void   ShowTooltips(bool entered);
    String TooltipText() const;

    std::unique_ptr<textviews::BarHistory> m_History;
    std::unique_ptr<textviews::BarBounds>  m_Bounds;
    std::unique_ptr<internal::Raster>      m_Raster; ///< What is drawn, kept for its memory.
    bool                                   m_Entered = false; ///< The pointer is here.
    bool                                   m_Empty = true; ///< No value since the start or `Clear`.
    bool                                   m_Dirty = true; ///< The bitmap is out of date.
    wxBitmap                               m_Bitmap;
    String                                 m_TooltipPrefix;
    String                                 m_TooltipSuffix;
    Time                                   m_PeakTime;
    wxVisualAttributes m_Attributes; ///< The toolkit's, which nothing is drawn with.

    wxDECLARE_EVENT_TABLE();
};
