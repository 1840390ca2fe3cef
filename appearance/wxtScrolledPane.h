#pragma once

#include "appearance/wxtColorManaged.h"
#include "vesta/Export.h"

#include <wx/scrolwin.h>

/// A panel in the colours of the scheme that scrolls up and down when its content, laid out by a
/// sizer, is higher than it is. What gets the focus is scrolled into view. Main thread.
class TOLVAN_API wxtScrolledPane : public wxScrolledWindow, public wxtColorManaged
{
public:
    explicit wxtScrolledPane(wxWindow* parent);

    /// Scrolls so that all of a window in the pane shows, or, if it is higher than the pane, its
    /// beginning.
    void ShowChild(const wxWindow& child);

    void ScrollWindow(int dx, int dy, const wxRect* rect = nullptr) override;

protected:
    bool ShouldScrollToChildOnFocus(wxWindow* child) override;
    void DoMoveWindow(int x, int y, int width, int height) override;
};
