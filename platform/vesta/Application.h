#pragma once

#include "vesta/Export.h"
#include "vesta/Mutex.h"
#include "vesta/OptionsFile.h"
#include "vesta/String.h"

#include <boost/function.hpp>

#include <map>
#include <memory>

/// The program as the platform knows it: its options file and the requests that it sends to and
/// takes from the other components of the system. One object a process.
class TOLVAN_API Application
{
public:
    static Application* the_Application; ///< The latest one, or null.

    /// Answers a request; the result tells whether it was carried out. Called on a thread of the
    /// platform.
    using RequestHandler = boost::function<bool()>;

    Application();
    virtual ~Application();
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    /// The program's options file, loaded on first use from `OptionsFilename`. Without a user
    /// folder the options live in memory only, and that is logged.
    OptionsFile& Options();
    /// Writes what is not written of the options, if they are in use: before another program is
    /// started that may read them. See `OptionsFile::WriteOut`. Any thread.
    void WriteOptions();
    /// Full name of the options file; empty when there is no place for one.
    virtual String OptionsFilename() const = 0;

    /// Makes `handler` answer the request `name` from now on; an empty handler ends that. Any
    /// thread.
    void RegisterRequestHandler(const String& name, RequestHandler handler);
    /// Has the registered handler answer; false when there is none. Any thread.
    /// An exception of the handler is logged and counts as false.
    bool HandleRequest(const String& name);
    /// Sends a request to every running program of another component (and to other running
    /// instances of this one). Never blocks; true when at least one took it. Here there is no
    /// connection to others: false.
    virtual bool SendRequest(const String& component, const String& request);

protected:
    void CloseOptions(); ///< Writes and drops the options file; the next use loads it again.

private:
    Mutex                            m_Mutex; ///< Recursive: a view of the log may ask back.
    std::shared_ptr<OptionsFile>     m_Options;
    std::map<String, RequestHandler> m_Handlers;
};
