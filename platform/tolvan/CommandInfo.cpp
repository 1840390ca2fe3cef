#include "tolvan/CommandInfo.h"

#include "tolvan/Job.h"

#include <algorithm>

const String CommandInfo::k_Disabled = "DISABLED:";

namespace
{

const char* const kSeparator = ";";

/// Writes an item so that the tokenizer gives it back.
String Quoted(const String& item)
{
    String quoted;
    for (const char c : item)
    {
        if (c == ';' || c == '"' || c == '\\')
        {
            quoted.push_back('\\');
        }
        quoted.push_back(c);
    }
    return quoted;
}

} // namespace

bool CommandInfo::IsAllowed(const Job& job) const
{
    const std::vector<String> allowed = StringTokenizer::Split(states, kSeparator);
    const String              state = job.GetParam(p_State);
    return allowed.empty() ||
           std::any_of(allowed.begin(), allowed.end(),
                       [&](const String& one) { return one.Trim().EqualsNoCase(state); });
}

String CommandInfo::Itemize(const Job& job) const
{
    if (IsAllowed(job))
    {
        return items;
    }
    String disabled;
    for (const String& item : StringTokenizer::Split(items, kSeparator))
    {
        disabled += disabled.empty() ? "" : kSeparator;
        disabled += item.StartsWith(k_Disabled) ? Quoted(item) : k_Disabled + Quoted(item);
    }
    return disabled;
}

CommandInfo CommandInfo::ForJob(const Job& job) const
{
    CommandInfo command = *this;
    if (flags >= 0 && items.empty() && !name.StartsWith(k_Disabled) && !IsAllowed(job))
    {
        command.name = k_Disabled + name;
    }
    return command;
}
