#include "appearance/wxtCheckBox.h"
#include "internal/input/PadKey.h"
#include "internal/port/FocusMoves.h"
#include "vesta/CallEntry.h"

#include <wx/renderer.h>
#include <wx/toplevel.h>

#include <algorithm>

// clang-format off
wxBEGIN_EVENT_TABLE(wxtRadioButton, wxtCheckBox)
    EVT_KEY_DOWN(wxtRadioButton::ArrowKey)
wxEND_EVENT_TABLE()
// clang-format on

namespace
{
// The radio buttons among the siblings from `from` on, until `isEnd` holds of one; it is left
// out.
template <class Iterator, class IsEnd>
std::vector<wxtRadioButton*> RadioButtons(Iterator from, Iterator to, IsEnd isEnd)
{
    std::vector<wxtRadioButton*> found;
    for (; from != to; ++from)
    {
        auto* const button = dynamic_cast<wxtRadioButton*>(*from);
        if (button && isEnd(*button))
        {
            break;
        }
        if (button)
        {
            found.push_back(button);
        }
    }
    return found;
}

// As a vector: the toolkit's list goes backwards badly.
std::vector<wxWindow*> SiblingsOf(const wxWindow& window)
{
    if (!dynamic_cast<wxTopLevelWindow*>(wxGetTopLevelParent(const_cast<wxWindow*>(&window))))
    {
        return {};
    }
    const wxWindowList& all = window.GetParent()->GetChildren();
    return {all.begin(), all.end()};
}

// A window that is not seen would swallow the keys.
bool CanHaveFocus(const wxWindow& window)
{
    for (const wxWindow* at = &window; at && !at->IsTopLevel(); at = at->GetParent())
    {
        if (!at->IsShown())
        {
            return false;
        }
    }
    return window.IsEnabled();
}
} // namespace

wxtRadioButton::wxtRadioButton(wxWindow* parent, wxWindowID id, const wxString& label,
                               const wxPoint& position, const wxSize& size, long style,
                               const wxValidator& validator, const wxString& name)
    : wxtCheckBox(parent, id, label, position, size, style, validator, name)
{
    CALL_ENTRY("wxtRadioButton::wxtRadioButton");
    internal::AskBeforeTab(*this,
                           [](const wxWindow& window)
                           {
                               const auto* const button =
                                   dynamic_cast<const wxtRadioButton*>(&window);
                               return !button || button->IsTabStop();
                           });
    if (StartsGroup())
    {
        SetValue(true);
    }
}

std::vector<wxtRadioButton*> wxtRadioButton::GroupBefore() const
{
    const std::vector<wxWindow*> all = SiblingsOf(*this);
    const auto                   self = std::find(all.begin(), all.end(), this);
    if (StartsGroup() || self == all.end())
    {
        return {};
    }
    bool started = false; // the one that starts the group is the last that belongs to it
    return RadioButtons(std::make_reverse_iterator(self), all.rend(),
                        [&started](const wxtRadioButton& button)
                        {
                            const bool end = started || button.HasFlag(wxRB_SINGLE);
                            started = button.StartsGroup();
                            return end;
                        });
}

std::vector<wxtRadioButton*> wxtRadioButton::GroupAfter() const
{
    const std::vector<wxWindow*> all = SiblingsOf(*this);
    const auto                   self = std::find(all.begin(), all.end(), this);
    if (self == all.end())
    {
        return {};
    }
    return RadioButtons(std::next(self), all.end(),
                        [](const wxtRadioButton& button)
                        { return button.StartsGroup() || button.HasFlag(wxRB_SINGLE); });
}

std::vector<wxtRadioButton*> wxtRadioButton::Group() const
{
    std::vector<wxtRadioButton*> group = GroupBefore();
    std::reverse(group.begin(), group.end());
    group.push_back(const_cast<wxtRadioButton*>(this));
    const std::vector<wxtRadioButton*> after = GroupAfter();
    group.insert(group.end(), after.begin(), after.end());
    return group;
}

void wxtRadioButton::SetValue(bool value)
{
    CALL_ENTRY("wxtRadioButton::SetValue");
    wxtCheckBox::SetValue(value);
    if (!value || SiblingsOf(*this).empty())
    {
        return;
    }
    for (wxtRadioButton* const other : GroupBefore())
    {
        other->SetValue(false);
    }
    for (wxtRadioButton* const other : GroupAfter())
    {
        other->SetValue(false);
    }
    if (!HasFocus() && CanHaveFocus(*this))
    {
        internal::FocusWithin(*this);
    }
}

// The Tab key comes to the checked one of a group only, as long as that can be used, and leaves the
// group from any; the arrow keys lead to the others. Asked when the key is pressed: what the
// buttons are like by then, and which there are, needs no watching.
bool wxtRadioButton::IsTabStop() const
{
    if (HasFlag(wxRB_SINGLE))
    {
        return true;
    }
    const std::vector<wxtRadioButton*> group = Group();
    if (std::any_of(group.begin(), group.end(),
                    [](const wxtRadioButton* button)
                    { return button->HasFocus() && CanHaveFocus(*button); }))
    {
        return false;
    }
    return IsUsableAndChecked() ||
           std::none_of(group.begin(), group.end(),
                        [](const wxtRadioButton* button) { return button->IsUsableAndChecked(); });
}

bool wxtRadioButton::IsUsableAndChecked() const
{
    return GetValue() && IsThisEnabled() && IsShown();
}

void wxtRadioButton::SetFocusFromKbd()
{
    CALL_ENTRY("wxtRadioButton::SetFocusFromKbd");
    const std::vector<wxtRadioButton*> group = Group();
    const auto                         checked =
        std::find_if(group.begin(), group.end(),
                     [](const wxtRadioButton* button) { return button->IsUsableAndChecked(); });
    (checked == group.end() || HasFlag(wxRB_SINGLE) ? this : *checked)->SetFocus();
}

void wxtRadioButton::DrawButton(wxDC& dc, const wxRect& rect, int flags)
{
    wxRendererNative::Get().DrawRadioBitmap(this, dc, rect, flags);
}

wxEventType wxtRadioButton::ClickEventType() const
{
    return wxEVT_RADIOBUTTON;
}

void wxtRadioButton::HandleClick()
{
    SetValue(true);
}

// Round the group, past what cannot be chosen.
void wxtRadioButton::ArrowKey(wxKeyEvent& event)
{
    const int  key = internal::OffThePad(event.GetKeyCode());
    const bool back = key == WXK_LEFT || key == WXK_UP;
    const bool forward = key == WXK_RIGHT || key == WXK_DOWN;
    if (event.HasAnyModifiers() || !(back || forward))
    {
        event.Skip();
        return;
    }
    std::vector<wxtRadioButton*>       way = GroupAfter();
    const std::vector<wxtRadioButton*> before = GroupBefore();
    way.insert(way.end(), before.rbegin(), before.rend());
    if (back)
    {
        std::reverse(way.begin(), way.end());
    }
    const auto next = std::find_if(way.begin(), way.end(),
                                   [](const wxtRadioButton* button)
                                   { return button->IsEnabled() && button->IsShown(); });
    if (next != way.end())
    {
        (*next)->DoClick();
    }
}
