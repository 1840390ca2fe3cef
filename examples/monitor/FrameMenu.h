#pragma once

#include "vesta/String.h"

#include <vector>

class FarmJobs;
class wxDBListCtrl;
class wxPoint;
class wxWindow;

/// A frame of a job.
struct FrameId
{
    String job;
    int    number = 0; ///< From 1.
};

/// What a user does with frames that a list shows. Jobs and frames that have gone meanwhile are
/// left out; what cannot be done is told.
/// @{

/// Shows their menu and does what is chosen; `where` is in screen coordinates.
void ShowFrameMenu(wxDBListCtrl& list, const FarmJobs& jobs, const std::vector<FrameId>& frames,
                   const wxPoint& where);
/// Has the desktop show the pictures, as many as is sensible.
void OpenPictures(const FarmJobs& jobs, const std::vector<FrameId>& frames, wxWindow* parent);
/// @}
