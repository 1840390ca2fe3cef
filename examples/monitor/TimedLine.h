#pragma once

#include "vesta/String.h"
#include "vesta/Time.h"

/// A line, and when it came to whoever had it first.
struct TimedLine
{
    String text;
    Time   came; ///< `Time()`: nobody knows.
};
