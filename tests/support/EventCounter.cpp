#include "tests/support/EventCounter.h"

EventCounter::EventCounter(wxEvtHandler* source, wxEventType type) : m_Source(source), m_Type(type)
{
    source->Connect(type, wxEventHandler(EventCounter::OnEvent), nullptr, this);
}

EventCounter::~EventCounter()
{
    if (m_Source)
    {
        m_Source->Disconnect(m_Type, wxEventHandler(EventCounter::OnEvent), nullptr, this);
    }
}

void EventCounter::OnEvent(wxEvent& event)
{
    ++m_Count;
    m_Last.reset(event.Clone());
    event.Skip();
}
