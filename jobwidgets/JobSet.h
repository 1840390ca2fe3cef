#pragma once

#include "vesta/Export.h"
#include "vesta/Signal.h"
#include "vesta/String.h"
#include "vesta/UID.h"

#include <boost/shared_ptr.hpp>

#include <cstdint>
#include <map>
#include <memory>
#include <vector>

class Job;

/// What is to be seen of a job: its parameters as they were when the set was told of it last, each
/// text one line of some hundred characters at most.
struct JobFacts
{
    boost::shared_ptr<Job> job;
    UID                    id;
    int64_t                number = 0; ///< Rises with every job that comes.
    String                 name;
    String                 user;
    String                 product; ///< Name of its type; the type's identifier if unknown.
    String                 state;
    int                    progress = 0;   ///< Percent, 0 to 100.
    bool                   isGone = false; ///< From the set.
};

/// The jobs that a program knows, for the controls that show them. The program puts in each job
/// that comes, puts it in again when its parameters have changed, and removes it when it is gone.
/// Main thread.
class TOLVAN_API JobSet
{
public:
    using Facts = std::shared_ptr<const JobFacts>;

    enum class Change
    {
        kProgress,
        kTexts, ///< Name, user, product or state of a job.
        kJobs   ///< One has come or gone.
    };

    /// A job that has come or changed. One that is null or has no identifier is not taken, with a
    /// line in the log.
    void Put(const boost::shared_ptr<Job>& job);
    void Remove(const UID& id); ///< Nothing happens when it is not there.
    void Clear();

    Facts Find(const UID& id) const; ///< Null when there is none.
    /// Those of the jobs that are there, in the order of the identifiers.
    std::vector<Facts> Find(const std::vector<UID>& ids) const;
    size_t             GetCount() const { return m_Jobs.size(); }
    /// As they came. Valid until one is removed.
    const std::vector<Facts>& InOrder() const;

    Signal1<Change> Changed; ///< Once for each change.

private:
    String ProductOf(const String& type);

    std::map<UID, std::shared_ptr<JobFacts>> m_Jobs;
    mutable std::vector<Facts>               m_Order;
    mutable bool             m_HasGone = false; ///< Some of the order are not there any more.
    std::map<String, String> m_Products;        ///< Names that were asked for, by type.
    int64_t                  m_LastNumber = 0;
};
