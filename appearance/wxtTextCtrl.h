#pragma once

#include "appearance/wxtColorManaged.h"
#include "vesta/Export.h"

#include <wx/textctrl.h>

/// The stock text field in the colours of the scheme ("Text" on "WindowBGLighter") and flat.
/// A field of one line that is neither read-only, rich nor a password
/// completes words (see `wxtAutoCompleter`), unless the options say no: `AutoComplete(nullptr)`
/// takes that away. While the list of completions is open, Esc closes it and Enter takes what was
/// chosen there, before a dialog hears of either; Tab takes it too and goes on to the next control.
/// Everything else, events and validators included, is the stock field's. Main thread.
class TOLVAN_API wxtTextCtrl : public wxTextCtrl, public wxtColorManaged
{
public:
    /// The arguments of a stock text field.
    wxtTextCtrl(wxWindow* parent, wxWindowID id, const wxString& value = wxEmptyString,
                const wxPoint& position = wxDefaultPosition, const wxSize& size = wxDefaultSize,
                long style = 0, const wxValidator& validator = wxDefaultValidator,
                const wxString& name = wxASCII_STR(wxTextCtrlNameStr));
    ~wxtTextCtrl() override;

    bool     SetHint(const wxString& hint) override;
    wxString GetHint() const override { return m_Hint; }

protected:
    void DoEnable(bool enabled) override;
    void DoMoveWindow(int x, int y, int width, int height) override;

private:
    void GiveRoom(const wxSize& size);
    void KeyForCompletions(wxKeyEvent& event);
    void LeaveCompletions(bool forward);

    wxString m_Hint;
    bool     m_Choosing = false; ///< The user has moved into the list of completions.
};
