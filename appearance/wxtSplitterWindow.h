#pragma once

#include "appearance/wxtColorManaged.h"
#include "vesta/Export.h"
#include "vesta/String.h"

#include <wx/splitter.h>

/// Two panes, one above the other, in the colours of the scheme, with a sash between them that
/// comes back where the user left it, also after the window was too small for that, and that the
/// keyboard moves, too. Main thread.
class TOLVAN_API wxtSplitterWindow : public wxSplitterWindow, public wxtColorManaged
{
public:
    /// `name`: section of the options file that keeps the place of the sash; with an empty one it
    /// is not remembered.
    wxtSplitterWindow(wxWindow* parent, const String& name);
    ~wxtSplitterWindow() override;

    /// Shows two children of the splitter. `firstHeight`: of the upper one in pixels, until the
    /// user has chosen another; at least 90, as for both.
    void Split(wxWindow* upper, wxWindow* lower, int firstHeight);
    /// Whether the place of the sash was kept by an earlier window.
    bool IsRemembered() const;
    /// Keeps the place of the sash. For the end of the window that the splitter lies in.
    void SaveSash() const;
    /// Moves the sash down by that many pixels, or up, as far as there is room.
    void MoveSash(int pixels);
    /// Moves the focus to the pane that does not have it; to the upper one when neither has.
    void SwitchPane();

    void DrawSash(wxDC& dc) override;
    void RemoveChild(wxWindowBase* child) override;

private:
    int  WantedSash() const;
    void OnPanesSize(wxSizeEvent& event);

    String m_Name;
    int    m_Wanted = 0; ///< Where the sash was before the window got too small; pixels.
    int    m_Pushed = 0; ///< Where that has moved it; elsewhere it is where somebody wants it.
};
