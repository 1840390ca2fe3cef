#pragma once

#include "monitor/TimedLine.h"
#include "tolvan/Message.h"
#include "vesta/String.h"

#include <deque>
#include <map>
#include <vector>

/// What has happened on the farm since it was last asked for, with everything left out that later
/// news has made old: only the latest description of each job, and of its output only the end.
class FarmChanges
{
public:
    /// Lines of one job that wait at most; more than any view of it keeps would be of no use.
    static constexpr size_t k_MostLines = 20000;

    struct Output
    {
        std::deque<TimedLine> lines;
        long long             skipped = 0; ///< Lines before those.
    };

    /// Takes a message of the master; whether it changed anything.
    bool Add(const Message& message);

    /// The connection is new: jobs that are not described again are gone.
    bool   isWelcome = false;
    size_t jobsToCome = 0; ///< Since the welcome: the master describes this many.

    std::vector<Message>     jobs; ///< In the order of their first coming.
    std::vector<String>      gone; ///< Identifiers.
    std::map<String, Output> output;

private:
    void Welcome(const Message& message);
    void AddJob(const Message& message);
    void AddLine(const Message& message);

    std::map<String, size_t> m_IndexOf; ///< In `jobs`.
};
