#pragma once

#include "tolvan/Message.h"
#include "vesta/Descriptor.h"
#include "wire/FrameStream.h"

#include <boost/asio/io_context.hpp>
#include <boost/asio/steady_timer.hpp>

#include <functional>
#include <memory>
#include <set>

namespace tolvan
{
/// One connection over which requests go in one direction and their answers in the other. It closes
/// itself, and logs why, when the partner breaks the rules or stays silent for 5 s. All on the
/// thread of the `io_context`.
class Conversation : public std::enable_shared_from_this<Conversation>
{
public:
    /// Those that are open; whoever is in it lives.
    using All = std::set<std::shared_ptr<Conversation>>;

    /// Adds a new one to `all`, which must outlive it. `partner` is a name for the log.
    static std::shared_ptr<Conversation> Add(All& all, boost::asio::io_context& context,
                                             Descriptor socket, const String& partner);

    /// `onFrame` gets what the partner sends; an `Exception*` from it closes the connection.
    void Start(std::function<void(const String& content)> onFrame);
    void Send(String frame) { m_Stream->Send(std::move(frame)); }
    /// Gives the partner its 5 s anew, after what it was waited for; its silence is no fault now.
    void ExpectMore();
    void Close();

    const String& Partner() const { return m_Partner; }

private:
    Conversation(All& all, boost::asio::io_context& context, Descriptor socket,
                 const String& partner);
    void WatchForSilence();

    All&                               m_All;
    const String                       m_Partner;
    boost::asio::steady_timer          m_Deadline;
    bool                               m_IsWaitedFor = true; ///< The partner owes us a frame.
    std::shared_ptr<wire::FrameStream> m_Stream;
};

/// What is said. Decoding throws an `Exception*` for anything else.
/// @{
String RequestFrame(const String& request);
String AnswerFrame(bool done);
String DecodeRequest(const String& content);
bool   DecodeAnswer(const String& content);
/// @}
} // namespace tolvan
