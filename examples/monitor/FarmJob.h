#pragma once

#include "monitor/JobFrames.h"
#include "monitor/JobOutput.h"

#include "tolvan/Job.h"
#include "tolvan/JobTypeInfo.h"
#include "vesta/String.h"
#include "vesta/Time.h"

#include <boost/shared_ptr.hpp>

#include <cstdint>
#include <vector>

/// A job of the farm as the monitor shows it. What lists sort and filter by stands ready here;
/// everything else is in `job`, which also takes the commands.
struct FarmJob
{
    /// Where a job stands, for choosing what to show first.
    enum Phase
    {
        kRuns,
        kSuspended, ///< Also before it has run.
        kWaits,
        kEnded
    };

    /// Takes over what the master says of the job. Whether its state or its name has changed.
    bool Update(const Message& message);

    Phase CurrentPhase() const;
    /// It has begun and not ended: the time that it takes goes on.
    bool IsUnderWay() const { return started != Time() && ended == Time(); }
    /// From the start to the end, or until `now`; 0 before the start.
    Time Elapsed(Time now) const;

    boost::shared_ptr<Job> job;
    String                 id;
    uint64_t               number = 0; ///< Rises with every job.
    uint64_t               change = 0; ///< Rises with every change of any job's state.
    String                 type;       ///< Identifier of its type.
    String                 product;    ///< Name of its type; the type's identifier if unknown.
    String                 name;
    String                 user;
    String                 state; ///< One of the job states of Job.h.
    String                 host;
    int                    priority = 0;
    int                    progress = 0; ///< Percent.
    int                    framesDone = 0;
    int                    frameCount = 0; ///< 0: the job has no frames.
    Time                   started;        ///< 0 before the start.
    Time                   ended;          ///< 0 before the end.
    JobOutput              output;
    JobFrames              frames;
};

/// In whole seconds: the fraction of a short time would jump about.
String ElapsedText(Time elapsed);

/// "Orbit: Running, 34 %". One line, however long or odd the name is.
String JobCaption(const FarmJob& job);

/// A name and a value, each one line of at most some hundred characters.
struct DetailRow
{
    String name;
    String value;
    bool   isLong = false; ///< The value may need the whole width.
};

/// A job's details; those without a value are left out.
std::vector<DetailRow> JobDetailRows(const FarmJob& job, Time now);
/// The same with the last line of its output.
std::vector<DetailRow> JobPanelRows(const FarmJob& job, Time now);
/// The same of the parameters that its type gives it, in the type's order and words. Of a type that
/// is not known (null) they have their plain names.
std::vector<DetailRow> JobParameterRows(const FarmJob& job, const JobTypeInfo* type);

/// The text in one line of at most `most` characters, with an ellipsis where it is cut.
String OneLine(const String& text, size_t most);
