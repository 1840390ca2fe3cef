#pragma once

#include "tolvan/Message.h"
#include "vesta/Export.h"
#include "vesta/String.h"

#include <boost/shared_ptr.hpp>

#include <functional>
#include <map>
#include <mutex>
#include <vector>

/// @name Parameters of every job
/// Names of the parameters that every job has.
/// @{
extern TOLVAN_API const String p_Id; ///< UID of the job.
extern TOLVAN_API const String p_Name;
extern TOLVAN_API const String p_Type; ///< UID of its type.
extern TOLVAN_API const String p_User;
extern TOLVAN_API const String p_State;    ///< One of the job states below.
extern TOLVAN_API const String p_Changed;  ///< Into that state; microseconds since 1970.
extern TOLVAN_API const String p_Priority; ///< 0 to 100; higher runs first.
extern TOLVAN_API const String p_Progress; ///< Percent, 0 to 100.
extern TOLVAN_API const String p_FramesDone;
extern TOLVAN_API const String p_FrameCount;
extern TOLVAN_API const String p_Host;
extern TOLVAN_API const String p_Started; ///< Microseconds since 1970; empty before the start.
extern TOLVAN_API const String p_Ended;   ///< Microseconds since 1970; empty before the end.
extern TOLVAN_API const String p_Folder;  ///< Where the job writes.
extern TOLVAN_API const String p_LogFile; ///< Its whole output, byte for byte.
extern TOLVAN_API const String p_ExitCode;
extern TOLVAN_API const String p_Error; ///< Why it failed, in words.
/// @}

/// @name States of a job
/// States of a job.
/// @{
extern TOLVAN_API const String state_Waiting;
extern TOLVAN_API const String state_Running;
extern TOLVAN_API const String state_Suspended;
extern TOLVAN_API const String state_Done;
extern TOLVAN_API const String state_Failed;
extern TOLVAN_API const String state_Killed;
/// @}

/// A job as a client sees it: its parameters, kept up to date by the master's messages, and its
/// commands, which are sent to the master. Any thread.
class TOLVAN_API Job
{
public:
    /// Sends a message to the master; false when that is not possible.
    using Sender = std::function<bool(const Message&)>;

    Job() = default;
    explicit Job(Sender sender) : m_Sender(std::move(sender)) {}
    virtual ~Job();

    String                   GetParam(const String& name) const; ///< Empty when there is none.
    void                     SetParam(const String& name, const String& value);
    std::map<String, String> Params() const;
    /// Takes over the parameters that a msg_Job message carries.
    void Update(const Message& message);

    /// Runs a command of the job's type; `item` is empty for a command with a single item. Throws
    /// an `Exception*` when it cannot be sent; whether the master carried it out comes later, as a
    /// failed request.
    virtual void DoCommand(const String& command, const String& item);

    /// Names of the parameters above.
    static std::vector<String> CommonParameterNames();
    /// Words that name a command inside a parameter's text.
    static std::vector<String> ParameterCommandNames();

private:
    mutable std::mutex       m_Mutex;
    std::map<String, String> m_Params;
    Sender                   m_Sender;
};
