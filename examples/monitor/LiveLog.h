#pragma once

#include "common/FollowingText.h"

/// A view of lines that come without end: it keeps the latest million, so that the monitor can run
/// for months.
class LiveLog : public FollowingText
{
public:
    static constexpr int k_MostLines = 1000000;

    explicit LiveLog(wxWindow* parent) : FollowingText(parent, k_MostLines) {}
};
