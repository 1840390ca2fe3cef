#pragma once

#include "appearance/wxtColorManaged.h"
#include "vesta/Export.h"

#include <wx/button.h>
#include <wx/control.h>
#include <wx/weakref.h>

#include <memory>

namespace appearance
{
class ButtonState;
class ForeignKey;
} // namespace appearance
namespace internal
{
class FocusLostEvent;
}
class wxTopLevelWindow;

/// A flat push button in the colours of the scheme. It sends `wxEVT_BUTTON` when it is clicked, or
/// when the space bar, Return or Enter is released on it. It has three looks: normal, default
/// (bold, in the selection's colour) and either of them lit up under the mouse. The button with the
/// focus has the default look; the dialog's own default gets it back afterwards. Main thread.
class TOLVAN_API wxtButton : public wxControl, public wxtColorManaged
{
public:
    /// The arguments of a stock button. Unless the style names a border there is none. With
    /// `wxBU_EXACTFIT` it is as small as its label.
    wxtButton(wxWindow* parent, wxWindowID id, const wxString& label = wxEmptyString,
              const wxPoint& position = wxDefaultPosition, const wxSize& size = wxDefaultSize,
              long style = 0, const wxValidator& validator = wxDefaultValidator,
              const wxString& name = wxASCII_STR(wxButtonNameStr));
    ~wxtButton() override;

    /// Makes it the default item of its top-level window. The item that was it until now; null when
    /// there was none, or no such window.
    wxWindow* SetDefault();
    /// Takes the normal look; what the default item is stays.
    void SetNormal();
    bool IsDefault() const;
    /// Lights the button up, or no longer.
    void Hilight(bool on);
    /// Clicks the button, unless it is disabled. It is disabled while its handlers run, so that
    /// they are not run once more meanwhile; they may destroy it, and they may throw.
    void EmulateClick();

    /// During a click the change is made when the click is over.
    bool Enable(bool enable = true) override;
    /// A letter behind a "&" is the mnemonic: Alt with it clicks the button.
    void SetLabel(const wxString& label) override;

protected:
    wxSize DoGetBestSize() const override;

private:
    class _Click;

    void Focus(wxFocusEvent& event);
    void Mouse(wxMouseEvent& event);
    void Click(wxMouseEvent& event);
    void Paint(wxPaintEvent& event);
    void KeyDown(wxKeyEvent& event);
    void Key(wxKeyEvent& event);
    void Mnemonic(wxKeyEvent& event);
    void OnEnabled(internal::EnabledEvent& event);
    void OnFocusLost(internal::FocusLostEvent& event);
    void Move(wxMoveEvent& event);
    void Size(wxSizeEvent& event);

    wxTopLevelWindow* TopLevel() const;
    void              TakeDefaultLook();
    void              GainFocus();
    void              LoseFocus();
    void              GiveRoleBack();
    void              TakeFocusBack();
    void              HilightAgain();
    void              SetMinimum();
    void              EndClick(bool hadFocus);

    /// The default item before this one took the role with the focus.
    wxWeakRef<wxWindow>                      m_PreviousDefault;
    std::unique_ptr<appearance::ButtonState> m_State;
    std::unique_ptr<appearance::ForeignKey>  m_ForeignKey;

    wxDECLARE_EVENT_TABLE();
};
