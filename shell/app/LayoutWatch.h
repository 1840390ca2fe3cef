#pragma once

#include <wx/eventfilter.h>
#include <wx/weakref.h>
#include <wx/window.h>

#include <vector>

namespace shell
{
/// Finishes the layout of top-level windows after size events in them (`internal::FinishLayout`),
/// once for all that come before the program is idle. Main thread.
class LayoutWatch : public wxEventFilter
{
public:
    LayoutWatch();
    ~LayoutWatch() override;

    int FilterEvent(wxEvent& event) override;

private:
    void Remember(wxWindow& resized);
    void Finish();

    std::vector<wxWeakRef<wxWindow>> m_Resized; // top-level windows
    bool                             m_IsFinishing = false;
};
} // namespace shell
