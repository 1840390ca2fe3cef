#pragma once

#include "appearance/wxtColorManaged.h"
#include "vesta/Export.h"

#include <wx/textctrl.h>

/// The stock text field in the colours of the scheme ("Text" on "WindowBGLighter") and flat.
/// A field of one line that is neither read-only, rich nor a password
/// completes words (see `wxtAutoCompleter`), unless the options say no: `AutoComplete(nullptr)`
/// takes that away. Everything else, events and validators included, is the stock field's.
/// Main thread.
class TOLVAN_API wxtTextCtrl : public wxTextCtrl, public wxtColorManaged
{
public:
    /// The arguments of a stock text field.
    wxtTextCtrl(wxWindow* parent, wxWindowID id, const wxString& value = wxEmptyString,
                const wxPoint& position = wxDefaultPosition, const wxSize& size = wxDefaultSize,
                long style = 0, const wxValidator& validator = wxDefaultValidator,
                const wxString& name = wxASCII_STR(wxTextCtrlNameStr));

    /// Proposals at most for what was typed: a list to choose from need not hold what nobody would
    /// read, and an entry costs the toolkit some microseconds with every key.
    static constexpr size_t k_Proposals = 200;

protected:
    void DoEnable(bool enabled) override;

private:
    void FollowScheme(wxSysColourChangedEvent& event);
    void GiveRoom(const wxSize& size);
};
