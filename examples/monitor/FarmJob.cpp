#include "monitor/FarmJob.h"

#include <algorithm>
#include <map>
#include <utility>

namespace
{
constexpr size_t      kMostName = 100;  // characters
constexpr size_t      kMostLabel = 40;  // characters
constexpr size_t      kMostValue = 300; // characters
constexpr const char* kEllipsis = "\xe2\x80\xa6";

// Whether the byte begins a character of UTF-8.
bool BeginsCharacter(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
}

bool IsCommon(const String& name)
{
    static const std::vector<String> s_Common = Job::CommonParameterNames();
    return std::find(s_Common.begin(), s_Common.end(), name) != s_Common.end();
}

void AddRow(std::vector<DetailRow>& rows, const char* name, const String& value,
            bool isLong = false)
{
    if (!value.empty())
    {
        rows.push_back({name, OneLine(value, kMostValue), isLong});
    }
}

String ProgressText(const FarmJob& job)
{
    String text = SFormat("%d %%", job.progress);
    if (job.frameCount > 0)
    {
        text += SFormat(" (%d of %d frames)", job.framesDone, job.frameCount);
    }
    return text;
}
} // namespace

bool FarmJob::Update(const Message& message)
{
    const String oldState = std::exchange(state, message.Get(p_State));
    const String oldName = std::exchange(name, message.Get(p_Name));
    const Time   oldStart = std::exchange(started, Time(message.GetInt(p_Started)));
    job->Update(message);
    user = message.Get(p_User);
    host = message.Get(p_Host);
    priority = static_cast<int>(message.GetInt(p_Priority));
    progress = static_cast<int>(std::clamp(message.GetInt(p_Progress), 0LL, 100LL));
    framesDone = static_cast<int>(message.GetInt(p_FramesDone));
    frameCount = static_cast<int>(message.GetInt(p_FrameCount));
    ended = Time(message.GetInt(p_Ended));
    if (oldStart != Time() && oldStart != started)
    {
        output.Clear(); // it runs anew
        frames.Clear();
    }
    return oldState != state || oldName != name;
}

FarmJob::Phase FarmJob::CurrentPhase() const
{
    return state == state_Running     ? kRuns
           : state == state_Suspended ? kSuspended
           : state == state_Waiting   ? kWaits
                                      : kEnded;
}

Time FarmJob::Elapsed(Time now) const
{
    if (started == Time())
    {
        return Time();
    }
    return std::max(Time(), (ended == Time() ? now : ended) - started);
}

String ElapsedText(Time elapsed)
{
    const Time seconds = Time::Seconds(elapsed.ToSeconds());
    return seconds == Time() ? String("0s") : seconds.FormatDuration();
}

String OneLine(const String& text, size_t most)
{
    String line;
    size_t count = 0;
    for (const char byte : text)
    {
        if (BeginsCharacter(byte) && ++count > most)
        {
            return line + kEllipsis;
        }
        const bool isControl = static_cast<unsigned char>(byte) < ' ' || byte == 0x7F;
        line += isControl ? ' ' : byte;
    }
    return line;
}

String JobCaption(const FarmJob& job)
{
    String caption = OneLine(job.name, kMostName) + ": " + job.state;
    if (job.CurrentPhase() == FarmJob::kRuns || job.CurrentPhase() == FarmJob::kSuspended)
    {
        caption += SFormat(", %d %%", job.progress);
    }
    return caption;
}

std::vector<DetailRow> JobDetailRows(const FarmJob& job, Time now)
{
    std::vector<DetailRow> rows;
    AddRow(rows, "State", job.state);
    if (job.started != Time())
    {
        AddRow(rows, "Elapsed", ElapsedText(job.Elapsed(now)));
        AddRow(rows, "Started", job.started.FormatDate(), true);
    }
    AddRow(rows, "Product", job.product);
    AddRow(rows, "Priority", String::FromInt(job.priority));
    AddRow(rows, "User", job.user);
    AddRow(rows, "Host", job.host);
    AddRow(rows, "Progress", ProgressText(job), true);
    AddRow(rows, "Folder", job.job->GetParam(p_Folder), true);
    AddRow(rows, "Error", job.job->GetParam(p_Error), true);
    return rows;
}

std::vector<DetailRow> JobPanelRows(const FarmJob& job, Time now)
{
    std::vector<DetailRow> rows = JobDetailRows(job, now);
    if (!job.output.Lines().empty())
    {
        AddRow(rows, "Last Output", job.output.Lines().back().text, true);
    }
    return rows;
}

std::vector<DetailRow> JobParameterRows(const FarmJob& job, const JobTypeInfo* type)
{
    std::vector<DetailRow>   rows;
    std::map<String, String> params = job.job->Params();
    for (int i = 0; type && i < type->ParamCount(); ++i)
    {
        const JobParamInfo& info = type->GetParam(i);
        const auto          found = params.find(info.name);
        if (found != params.end() && !IsCommon(info.name))
        {
            rows.push_back(
                {OneLine(info.Label(), kMostLabel), OneLine(found->second, kMostValue), true});
            params.erase(found);
        }
    }
    for (const auto& [name, value] : params)
    {
        if (!IsCommon(name))
        {
            rows.push_back({OneLine(name, kMostName), OneLine(value, kMostValue), true});
        }
    }
    return rows;
}
