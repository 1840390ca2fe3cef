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
    /// Whether it is a line of output that was told of before, as the last ones are after every
    /// connection. To be asked once for each message, before its lines.
    bool IsRepeated(const Message& message);
    /// The lines for a message that came at `now`; often one, none when nothing worth a line has
    /// changed. They carry the time at which it happened, with the date if that is another day. A
    /// job's output is handed on byte for byte, with the line's head once more behind each carriage
    /// return within it.
    std::vector<String> LinesFor(const Message& message, Time now);
    std::vector<String> LinesForConnection(bool connected, Time now) const;

private:
    struct JobState
    {
        String name;
        String state;
        int    progress = 0; ///< Percent, as last told.
        Time   lastOutput;   ///< When the last line of its output came.
    };

    std::vector<String> JobLines(const Message& message, Time now);
    String              NameOf(const Message& message) const;

    std::map<String, JobState> m_Jobs;
};
