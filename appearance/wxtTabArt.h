#pragma once

#include "vesta/Export.h"

#include <wx/aui/tabart.h>

#include <memory>

namespace appearance
{
struct TabFonts;
struct TabSizes;
} // namespace appearance

/// The tabs of a notebook in the colours of the scheme: graded grounds, the icon, the text,
/// shortened in its middle where there is no room, and the close button, in whose place a page of a
/// `wxtNotebook` that has been modified has a mark. The active tab has a bar in the colour of what
/// is selected (grey in a pane that is not the current one), and a frame when it has the keys. It
/// asks for the colours whenever it draws. `wxtNotebook` has one; any other `wxAuiNotebook` can be
/// given one by `SetArtProvider`. Tabs have one font: the active one is not as wide as a bold text.
/// Main thread.
class TOLVAN_API wxtTabArt : public wxAuiTabArt
{
public:
    wxtTabArt();
    ~wxtTabArt() override;

    /// The copy has the fonts of this one, later ones too.
    wxAuiTabArt* Clone() override;
    void         SetFlags(unsigned int flags) override;
    void         SetSizingInfo(const wxSize& tabCtrlSize, size_t tabCount,
                               wxWindow* wnd = nullptr) override;

    /// @name Fonts
    /// Of all tabs; an invalid one is the toolkit's normal one. That of the selected tab is not
    /// used.
    /// @{
    void SetNormalFont(const wxFont& font) override;
    void SetSelectedFont(const wxFont& font) override;
    void SetMeasuringFont(const wxFont& font) override;
    /// @}
    /// @name Colours
    /// They are those of the scheme, whatever is set here.
    /// @{
    void SetColour(const wxColour& colour) override;
    void SetActiveColour(const wxColour& colour) override;
    /// @}

    void   DrawBorder(wxDC& dc, wxWindow* wnd, const wxRect& rect) override;
    void   DrawBackground(wxDC& dc, wxWindow* wnd, const wxRect& rect) override;
    void   DrawTab(wxDC& dc, wxWindow* wnd, const wxAuiNotebookPage& pane, const wxRect& inRect,
                   int closeButtonState, wxRect* outTabRect, wxRect* outButtonRect,
                   int* xExtent) override;
    void   DrawButton(wxDC& dc, wxWindow* wnd, const wxRect& inRect, int bitmapId, int buttonState,
                      int orientation, wxRect* outRect) override;
    wxSize GetTabSize(wxDC& dc, wxWindow* wnd, const wxString& caption,
                      const wxBitmapBundle& bitmap, bool active, int closeButtonState,
                      int* xExtent) override;
    /// The item that the user picks from a menu, or -1. A `wxtNotebook` has a list of its own.
    int ShowDropDown(wxWindow* wnd, const wxAuiNotebookPageArray& items, int activeIdx) override;
    int GetIndentSize() override;
    int GetBorderWidth(wxWindow* wnd) override;
    int GetAdditionalBorderSpace(wxWindow* wnd) override;
    int GetBestTabCtrlSize(wxWindow* wnd, const wxAuiNotebookPageArray& pages,
                           const wxSize& requiredBmpSize) override;

    /// @name Geometry
    /// Of tabs in such a window, pixels. `closable`: they have a close button.
    /// @{
    int WidthOf(const wxWindow& wnd, const wxAuiNotebookPage& page, bool closable) const;
    /// For many tabs: with GTK 2 the sizes that they share take a question to the display each.
    int WidthOf(const wxWindow& wnd, const wxAuiNotebookPage& page, bool closable,
                const appearance::TabSizes& sizes) const;
    static appearance::TabSizes SizesFor(const wxWindow& wnd);
    wxRect SlotIn(const wxWindow& wnd, const wxAuiNotebookPage& page, const wxRect& tab) const;
    /// Whether there is no room for the whole text.
    bool IsShortened(const wxWindow& wnd, const wxAuiNotebookPage& page, int width,
                     bool closable) const;
    /// @}
    /// Width of each button beside the tabs, pixels.
    static int ButtonWidth(const wxWindow& wnd);

private:
    wxtTabArt(const wxtTabArt&) = default;

    wxRect GroundIn(const wxRect& tab) const;

    std::shared_ptr<appearance::TabFonts> m_Fonts; // of all copies
    unsigned int                          m_Flags = 0;
};
