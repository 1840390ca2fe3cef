#include "common/FollowingText.h"
#include "logview/LogPage.h"
#include "logview/LogViewFrame.h"

namespace
{
struct TextKey
{
    int key;
    int modifiers;
    int command;
};

// What the menus say that a key does with the page's text.
constexpr TextKey kTextKeys[] = {
    {'A', wxMOD_CONTROL, wxTextLineCtrl::id_SelectAll},
    {'C', wxMOD_CONTROL, wxTextLineCtrl::id_Copy},
    {'F', wxMOD_CONTROL, wxTextLineCtrl::id_Search},
    {'F', wxMOD_CONTROL | wxMOD_SHIFT, wxTextLineCtrl::id_OnlyMatching},
    {'S', wxMOD_CONTROL, wxTextLineCtrl::id_SaveAs},
};

// What the text does not do by itself: the notebook takes the keys with which it does.
constexpr TextKey kEndKeys[] = {
    {WXK_HOME, wxMOD_CONTROL, wxTextLineCtrl::id_ScrollToTop},
    {WXK_END, wxMOD_CONTROL, wxTextLineCtrl::id_ScrollToBottom},
};

// wxID_NONE: none of them.
template <class Keys> int CommandIn(const Keys& keys, const wxKeyEvent& event)
{
    for (const TextKey& each : keys)
    {
        if (event.GetKeyCode() == each.key && event.GetModifiers() == each.modifiers)
        {
            return each.command;
        }
    }
    return wxID_NONE;
}

bool IsInPage(const wxWindow* window)
{
    while (window && !dynamic_cast<const LogPage*>(window))
    {
        window = window->GetParent();
    }
    return window != nullptr;
}
} // namespace

// In a page they are the text's own; on a tab they are about its page. Who the key was for: when it
// has opened a dialog meanwhile, nobody has the focus yet.
void LogViewFrame::OnKey(wxKeyEvent& event)
{
    auto* const focused = dynamic_cast<wxWindow*>(event.GetEventObject());
    auto* const text = dynamic_cast<wxTextLineCtrl*>(focused);
    int         command = wxID_NONE;
    if (text || !IsInPage(focused))
    {
        command = CommandIn(kEndKeys, event);
    }
    if (command == wxID_NONE && !IsInPage(focused))
    {
        command = CommandIn(kTextKeys, event);
        command = command == wxID_NONE ? wxTextLineCtrl::ReadingCommandOf(event) : command;
    }
    if (command == wxID_NONE)
    {
        event.Skip();
        return;
    }
    wxCommandEvent menu(wxEVT_MENU, command);
    text ? text->OnMenu(menu) : OnTextCommand(menu);
}
