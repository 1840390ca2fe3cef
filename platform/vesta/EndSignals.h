#pragma once

#include "vesta/Export.h"

#include <functional>
#include <thread>

/// While it lives, SIGTERM, SIGINT and SIGHUP do not kill the process but call a function that may
/// end it in order. That is for the first of them: whichever comes after it kills as usual, so that
/// a program that hangs can be ended. A signal that is ignored stays so.
///
/// One object at a time; a second one does nothing.
class TOLVAN_API EndSignals
{
public:
    /// `tell` gets the number of the signal, on a thread of its own. It must not end this object.
    explicit EndSignals(std::function<void(int signal)> tell);
    /// The signals kill again. Waits for `tell`.
    ~EndSignals();
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;

private:
    std::thread m_Thread;
};
