#pragma once

#include <string_view>

namespace master
{
/// What a job's program has said of its progress.
struct Progress
{
    int       percent = 0;    ///< 0 to 100.
    long long framesDone = 0; ///< With `frameCount` 0 nothing was said of frames.
    long long frameCount = 0;
};

/// Reads the progress from a line that a job's program has printed. Two forms are understood, at
/// the start of a line and whatever follows them: "PROGRESS 37" (percent, also "37.5" or "37%") and
/// "FRAME 3/40" (frames done of all frames). False for any other line, for numbers that make no
/// sense and for more frames than there are.
bool ReadProgress(std::string_view line, Progress& progress);
} // namespace master
