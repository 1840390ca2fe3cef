#pragma once

#include "monitor/MonitorCommand.h"

class JobMenu;
class wxFrame;

/// Gives the frame its menu bar, which takes over the job menu; the commands are for the frame to
/// bind.
void BuildMonitorMenus(wxFrame& frame, JobMenu* jobs);
