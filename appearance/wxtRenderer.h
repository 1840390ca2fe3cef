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
    void DrawComboBoxDropButton(wxWindow* window, wxDC& dc, const wxRect& rect,
                                int flags = 0) override;
    /// A triangle at the right end of the rectangle, in the colour of the buttons' text.
    void DrawDropArrow(wxWindow* window, wxDC& dc, const wxRect& rect, int flags = 0) override;
    /// A bevelled box; filled with the selection's colour and pressed in when checked.
    void DrawCheckBox(wxWindow* window, wxDC& dc, const wxRect& rect, int flags = 0) override;
    void DrawChoice(wxWindow* window, wxDC& dc, const wxRect& rect, int flags = 0) override;
    /// Rings of colour, the same way.
    void DrawRadioBitmap(wxWindow* window, wxDC& dc, const wxRect& rect, int flags = 0) override;
    wxSplitterRenderParams GetSplitterParams(const wxWindow* window) override;
    wxRendererVersion      GetVersion() const override;
};
