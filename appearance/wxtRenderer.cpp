#include "appearance/wxtRenderer.h"

#include "appearance/wxTolvanColors.h"
#include "vesta/CallEntry.h"

#include <wx/dc.h>

namespace
{
constexpr int kSashWidth = 5; // pixels
} // namespace

wxtRenderer::wxtRenderer(wxRendererNative& wrapped) : wxDelegateRendererNative(wrapped)
{
}

// The sash alone parts the panes.
void wxtRenderer::DrawSplitterBorder(wxWindow*, wxDC&, const wxRect&, int)
{
}

void wxtRenderer::DrawSplitterSash(wxWindow*, wxDC& dc, const wxSize& size, wxCoord, wxOrientation,
                                   int)
{
    CALL_ENTRY("wxtRenderer::DrawSplitterSash");
    const wxDCBrushChanger brush(dc, wxBrush(wxtGetColor(color_ButtonFace)));
    const wxDCPenChanger   pen(dc, *wxTRANSPARENT_PEN);
    dc.DrawRectangle(wxPoint(0, 0), size);
}

wxSplitterRenderParams wxtRenderer::GetSplitterParams(const wxWindow*)
{
    constexpr int  kNoBorder = 0;
    constexpr bool kHotSensitive = true;
    return wxSplitterRenderParams(kSashWidth, kNoBorder, kHotSensitive);
}

wxRendererVersion wxtRenderer::GetVersion() const
{
    return wxRendererVersion(wxRendererVersion::Current_Version, wxRendererVersion::Current_Age);
}
