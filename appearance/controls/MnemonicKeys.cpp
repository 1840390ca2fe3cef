#include "appearance/controls/MnemonicKeys.h"

#include "appearance/controls/Mnemonic.h"

#include <wx/weakref.h>
#include <wx/window.h>

#include <map>
#include <vector>

namespace appearance
{
wxDEFINE_EVENT(EVT_MNEMONIC, wxKeyEvent);

namespace
{
// Those whose label has it, in the order in which they were made.
void FindTargets(const wxWindow& parent, const wxKeyEvent& key, std::vector<wxWindow*>& targets)
{
    for (wxWindow* const child : parent.GetChildren())
    {
        if (child->IsTopLevel() || !child->IsShown() || child->IsBeingDeleted())
        {
            continue;
        }
        if (IsMnemonicOf(*child, key))
        {
            targets.push_back(child);
        }
        FindTargets(*child, key, targets);
    }
}

// Of several controls the last one that takes it gets it.
void PassOn(const wxWindow& top, wxKeyEvent& event)
{
    event.Skip();
    if (event.GetModifiers() != wxMOD_ALT)
    {
        return;
    }
    std::vector<wxWindow*> targets;
    FindTargets(top, event, targets);
    for (auto target = targets.rbegin(); target != targets.rend(); ++target)
    {
        wxKeyEvent press(EVT_MNEMONIC, event);
        press.SetEventObject(*target);
        if ((*target)->GetEventHandler()->ProcessEventLocally(press))
        {
            event.Skip(false);
            return;
        }
    }
}
} // namespace

void WatchMnemonics(wxWindow& window)
{
    static std::map<wxWindow*, wxWeakRef<wxWindow>> s_Watched; // one that is gone may come again
    wxWindow* const                                 top = wxGetTopLevelParent(&window);
    if (!top || s_Watched[top])
    {
        return;
    }
    for (auto each = s_Watched.begin(); each != s_Watched.end();)
    {
        each = each->second || each->first == top ? std::next(each) : s_Watched.erase(each);
    }
    s_Watched[top] = top;
    top->Bind(wxEVT_CHAR_HOOK, [top](wxKeyEvent& event) { PassOn(*top, event); });
}
} // namespace appearance
