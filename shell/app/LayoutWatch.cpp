#include "shell/app/LayoutWatch.h"

#include "internal/port/Layout.h"

#include <algorithm>
#include <utility>

namespace shell
{
namespace
{
// The port tries a scrolled window without its scrollbars whenever it lays it out, and tells of
// both sizes. What lies in it hears of sizes of its own.
bool Scrolls(const wxWindow& window)
{
    return window.CanScroll(wxHORIZONTAL) || window.CanScroll(wxVERTICAL);
}
} // namespace

LayoutWatch::LayoutWatch()
{
    wxEvtHandler::AddFilter(this);
}

LayoutWatch::~LayoutWatch()
{
    wxEvtHandler::RemoveFilter(this);
}

int LayoutWatch::FilterEvent(wxEvent& event)
{
    if (event.GetEventType() == wxEVT_SIZE)
    {
        auto* const resized = dynamic_cast<wxWindow*>(event.GetEventObject());
        if (resized && !m_IsFinishing && !Scrolls(*resized))
        {
            Remember(*resized);
        }
    }
    else if (event.GetEventType() == wxEVT_IDLE && !m_IsFinishing)
    {
        Finish();
    }
    return Event_Skip;
}

void LayoutWatch::Finish()
{
    m_IsFinishing = true;
    for (const auto& top : std::exchange(m_Resized, {}))
    {
        if (top)
        {
            internal::FinishLayout(*top);
        }
    }
    m_IsFinishing = false;
}

void LayoutWatch::Remember(wxWindow& resized)
{
    wxWindow* const top = wxGetTopLevelParent(&resized);
    if (top && !top->IsBeingDeleted() &&
        std::find(m_Resized.begin(), m_Resized.end(), top) == m_Resized.end())
    {
        m_Resized.emplace_back(top);
    }
}
} // namespace shell
