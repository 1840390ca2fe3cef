#pragma once

#include "monitor/FarmJob.h"

#include <functional>

/// The columns of the list of jobs. Without a window.
enum JobColumn
{
    column_Name,
    column_Product,
    column_User,
    column_State,
    column_Progress,
    column_Frames,
    column_Elapsed,
    column_Host,
    k_JobColumns
};

struct JobColumnInfo
{
    const char* title;
    int         width; ///< Pixels, before the user has chosen.
    /// What a cell shows at that time.
    String (*text)(const FarmJob& job, Time now);
    /// Less than 0, 0 or more than 0, as the first comes before, with or after the second.
    int (*compare)(const FarmJob& a, const FarmJob& b, Time now);
};

const JobColumnInfo& InfoOf(int column);
