#pragma once

/// Command ids of the main window's menus, beside the toolkit's and the text view's own.
enum MonitorCommand
{
    id_Submit = 22000,
    id_Follow,
    id_SwitchPane,
    id_MoreJobs,
    id_MoreLog,
    id_FullScreen
};
