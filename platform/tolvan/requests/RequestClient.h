#pragma once

#include "tolvan/requests/Conversation.h"
#include "vesta/Path.h"

namespace tolvan
{
/// Sends requests to other programs and logs their answers.
class RequestClient
{
public:
    /// Both must outlive it.
    RequestClient(boost::asio::io_context& context, Conversation::All& conversations)
        : m_Context(context), m_Conversations(conversations)
    {
    }

    /// Sends it to every program of the component but the one whose socket is `own`. Never blocks;
    /// true when at least one took it. Any thread; the answers come on that of the `io_context`.
    bool Send(const String& component, const String& request, const Path& own);

private:
    bool SendTo(const Path& program, const String& component, const String& request,
                const String& frame);
    void AwaitAnswer(Descriptor socket, const String& component, const String& request,
                     const String& rest);

    boost::asio::io_context& m_Context;
    Conversation::All&       m_Conversations;
};
} // namespace tolvan
