#pragma once

#include "monitor/FarmJob.h"

#include <optional>
#include <vector>

/// What is told of jobs that have ended, to a user who looks elsewhere. Without a window.
struct JobNotice
{
    String title;
    String text;
    bool   isFailure = false;
};

/// Of the user's jobs among them that are done or have failed; who kills a job knows of it. Nothing
/// when there are none.
std::optional<JobNotice> NoticeOf(const std::vector<const FarmJob*>& ended, const String& user);
