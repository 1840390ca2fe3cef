#pragma once

#include <wx/event.h>
#include <wx/weakref.h>

#include <memory>

/// Counts the events of one type that a handler gets, and lets them pass. It goes away by itself.
class EventCounter : public wxEvtHandler
{
public:
    EventCounter(wxEvtHandler* source, wxEventType type);
    ~EventCounter() override;

    int  Count() const { return m_Count; }
    void Clear() { m_Count = 0; }
    /// The latest event, or null.
    const wxEvent* Last() const { return m_Last.get(); }

private:
    void OnEvent(wxEvent& event);

    wxWeakRef<wxEvtHandler>  m_Source;
    wxEventType              m_Type;
    int                      m_Count = 0;
    std::unique_ptr<wxEvent> m_Last;
};
