#pragma once

#include "vesta/Export.h"
#include "vesta/String.h"

#include <functional>
#include <memory>

/// Takes the requests of other components on this program's socket and answers them, and sends
/// requests to others, all on one thread of its own. A peer of another user, a bad frame or a peer
/// that stays silent for 5 s is closed and logged, as is whoever comes while there are 256
/// connections already.
///
/// A request is a message "Request" with the field Name, its answer a message "Answer" with the
/// field Done ("Yes" or "No"). One connection may carry several, one after another.
class TOLVAN_API ComponentServer
{
public:
    using Handler = std::function<bool(const String& request)>;

    /// `handler` answers a request; it is called on the server's thread. What it throws is logged
    /// and answered with no.
    ComponentServer(const String& component, Handler handler);
    ~ComponentServer(); ///< Ends the thread and removes the socket. Not from the handler.
    ComponentServer(const ComponentServer&) = delete;
    ComponentServer& operator=(const ComponentServer&) = delete;

    /// False (and logged) when the socket cannot be had; sending still works then.
    bool IsListening() const;
    /// Sends a request to every other program of the component. Never blocks; true when at least
    /// one took it. The answers are logged at debug level. Any thread.
    bool Send(const String& component, const String& request);

private:
    struct State;
    std::unique_ptr<State> m_State;
};
