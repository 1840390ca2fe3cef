#pragma once

#include <wx/event.h>
#include <wx/eventfilter.h>

#include <functional>

namespace appearance
{
/// Sees all events of the program, as long as it lives, before anybody else does. Main thread.
class InputFilter : public wxEventFilter
{
public:
    /// `takes`: whether nobody else is to see the event. It may delete the filter if it does.
    explicit InputFilter(std::function<bool(wxEvent&)> takes) : m_Takes(std::move(takes))
    {
        wxEvtHandler::AddFilter(this);
    }
    ~InputFilter() override { wxEvtHandler::RemoveFilter(this); }
    InputFilter(const InputFilter&) = delete;
    InputFilter& operator=(const InputFilter&) = delete;

    int FilterEvent(wxEvent& event) override
    {
        const auto takes = m_Takes;
        return takes(event) ? int{Event_Processed} : int{Event_Skip};
    }

private:
    std::function<bool(wxEvent&)> m_Takes;
};
} // namespace appearance
