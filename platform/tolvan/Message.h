#pragma once

#include "vesta/Export.h"
#include "vesta/Signal.h"
#include "vesta/String.h"

#include <boost/shared_ptr.hpp>

#include <map>

/// What programs of the farm send one another: a type and named fields. Types and fields are byte
/// strings; a field may hold any bytes.
class TOLVAN_API Message
{
public:
    Message() = default;
    explicit Message(const String& type) : m_Type(type) {}

    const String& Type() const { return m_Type; }

    bool      Has(const String& field) const;
    String    Get(const String& field) const; ///< Empty when there is none.
    long long GetInt(const String& field, long long otherwise = 0) const;
    Message&  Set(const String& field, const String& value);
    Message&  Set(const String& field, long long value);

    const std::map<String, String>& Fields() const { return m_Fields; }

    /// The bytes of one frame's content.
    String Encode() const;
    /// The opposite. Throws an `Exception*` (ec_BadData) for bytes that are no message.
    static boost::shared_ptr<Message> Decode(const String& bytes);

private:
    String                   m_Type;
    std::map<String, String> m_Fields;
};

/// @name Types of messages
/// Types of messages between the master and its clients, and their fields.
///
/// | type | from | fields |
/// |---|---|---|
/// | msg_Hello | client | component, user |
/// | msg_Welcome | master | version, jobs |
/// | msg_Job | master | the job's parameters (see Job.h), once at connection and at every change |
/// | msg_JobGone | master | ID |
/// | msg_Output | master | ID, Line: any bytes, no line end; Time: when it came, rising (us) |
/// | msg_Skipped | master | ID, Count, File: lines left out for a slow client, and where they are |
/// | msg_Submit | client | Type, Name and the parameters of the new job; Request |
/// | msg_Command | client | ID, Command, Item; Request |
/// | msg_Done | master | Request, ID of the job |
/// | msg_Failed | master | Request, Text, Text2 |
/// | msg_Shutdown | master | Reason |
/// @{
extern TOLVAN_API const char* const msg_Hello;
extern TOLVAN_API const char* const msg_Welcome;
extern TOLVAN_API const char* const msg_Job;
extern TOLVAN_API const char* const msg_JobGone;
extern TOLVAN_API const char* const msg_Output;
extern TOLVAN_API const char* const msg_Skipped;
extern TOLVAN_API const char* const msg_Submit;
extern TOLVAN_API const char* const msg_Command;
extern TOLVAN_API const char* const msg_Done;
extern TOLVAN_API const char* const msg_Failed;
extern TOLVAN_API const char* const msg_Shutdown;
/// @}

/// The master, or a signal of the operating system, asks this program to close. Raised on a thread
/// of the platform.
class TOLVAN_API ShutdownMsg
{
public:
    explicit ShutdownMsg(const String& reason) : m_Reason(reason) {}
    const String& Reason() const { return m_Reason; }

    static Signal1<const boost::shared_ptr<ShutdownMsg>&> s_Signal;

private:
    String m_Reason;
};

/// A message has come in. A slot that moves the message out has taken it over; one that is left
/// goes to the application's queue. Raised on a thread of the messenger.
class TOLVAN_API MessageReceivedEvt
{
public:
    boost::shared_ptr<Message> m_Message;

    static Signal1<MessageReceivedEvt&> s_Signal;
};

/// The connection to the master stands. Raised on a thread of the messenger.
class TOLVAN_API MessengerConnectedEvt
{
public:
    static Signal1<MessengerConnectedEvt&> s_Signal;
};

/// The connection to the master is gone. Raised on a thread of the messenger.
class TOLVAN_API MessengerDisconnectedEvt
{
public:
    static Signal1<MessengerDisconnectedEvt&> s_Signal;
};
