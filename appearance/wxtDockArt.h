#pragma once

#include "vesta/Export.h"

#include <wx/aui/aui.h>

#include <memory>

namespace appearance
{
class DropHint;
}

/// The captions, sashes, grippers, borders and buttons of docked panes in the colours of the
/// scheme, for any `wxAuiManager` (`SetArtProvider`). The active pane's caption is in the colour of
/// what is selected. It asks for the colours whenever it draws; those that are set are not used.
/// Main thread.
class TOLVAN_API wxtDockArt : public wxAuiDefaultDockArt
{
public:
    wxtDockArt();

    wxAuiDockArt* Clone() override;
    wxColour      GetColour(int id) override;
    void          UpdateColoursFromSystem() override;

    void DrawSash(wxDC& dc, wxWindow* window, int orientation, const wxRect& rect) override;
    void DrawBackground(wxDC& dc, wxWindow* window, int orientation, const wxRect& rect) override;
    void DrawCaption(wxDC& dc, wxWindow* window, const wxString& text, const wxRect& rect,
                     wxAuiPaneInfo& pane) override;
    void DrawGripper(wxDC& dc, wxWindow* window, const wxRect& rect, wxAuiPaneInfo& pane) override;
    void DrawBorder(wxDC& dc, wxWindow* window, const wxRect& rect, wxAuiPaneInfo& pane) override;
    void DrawPaneButton(wxDC& dc, wxWindow* window, int button, int buttonState, const wxRect& rect,
                        wxAuiPaneInfo& pane) override;
};

/// A manager of docked panes with a `wxtDockArt`, whose hint of where a pane would go is a frame in
/// the scheme's colour of what is selected, too. Used as the toolkit's: `UnInit` before the managed
/// window goes. Main thread.
class TOLVAN_API wxtDockManager : public wxAuiManager
{
public:
    explicit wxtDockManager(wxWindow* managed = nullptr);
    ~wxtDockManager() override;

    void ShowHint(const wxRect& rect) override;
    void HideHint() override;

private:
    std::unique_ptr<appearance::DropHint> m_Hint;
};
