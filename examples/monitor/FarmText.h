#pragma once

#include "tolvan/Message.h"
#include "vesta/String.h"
#include "vesta/Time.h"

#include <map>
#include <vector>

/// Turns the master's messages into the lines of the farm's log. It remembers what each job was
/// like, so that a line says what has changed. Without a window; one thread at a time.
class FarmText
{
public:
    /// What the farm does as a whole.
    struct Summary
    {
        int       jobs = 0;
        int       running = 0;
        int       done = 0;
        int       failed = 0; ///< Failed or killed.
        long long outputLines = 0;
    };

    /// The lines for a message that came at `now`; often one, none when nothing worth a line has
    /// changed. A job's output is handed on byte for byte.
    std::vector<String> LinesFor(const Message& message, Time now);
    std::vector<String> LinesForConnection(bool connected, Time now) const;

    Summary Summarize() const;

private:
    struct JobState
    {
        String name;
        String state;
        int    progress = 0; ///< Percent, as last told.
    };

    std::vector<String> JobLines(const Message& message, Time now);
    String              NameOf(const Message& message) const;

    std::map<String, JobState> m_Jobs;
    long long                  m_OutputLines = 0;
};
