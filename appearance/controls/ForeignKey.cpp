#include "appearance/controls/ForeignKey.h"

#include <wx/eventfilter.h>
#include <wx/utils.h>
#include <wx/weakref.h>
#include <wx/window.h>

#include <map>

namespace appearance
{
namespace
{
// The keys that click.
constexpr wxKeyCode kKeys[] = {WXK_SPACE, WXK_RETURN, WXK_NUMPAD_ENTER};
} // namespace

// Sees which window a key comes to when it is pressed. One that is held is pressed over and over:
// what counts is the first time.
class KeyWatch : public wxEventFilter
{
public:
    KeyWatch() { wxEvtHandler::AddFilter(this); }
    ~KeyWatch() override { wxEvtHandler::RemoveFilter(this); }

    int FilterEvent(wxEvent& event) override
    {
        const wxEventType type = event.GetEventType();
        if (type == wxEVT_CHAR_HOOK)
        {
            auto* const window = dynamic_cast<wxWindow*>(event.GetEventObject());
            if (window && window->HasFocus())
            {
                m_Pressed.emplace(KeyOf(event), window);
            }
        }
        else if (type == wxEVT_KEY_UP)
        {
            const auto pressed = m_Pressed.find(KeyOf(event));
            m_IsForeign = pressed != m_Pressed.end() && pressed->second != event.GetEventObject();
            if (pressed != m_Pressed.end())
            {
                m_Pressed.erase(pressed);
            }
        }
        else if (type == wxEVT_ACTIVATE && !static_cast<wxActivateEvent&>(event).GetActive())
        {
            m_Pressed.clear(); // they may be released where nobody tells of it
        }
        return Event_Skip;
    }
    bool IsForeign() const { return m_IsForeign; } ///< The release that is being handled.

private:
    static int KeyOf(const wxEvent& event)
    {
        return static_cast<const wxKeyEvent&>(event).GetKeyCode();
    }

    std::map<int, wxWeakRef<wxWindow>> m_Pressed;
    bool                               m_IsForeign = false;
};

ForeignKey::ForeignKey()
{
    static std::weak_ptr<KeyWatch> s_Watch;
    m_Watch = s_Watch.lock();
    if (!m_Watch)
    {
        s_Watch = m_Watch = std::make_shared<KeyWatch>();
    }
}

ForeignKey::~ForeignKey() = default;

void ForeignKey::OnFocus()
{
    m_Key = WXK_NONE;
    for (const wxKeyCode key : kKeys)
    {
        if (wxGetKeyState(key))
        {
            m_Key = key;
        }
    }
}

void ForeignKey::OnPress(wxKeyEvent& event)
{
    event.Skip();
    m_Key = event.GetEventType() == wxEVT_CHAR_HOOK ? event.GetKeyCode() : int{WXK_NONE};
}

bool ForeignKey::EndsWith(const wxKeyEvent& event)
{
    const bool foreign = event.GetKeyCode() == m_Key || m_Watch->IsForeign();
    m_Key = WXK_NONE;
    return foreign;
}
} // namespace appearance
