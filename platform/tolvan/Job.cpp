#include "tolvan/Job.h"

#include "vesta/CallEntry.h"
#include "vesta/Exception.h"
#include "vesta/UID.h"

#include <utility>

const String p_Id = "ID";
const String p_Name = "Name";
const String p_Type = "Type";
const String p_User = "User";
const String p_State = "State";
const String p_Changed = "Changed";
const String p_Priority = "Priority";
const String p_Progress = "Progress";
const String p_FramesDone = "FramesDone";
const String p_FrameCount = "FrameCount";
const String p_Host = "Host";
const String p_Started = "Started";
const String p_Ended = "Ended";
const String p_Folder = "Folder";
const String p_LogFile = "LogFile";
const String p_ExitCode = "ExitCode";
const String p_Error = "Error";

const String state_Waiting = "Waiting";
const String state_Running = "Running";
const String state_Suspended = "Suspended";
const String state_Done = "Done";
const String state_Failed = "Failed";
const String state_Killed = "Killed";

Job::~Job() = default;

String Job::GetParam(const String& name) const
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    const auto                        found = m_Params.find(name);
    return found == m_Params.end() ? String() : found->second;
}

void Job::SetParam(const String& name, const String& value)
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    m_Params[name] = value;
}

std::map<String, String> Job::Params() const
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    return m_Params;
}

void Job::Update(const Message& message)
{
    if (message.Type() != msg_Job)
    {
        return;
    }
    const std::lock_guard<std::mutex> lock(m_Mutex);
    for (const auto& [name, value] : message.Fields())
    {
        m_Params[name] = value;
    }
}

void Job::DoCommand(const String& command, const String& item)
{
    CALL_ENTRY("Job::DoCommand");
    const Message message = Message(msg_Command)
                                .Set("ID", GetParam(p_Id))
                                .Set("Command", command)
                                .Set("Item", item)
                                .Set("Request", UID::Create().ToString());
    if (!m_Sender || !m_Sender(message))
    {
        Exception::Throw("Job", "DoCommand", ec_Refused, "The master cannot be reached",
                         "The command \"" + command + "\" for the job \"" + GetParam(p_Name) +
                             "\" was not sent.");
    }
}

std::vector<String> Job::CommonParameterNames()
{
    return {p_Id,       p_Name,     p_Type,       p_User,       p_State, p_Changed,
            p_Priority, p_Progress, p_FramesDone, p_FrameCount, p_Host,  p_Started,
            p_Ended,    p_Folder,   p_LogFile,    p_ExitCode,   p_Error};
}

std::vector<String> Job::ParameterCommandNames()
{
    return {"Frame", "FirstFrame", "LastFrame", "FrameStep", "Output",  "Folder",
            "ID",    "Name",       "User",      "Host",      "Priority"};
}
