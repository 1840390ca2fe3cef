#pragma once

#include "vesta/Signal.h"

#include <atomic>

class wxApp;

/// Whether somebody else than the user at a window wants the program to end: the farm, a signal or
/// the end of the session. Nobody is to be asked anything then. A member of the application object,
/// made before its own slots are connected, which have the windows closed.
class EndRequest : public HasSlots
{
public:
    explicit EndRequest(wxApp& app);
    ~EndRequest() override;

    bool IsMade() const { return m_IsMade; } ///< Any thread.

private:
    std::atomic<bool> m_IsMade{false};
};
