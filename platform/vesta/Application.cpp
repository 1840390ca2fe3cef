#include "vesta/Application.h"

#include "vesta/CallEntry.h"
#include "vesta/Guarded.h"
#include "vesta/Log.h"

#include <utility>

Application* Application::the_Application = nullptr;

Application::Application()
{
    the_Application = this;
}

Application::~Application()
{
    if (the_Application == this)
    {
        the_Application = nullptr;
    }
}

OptionsFile& Application::Options()
{
    CALL_ENTRY("Application::Options");
    const MutexLock lock(m_Mutex);
    if (!m_Options)
    {
        const String fileName = OptionsFilename();
        m_Options = std::make_shared<OptionsFile>(fileName);
        if (fileName.empty())
        {
            LogWarning("No User Folder available: the options are not kept");
        }
        else
        {
            m_Options->Load(false, false);
        }
    }
    return *m_Options;
}

void Application::WriteOptions()
{
    CALL_ENTRY("Application::WriteOptions");
    std::shared_ptr<OptionsFile> options;
    {
        const MutexLock lock(m_Mutex);
        options = m_Options;
    }
    if (options)
    {
        options->WriteOut(); // Not under the mutex: it may take a while.
    }
}

void Application::CloseOptions()
{
    CALL_ENTRY("Application::CloseOptions");
    const MutexLock lock(m_Mutex);
    m_Options.reset();
}

void Application::RegisterRequestHandler(const String& name, RequestHandler handler)
{
    CALL_ENTRY("Application::RegisterRequestHandler");
    const MutexLock lock(m_Mutex);
    if (handler)
    {
        m_Handlers[name] = std::move(handler);
    }
    else
    {
        m_Handlers.erase(name);
    }
}

bool Application::HandleRequest(const String& name)
{
    CALL_ENTRY("Application::HandleRequest");
    RequestHandler handler;
    {
        const MutexLock lock(m_Mutex);
        const auto      found = m_Handlers.find(name);
        if (found == m_Handlers.end())
        {
            LogWarning("Nobody answers the request \"" + name + "\"");
            return false;
        }
        handler = found->second;
    }
    bool done = false;
    return Guarded("The request \"" + name + "\"", [&] { done = handler(); }) && done;
}

bool Application::SendRequest(const String& component, const String& request)
{
    CALL_ENTRY("Application::SendRequest");
    LogDebug("No way to send \"" + request + "\" to " + component);
    return false;
}
