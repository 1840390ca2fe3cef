#include "appearance/tabs/PageChooser.h"

#include "appearance/inputs/ListKeys.h"
#include "internal/input/PadKey.h"
#include "internal/port/TypedKey.h"
#include "vesta/CallEntry.h"

#include <wx/event.h>
#include <wx/time.h>
#include <wx/toplevel.h>
#include <wx/utils.h>

namespace appearance
{
namespace
{
constexpr int kTick = 50;          // ms
constexpr int kTicksToOpen = 3;    // a short press switches without a list
constexpr int kTypingPause = 1000; // ms, after which a text begins anew

bool IsPress(wxEventType type)
{
    return type == wxEVT_LEFT_DOWN || type == wxEVT_LEFT_DCLICK || type == wxEVT_RIGHT_DOWN ||
           type == wxEVT_MIDDLE_DOWN;
}

std::vector<PageList::Row> RowsOf(const std::vector<PageChooser::Page>& pages)
{
    std::vector<PageList::Row> rows;
    rows.reserve(pages.size());
    for (const PageChooser::Page& page : pages)
    {
        rows.push_back(page.row);
    }
    return rows;
}
} // namespace

PageChooser::PageChooser(wxWindow& owner, std::vector<Page> pages, int marked, Chosen chosen)
    : m_Pages(std::move(pages)),
      m_Chosen(std::move(chosen)),
      m_List(new PageList(&owner, RowsOf(m_Pages))),
      m_Filter([this](wxEvent& event) { return Takes(event); })
{
    m_List->Mark(marked);
    m_List->m_OnPicked = [this] { Finish(true); };
    m_Timer.SetOwner(this);
    Bind(wxEVT_TIMER, &PageChooser::OnTick, this);
}

PageChooser::~PageChooser()
{
    DeletePendingEvents();
    if (m_List)
    {
        m_List->Destroy();
    }
}

void PageChooser::OpenBelow(const wxPoint& screen)
{
    m_List->Open(screen, false);
}

void PageChooser::OpenWhileHeld(const wxPoint& screen)
{
    m_IsHeld = true;
    m_Middle = screen;
    m_Timer.Start(kTick);
}

void PageChooser::GoOn(int rows)
{
    const int count = m_List->Count();
    m_List->Mark((m_List->Marked() + rows + count) % count);
}

// The release of the key may have gone to another program.
void PageChooser::OnTick(wxTimerEvent&)
{
    CALL_ENTRY("PageChooser::OnTick");
    if (!wxGetKeyState(WXK_CONTROL))
    {
        Finish(true);
    }
    else if (++m_Ticks == kTicksToOpen && m_List)
    {
        m_List->Open(m_Middle, true);
    }
}

// Later: the list, or what it lies over, is at work.
void PageChooser::Finish(bool choose)
{
    if (m_IsOver)
    {
        return;
    }
    m_IsOver = true;
    m_Timer.Stop();
    wxWeakRef<wxWindow> page;
    if (choose && m_List)
    {
        page = m_Pages[static_cast<size_t>(m_List->Marked())].window;
    }
    if (m_List)
    {
        m_List->Hide();
    }
    CallAfter(
        [this, page]
        {
            const Chosen chosen = m_Chosen;
            chosen(page); // deletes this
        });
}

bool PageChooser::IsOutside(const wxEvent& event) const
{
    auto* const window = dynamic_cast<wxWindow*>(event.GetEventObject());
    return window && window != m_List && !m_List->IsDescendant(window);
}

bool PageChooser::Takes(wxEvent& event)
{
    const wxEventType type = event.GetEventType();
    if (m_IsOver || !m_List)
    {
        return false;
    }
    if (type == wxEVT_CHAR_HOOK)
    {
        return TakesKey(static_cast<wxKeyEvent&>(event));
    }
    if (m_IsHeld && type == wxEVT_KEY_UP &&
        static_cast<wxKeyEvent&>(event).GetKeyCode() == WXK_CONTROL)
    {
        Finish(true);
    }
    else if (type == wxEVT_ACTIVATE && !static_cast<wxActivateEvent&>(event).GetActive())
    {
        Finish(false);
    }
    else if (IsPress(type) && IsOutside(event))
    {
        Finish(false);
        return true;
    }
    return false;
}

bool PageChooser::TakesKey(wxKeyEvent& event)
{
    const int  key = internal::OffThePad(event.GetKeyCode());
    const auto row = RowForKey(key, m_List->Marked(), m_List->Count(), m_List->PageLength());
    if (key == WXK_CONTROL || key == WXK_SHIFT || key == WXK_ALT)
    {
        return false;
    }
    if (key == WXK_ESCAPE || (key == WXK_TAB && !m_IsHeld))
    {
        Finish(false);
    }
    else if (key == WXK_TAB)
    {
        GoOn(event.ShiftDown() ? -1 : 1);
    }
    else if (key == WXK_RETURN || key == WXK_NUMPAD_ENTER)
    {
        Finish(true);
    }
    else if (row)
    {
        m_List->Mark(*row);
    }
    else
    {
        Type(event);
    }
    return true;
}

void PageChooser::Type(wxKeyEvent& event)
{
    const wxUniChar typed = internal::TypedBy(event);
    if (event.HasModifiers() || typed.GetValue() < ' ')
    {
        return;
    }
    const wxLongLong now = wxGetUTCTimeMillis();
    m_Typed = now - m_LastTyped > kTypingPause ? wxString() : m_Typed;
    m_LastTyped = now;
    m_Typed += typed;
    m_List->MarkByTyping(m_Typed);
}
} // namespace appearance
