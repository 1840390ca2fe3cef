#pragma once

#include "vesta/Export.h"

#include <wx/dc.h>
#include <wx/renderer.h>
#include <wx/window.h>

/// The application's renderer: draws over another one what the colour scheme gives a look of its
/// own. Main thread.
class TOLVAN_API wxtRenderer : public wxDelegateRendererNative
{
public:
    /// `wrapped` draws everything else; not owned.
    explicit wxtRenderer(wxRendererNative& wrapped);

    void DrawSplitterBorder(wxWindow* window, wxDC& dc, const wxRect& rect, int flags) override;
    /// One flat colour over the whole sash window: position and orientation do not matter.
    void DrawSplitterSash(wxWindow* window, wxDC& dc, const wxSize& size, wxCoord position,
                          wxOrientation orientation, int flags) override;
    wxSplitterRenderParams GetSplitterParams(const wxWindow* window) override;
    wxRendererVersion      GetVersion() const override;
};
