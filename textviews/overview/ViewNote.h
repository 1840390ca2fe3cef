#pragma once

#include "appearance/wxtColorManaged.h"

#include <wx/timer.h>
#include <wx/window.h>

namespace textviews
{
/// A few words in the lower left corner of a view, which go away by themselves. A child of the
/// view, which destroys it.
class ViewNote : public wxWindow, public wxtColorManaged
{
public:
    explicit ViewNote(wxWindow* view);
    ~ViewNote() override;

    /// Empty: none. `stays`: until there is another text.
    void            ShowText(const wxString& text, bool stays = false);
    const wxString& Text() const { return m_Text; } ///< Empty when none is shown.

    bool AcceptsFocus() const override { return false; }

private:
    void Place();
    void OnViewSize(wxSizeEvent& event);
    void OnPaint(wxPaintEvent& event);

    wxString m_Text;
    wxTimer  m_Timer;
};
} // namespace textviews
