#pragma once

#include "tolvan/Job.h"
#include "vesta/Path.h"

#include <boost/shared_ptr.hpp>

#include <vector>

class wxWindow;

using JobPointers = std::vector<boost::shared_ptr<Job>>;

/// Windows, and programs of the desktop, that one command opens.
constexpr size_t k_MostWindowsAtOnce = 20;

/// What these cannot do they tell the user, with the reason. The jobs may have ended, or may have
/// been forgotten by the master, by the time that a question is answered.
/// @{

/// Has the master carry out a command on each of the jobs.
void SendCommand(const JobPointers& jobs, const String& command, const String& item,
                 wxWindow* parent);
/// Asks whether the jobs shall be killed, and has the master do so.
void KillJobs(const JobPointers& jobs, wxWindow* parent);
/// Asks whether the master shall forget the jobs, of which it does so with those that have ended.
void RemoveJobs(const JobPointers& jobs, wxWindow* parent);
/// Asks for a number from 0 to 100, and has the master give it to each of the jobs.
void AskPriority(const JobPointers& jobs, wxWindow* parent);
/// Has the desktop show the folders that the jobs write to.
void OpenOutputFolders(const JobPointers& jobs, wxWindow* parent);
/// Opens all that the jobs have written in the log viewer, a tab for each, as many as windows may
/// be opened at once; jobs that have written nothing are left out.
void ViewOutputs(const JobPointers& jobs, wxWindow* parent);
bool HasOutput(const Job& job); ///< It has run, and its output is kept.
/// @}

/// Has the desktop show a file or a folder with the program that is meant for it; whether there is
/// one.
bool OpenOnDesktop(const Path& path);
/// Tells why something could not be done.
void TellFailure(const String& reason, wxWindow* parent);
