#pragma once

#include "monitor/FarmChanges.h"
#include "monitor/FarmJob.h"

#include "vesta/Signal.h"

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <vector>

/// All jobs of the farm, in the order of their coming. Without a window; main thread.
class FarmJobs
{
public:
    /// What the farm does as a whole.
    struct Summary
    {
        int       jobs = 0;
        int       running = 0;
        int       suspended = 0;
        int       waiting = 0;
        int       done = 0;
        int       failed = 0; ///< Failed or killed.
        long long outputLines = 0;
    };

    /// What one call of `Apply` has changed.
    struct News
    {
        /// Jobs have come or gone, or the state or the name of some is another.
        bool                isListChanged = false;
        bool                isAnyGone = false;
        std::set<String>    changed; ///< Identifiers; with new output too, without those gone.
        std::vector<String> ended;   ///< Jobs that had not ended before; identifiers.
    };

    /// The name of the job type with that identifier.
    using ProductNames = std::function<String(const String& type)>;

    FarmJobs(Job::Sender sender, ProductNames productNames);

    /// Brings the jobs up to date and tells of it.
    void Apply(const FarmChanges& changes);

    const FarmJob* Find(const String& id) const; ///< Null when there is none.
    /// Valid until the next `Apply`.
    const std::vector<const FarmJob*>& InOrder() const { return m_Order; }
    const Summary&                     Summarize() const { return m_Summary; }

    /// Keeps many lines of the job's output while somebody watches it, else only the last few.
    void Watch(const String& id, bool watched);

    Signal1<const News&> Changed;

private:
    void   Welcome(size_t jobsToCome);
    void   ApplyJob(const Message& message, News& news);
    void   ApplyOutput(const FarmChanges& changes, News& news);
    void   DropGone(const FarmChanges& changes, News& news);
    void   Count(const FarmJob& job, int by);
    String ProductOf(const String& type);

    Job::Sender                                m_Sender;
    ProductNames                               m_ProductNames;
    std::map<String, String>                   m_Products; ///< Names that were asked for.
    std::map<String, std::unique_ptr<FarmJob>> m_Jobs;
    std::vector<const FarmJob*>                m_Order;
    Summary                                    m_Summary;
    uint64_t                                   m_LastNumber = 0;
    uint64_t                                   m_LastChange = 0;
    /// Since a new connection: jobs not described again yet, and how many are still to come.
    std::set<String> m_Unconfirmed;
    size_t           m_JobsToCome = 0;
};
