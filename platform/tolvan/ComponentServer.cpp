#include "tolvan/ComponentServer.h"

#include "tolvan/SocketFolder.h"
#include "tolvan/requests/RequestClient.h"
#include "tolvan/requests/RequestServer.h"
#include "vesta/File.h"
#include "vesta/Guarded.h"
#include "vesta/Platform.h"

#include <boost/asio/executor_work_guard.hpp>
#include <boost/asio/post.hpp>

#include <thread>
#include <utility>

namespace asio = boost::asio;

struct ComponentServer::State
{
    explicit State(Handler handler) : server(context, conversations, std::move(handler)) {}

    void CloseAll()
    {
        server.Close();
        while (!conversations.empty())
        {
            (*conversations.begin())->Close();
        }
        work.reset();
    }

    asio::io_context                                           context{1};
    asio::executor_work_guard<asio::io_context::executor_type> work{context.get_executor()};
    tolvan::Conversation::All                                  conversations;
    tolvan::RequestServer                                      server;
    tolvan::RequestClient                                      client{context, conversations};
    Path        path; ///< The own socket; empty: not listening.
    std::thread thread;
};

ComponentServer::ComponentServer(const String& component, Handler handler)
    : m_State(std::make_unique<State>(std::move(handler)))
{
    Guarded("Making this program known to others",
            [&]
            {
                const Path path = SocketFolder::ForProgram(component, Platform::GetProcessId());
                m_State->server.Listen(path);
                m_State->path = path;
            });
    m_State->thread = std::thread([state = m_State.get()] { state->context.run(); });
}

ComponentServer::~ComponentServer()
{
    if (IsListening())
    {
        File::Remove(m_State->path);
    }
    asio::post(m_State->context, [state = m_State.get()] { state->CloseAll(); });
    m_State->thread.join();
}

bool ComponentServer::IsListening() const
{
    return !m_State->path.IsEmpty();
}

bool ComponentServer::Send(const String& component, const String& request)
{
    return m_State->client.Send(component, request, m_State->path);
}
