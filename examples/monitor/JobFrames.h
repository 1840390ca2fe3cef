#pragma once

#include "vesta/String.h"

#include <string_view>
#include <unordered_map>

/// What is known of a job's frames from its output: "FRAME 12/180 frame_0012.png took 0.63 s" says
/// that the twelfth of 180 is done. Without a window.
class JobFrames
{
public:
    struct Frame
    {
        String file;
        String took; ///< As the job's program said it.
    };

    static constexpr size_t k_Most = 100000; ///< Frames that are remembered.

    /// Takes a line of output; whether it was about a frame.
    bool Add(std::string_view line);
    void Clear() { m_Frames.clear(); }

    /// The frame of that number, counted from 1; null when nothing is known of it.
    const Frame* Find(int number) const;

private:
    std::unordered_map<int, Frame> m_Frames;
};
