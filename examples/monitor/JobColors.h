#pragma once

#include "vesta/String.h"

/// Name of the colour in which the monitor writes a job's state.
const String& ColorOfState(const String& state);
/// Name of the colour of a job's progress bar.
const String& ColorOfBar(const String& state);
