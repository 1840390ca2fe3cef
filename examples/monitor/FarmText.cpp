#include "monitor/FarmText.h"

#include "tolvan/Job.h"

#include <algorithm>

namespace
{
constexpr int kProgressStep = 10; // percent; smaller steps are no line of their own

constexpr size_t kDateLength = 10; // of "2026-03-31 17:05:09"

String Stamped(Time then, Time now, const String& text)
{
    const String full = then.FormatDate();
    const bool   isToday = now.FormatDate().compare(0, kDateLength, full, 0, kDateLength) == 0;
    return (isToday ? then.FormatClock() : full) + "  " + text;
}

String Stamped(Time now, const String& text)
{
    return Stamped(now, now, text);
}

// Programs that tell how far they are go back to the start of the line by a carriage return, and
// write over what stands there: the head has to come again. Not behind one that ends the line.
String Headed(const String& head, const String& line)
{
    String headed = head;
    size_t done = 0;
    for (size_t at = line.find('\r'); at != String::npos && at + 1 < line.size();
         at = line.find('\r', done))
    {
        headed += line.substr(done, at + 1 - done) + head;
        done = at + 1;
    }
    return headed + line.substr(done);
}

// The time in that field of the message, or now if there is none.
Time TimeOf(const Message& message, const String& field, Time now)
{
    const Time then(message.GetInt(field));
    return then == Time() ? now : then;
}

// Milestones: the step that a percentage lies in.
int StepOf(int percent)
{
    return percent / kProgressStep;
}

String Duration(const Message& message)
{
    const Time started(message.GetInt(p_Started));
    const Time ended(message.GetInt(p_Ended));
    return (ended - started).FormatDuration();
}

String StateText(const Message& message)
{
    const String state = message.Get(p_State);
    if (state == state_Waiting)
    {
        return "waits for a free slot";
    }
    if (state == state_Running)
    {
        return "runs on " + message.Get(p_Host);
    }
    if (state == state_Suspended)
    {
        return "is suspended";
    }
    if (state == state_Done)
    {
        return "is done after " + Duration(message);
    }
    if (state == state_Killed)
    {
        return message.GetInt(p_Started) == 0 ? String("was killed before it ran")
                                              : "was killed after " + Duration(message);
    }
    const String error = message.Get(p_Error);
    return error.empty() ? "failed with exit code " + message.Get(p_ExitCode) : "failed: " + error;
}
} // namespace

bool FarmText::IsRepeated(const Message& message)
{
    const Time came(message.GetInt("Time"));
    if (message.Type() != msg_Output || came == Time())
    {
        return false;
    }
    Time&      last = m_Jobs[message.Get(p_Id)].lastOutput;
    const bool isRepeated = !(last < came);
    last = std::max(last, came);
    return isRepeated;
}

std::vector<String> FarmText::LinesFor(const Message& message, Time now)
{
    const String& type = message.Type();
    if (type == msg_Output)
    {
        return {Headed(Stamped(TimeOf(message, "Time", now), now, "[" + NameOf(message) + "] "),
                       message.Get("Line"))};
    }
    if (type == msg_Job)
    {
        return JobLines(message, now);
    }
    if (type == msg_JobGone)
    {
        m_Jobs.erase(message.Get(p_Id));
        return {};
    }
    if (type == msg_Skipped)
    {
        return {Stamped(now, "[" + NameOf(message) + "] " + message.Get("Count") +
                                 " lines came too fast to show; all are in " +
                                 message.Get("File"))};
    }
    if (type == msg_Failed)
    {
        return {Stamped(now, "The master reports: " + message.Get("Text"))};
    }
    return {};
}

std::vector<String> FarmText::LinesForConnection(bool connected, Time now) const
{
    return {Stamped(now, connected ? "Connected to the master"
                                   : "The connection to the master is lost; trying again")};
}

std::vector<String> FarmText::JobLines(const Message& message, Time now)
{
    std::vector<String> lines;
    JobState&           job = m_Jobs[message.Get(p_Id)];
    job.name = message.Get(p_Name);
    const String prefix = "Job '" + job.name + "' ";
    const String state = message.Get(p_State);
    const int    progress = static_cast<int>(message.GetInt(p_Progress));
    if (state != job.state)
    {
        lines.push_back(Stamped(TimeOf(message, p_Changed, now), now, prefix + StateText(message)));
    }
    else if (state == state_Running && StepOf(progress) > StepOf(job.progress))
    {
        lines.push_back(Stamped(now, prefix + SFormat("has done %d %%", progress)));
    }
    job.state = state;
    job.progress = progress;
    return lines;
}

String FarmText::NameOf(const Message& message) const
{
    const auto found = m_Jobs.find(message.Get(p_Id));
    return found == m_Jobs.end() || found->second.name.empty() ? message.Get(p_Id)
                                                               : found->second.name;
}
