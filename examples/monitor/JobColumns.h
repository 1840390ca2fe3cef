#pragma once

#include "monitor/FarmJob.h"

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
    int         width; ///< Dialog units, before the user has chosen.
    /// What a cell shows at that time.
    String (*text)(const FarmJob& job, Time now);
    /// What it is sorted by where that is a number; null: what it shows.
    double (*number)(const FarmJob& job, Time now);
};

const JobColumnInfo& InfoOf(int column);

/// From what a user must look at, 0, to what is over.
int StateRank(const String& state);
