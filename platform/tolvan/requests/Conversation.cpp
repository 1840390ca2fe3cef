#include "tolvan/requests/Conversation.h"

#include "vesta/Exception.h"
#include "wire/Framing.h"

#include <utility>

namespace tolvan
{
namespace
{

constexpr std::chrono::milliseconds kPatience{5000}; // for a partner's next request or answer

const char* const kRequest = "Request";
const char* const kName = "Name";
const char* const kAnswer = "Answer";
const char* const kDone = "Done";

boost::shared_ptr<Message> DecodeAs(const String& content, const char* type)
{
    const auto message = Message::Decode(content);
    if (message->Type() != type)
    {
        Exception::Throw("Conversation", "DecodeAs", ec_BadData,
                         "a message \"" + message->Type() + "\" came instead of \"" + type + "\"");
    }
    return message;
}

} // namespace

Conversation::Conversation(All& all, boost::asio::io_context& context, Descriptor socket,
                           const String& partner)
    : m_All(all),
      m_Partner(partner),
      m_Deadline(context),
      m_Stream(std::make_shared<wire::FrameStream>(context, std::move(socket), kPatience))
{
}

std::shared_ptr<Conversation> Conversation::Add(All& all, boost::asio::io_context& context,
                                                Descriptor socket, const String& partner)
{
    return *all.emplace(new Conversation(all, context, std::move(socket), partner)).first;
}

void Conversation::Start(std::function<void(const String& content)> onFrame)
{
    wire::FrameStream::Events events;
    events.frame = std::move(onFrame);
    events.closed = [self = shared_from_this()](const String& why)
    {
        if (!why.empty())
        {
            LogWarning("Closed the connection of " + self->m_Partner + ": " + why);
        }
        self->Close();
    };
    WatchForSilence();
    m_Stream->Start(std::move(events));
}

void Conversation::ExpectMore()
{
    m_IsWaitedFor = false;
    WatchForSilence();
}

void Conversation::WatchForSilence()
{
    m_Deadline.expires_after(kPatience);
    m_Deadline.async_wait(
        [self = shared_from_this()](const boost::system::error_code& error)
        {
            if (!error && self->m_Deadline.expiry() <= std::chrono::steady_clock::now())
            {
                if (self->m_IsWaitedFor)
                {
                    LogWarning("Closed the connection of " + self->m_Partner +
                               SFormat(": silent for %d ms", static_cast<int>(kPatience.count())));
                }
                self->Close();
            }
        });
}

void Conversation::Close()
{
    m_Stream->Close();
    m_Deadline.cancel();
    m_All.erase(shared_from_this());
}

String RequestFrame(const String& request)
{
    return wire::Framing::Wrap(Message(kRequest).Set(kName, request).Encode());
}

String AnswerFrame(bool done)
{
    return wire::Framing::Wrap(Message(kAnswer).Set(kDone, String::FromBool(done)).Encode());
}

String DecodeRequest(const String& content)
{
    return DecodeAs(content, kRequest)->Get(kName);
}

bool DecodeAnswer(const String& content)
{
    return DecodeAs(content, kAnswer)->Get(kDone).ToBool(false);
}
} // namespace tolvan
