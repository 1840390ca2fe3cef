#pragma once

/// Command ids of the main window's menus, beside the toolkit's and the text view's own.
enum MonitorCommand
{
    id_Submit = 22000,
    id_Refresh,
    id_Follow,
    id_SwitchPane,
    id_MoreJobs,
    id_MoreLog,
    id_FullScreen,
    id_FilterJobs,
    id_GroupFirst, ///< One for each kind of grouping.
    id_GroupLast = id_GroupFirst + 3,
    id_FramesInTree
};
