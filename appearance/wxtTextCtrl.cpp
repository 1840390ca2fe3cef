#include "appearance/wxtTextCtrl.h"

#include "appearance/controls/FlatStyle.h"
#include "appearance/inputs/InputColors.h"
#include "appearance/wxtAutoCompleter.h"
#include "internal/input/PadKey.h"
#include "internal/port/Completions.h"
#include "internal/port/FieldStyle.h"
#include "internal/port/Scrollbars.h"
#include "internal/windows/UpperFloors.h"
#include "vesta/CallEntry.h"

#include <wx/weakref.h>

#include <algorithm>

namespace
{
constexpr int kOverText = 6; // pixels, of the height

constexpr long kStylesThatDoNotComplete =
    wxTE_READONLY | wxTE_MULTILINE | wxTE_RICH | wxTE_PASSWORD;

// Proposals at most for what was typed: a list to choose from need not hold what nobody would read,
// and each takes the toolkit some time with every key.
constexpr int kProposals = 20;

// What a field shows of the completions.
class FieldCompleter : public wxtAutoCompleter
{
public:
    bool Start(const wxString& text) override
    {
        m_Text = text;
        m_Left = kProposals;
        return wxtAutoCompleter::Start(text);
    }

    wxString GetNext() override
    {
        const wxString next = m_Left-- > 0 ? wxtAutoCompleter::GetNext() : wxString();
        // What the field already holds completes nothing, but would keep the list open after the
        // user has taken it from there.
        return next == m_Text && !next.empty() ? wxtAutoCompleter::GetNext() : next;
    }

private:
    wxString m_Text;
    int      m_Left = 0; // proposals
};
} // namespace

wxtTextCtrl::wxtTextCtrl(wxWindow* parent, wxWindowID id, const wxString& value,
                         const wxPoint& position, const wxSize& size, long style,
                         const wxValidator& validator, const wxString& name)
    : wxTextCtrl(parent, id, value, position, size, appearance::FlatStyle(style), validator, name)
{
    CALL_ENTRY("wxtTextCtrl::wxtTextCtrl");
    Manage(this);
    appearance::UseInputColors(*this);
    appearance::KeepFieldColoured(*this);
    internal::FitScrollbars(*this, GetSize());
    if (!IsMultiLine())
    {
        GiveRoom(size);
    }
    if (!(style & kStylesThatDoNotComplete) && internal::g_UpperFloors.mayComplete())
    {
        AutoComplete(new FieldCompleter);
        internal::KeepMarkedCompletion(*this);
        Bind(wxEVT_CHAR_HOOK, &wxtTextCtrl::KeyForCompletions, this);
    }
}

// The list of completions, if it is open, tells the field of its end, which must be whole then.
wxtTextCtrl::~wxtTextCtrl()
{
    AutoComplete(nullptr);
}

bool wxtTextCtrl::SetHint(const wxString& hint)
{
    CALL_ENTRY("wxtTextCtrl::SetHint");
    m_Hint = hint;
    return internal::ShowHint(*this, hint) || wxTextCtrl::SetHint(hint);
}

void wxtTextCtrl::DoMoveWindow(int x, int y, int width, int height)
{
    internal::FitScrollbars(*this, {width, height});
    wxTextCtrl::DoMoveWindow(x, y, width, height);
}

// A field without a border has none around its text either.
void wxtTextCtrl::GiveRoom(const wxSize& size)
{
    const int height = std::max(GetBestSize().y, GetCharHeight() + kOverText);
    SetMinSize(wxSize(size.x, size.y == wxDefaultCoord ? height : size.y));
    SetSize(wxSize(size.x == wxDefaultCoord ? GetSize().x : size.x, GetMinSize().y));
}

void wxtTextCtrl::KeyForCompletions(wxKeyEvent& event)
{
    const int  key = internal::OffThePad(event.GetKeyCode());
    const bool open = internal::CompletionsAreOpen();
    const bool enter = key == WXK_RETURN || key == WXK_NUMPAD_ENTER;
    if (open && (key == WXK_ESCAPE || (enter && m_Choosing)))
    {
        event.StopPropagation(); // it is for the list
        event.Skip();
        m_Choosing = false;
        return;
    }
    if (open && key == WXK_TAB && !event.RawControlDown())
    {
        LeaveCompletions(!event.ShiftDown());
        return;
    }
    if (key != WXK_SHIFT && key != WXK_CONTROL && key != WXK_ALT) // held for the next one
    {
        m_Choosing =
            open && (key == WXK_DOWN || key == WXK_UP || key == WXK_PAGEDOWN || key == WXK_PAGEUP);
    }
    event.Skip();
}

// The list closes when the field loses the keyboard.
void wxtTextCtrl::LeaveCompletions(bool forward)
{
    const wxString               chosen = m_Choosing ? internal::MarkedCompletion() : wxString();
    const wxWeakRef<wxtTextCtrl> self(this);
    m_Choosing = false;
    Navigate(forward ? wxNavigationKeyEvent::IsForward : wxNavigationKeyEvent::IsBackward);
    if (self && !chosen.empty())
    {
        SetValue(chosen); // last: its handler may destroy the field
    }
}

void wxtTextCtrl::DoEnable(bool enabled)
{
    wxTextCtrl::DoEnable(enabled);
    RefreshColors();
}
