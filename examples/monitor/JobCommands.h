#pragma once

#include "tolvan/Job.h"

#include <boost/shared_ptr.hpp>

class wxWindow;

/// What these cannot do they tell the user, with the reason.
/// @{

/// Asks whether the job shall be stopped, and has the master do so. The job may have ended, or may
/// have been forgotten by the master, by the time that the user answers.
void StopJob(const boost::shared_ptr<Job>& job, wxWindow* parent);
/// Has the desktop show the folder that the job writes to.
void OpenOutputFolder(const boost::shared_ptr<Job>& job, wxWindow* parent);
/// @}
