#pragma once

#include "monitor/JobWindow.h"

#include "vesta/String.h"

#include <wx/weakref.h>

#include <map>

class FarmJobs;

/// The windows of single jobs, one a job. The menu of open windows is filled anew whenever one
/// comes or goes: while it opens is too late, the toolkit has settled its size by then.
class JobWindows
{
public:
    /// `jobs` must outlive the windows.
    JobWindows(FarmJobs& jobs, JobWindow::Resubmit resubmit);

    /// Opens the job's window, or raises it. Nothing for a job that is gone.
    void Open(const String& id);

private:
    void DropClosed();

    FarmJobs&                              m_Jobs;
    JobWindow::Resubmit                    m_Resubmit;
    std::map<String, wxWeakRef<JobWindow>> m_Windows; ///< Null: closed.
};
