#include "appearance/wxtTextCtrl.h"

#include "appearance/_InputColors.h"
#include "appearance/wxtAutoCompleter.h"
#include "tolvan/ClientOptions.h"
#include "vesta/Application.h"
#include "vesta/CallEntry.h"

#include <algorithm>

namespace
{
constexpr int kOverText = 6; // pixels, of the height

constexpr long kStylesThatDoNotComplete =
    wxTE_READONLY | wxTE_MULTILINE | wxTE_RICH | wxTE_PASSWORD;

bool OptionsAllowCompletion()
{
    Application* const application = Application::the_Application;
    return application
               ? application->Options().GetBool("Window", o_AutoComplete, o_AutoCompleteDefault)
               : o_AutoCompleteDefault;
}
} // namespace

wxtTextCtrl::wxtTextCtrl(wxWindow* parent, wxWindowID id, const wxString& value,
                         const wxPoint& position, const wxSize& size, long style,
                         const wxValidator& validator, const wxString& name)
    : wxTextCtrl(parent, id, value, position, size, _FlatStyle(style), validator, name)
{
    CALL_ENTRY("wxtTextCtrl::wxtTextCtrl");
    Manage(this);
    _UseInputColors(*this);
    _ColourField(*this);
    Bind(wxEVT_SYS_COLOUR_CHANGED, &wxtTextCtrl::FollowScheme, this);
    if (!IsMultiLine())
    {
        GiveRoom(size);
    }
    if (!(style & kStylesThatDoNotComplete) && OptionsAllowCompletion())
    {
        AutoComplete(new wxtAutoCompleter(k_Proposals));
    }
}

// A field without a border has none around its text either.
void wxtTextCtrl::GiveRoom(const wxSize& size)
{
    const int height = std::max(GetBestSize().y, GetCharHeight() + kOverText);
    SetMinSize(wxSize(size.x, size.y == wxDefaultCoord ? height : size.y));
    SetSize(wxSize(size.x == wxDefaultCoord ? GetSize().x : size.x, GetMinSize().y));
}

void wxtTextCtrl::FollowScheme(wxSysColourChangedEvent& event)
{
    event.Skip();
    _ColourField(*this);
}

void wxtTextCtrl::DoEnable(bool enabled)
{
    wxTextCtrl::DoEnable(enabled);
    RefreshColors();
}
