#pragma once

#include "jobwidgets/JobSet.h"
#include "tolvan/Job.h"

#include <map>

/// Jobs by their names, in a set.
class JobSample
{
public:
    static UID IdOf(const String& name)
    {
        static std::map<String, UID> s_Ids;
        return s_Ids.emplace(name, UID::Create()).first->second;
    }
    /// Comes, or changes.
    void Put(const String& name, const String& user, const String& state, int progress = 0)
    {
        boost::shared_ptr<Job>& job = m_All[name];
        if (!job)
        {
            job.reset(new Job);
            job->SetParam(p_Id, IdOf(name).ToString());
            job->SetParam(p_Name, name);
            job->SetParam(p_Type, "Tracer");
        }
        job->SetParam(p_User, user);
        job->SetParam(p_State, state);
        job->SetParam(p_Progress, String::FromInt(progress));
        jobs.Put(job);
    }
    String NameOf(const UID& id) const
    {
        const JobSet::Facts facts = jobs.Find(id);
        return facts ? facts->name : "?";
    }

    JobSet jobs;

private:
    std::map<String, boost::shared_ptr<Job>> m_All;
};
