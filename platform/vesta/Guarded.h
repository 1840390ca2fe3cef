#pragma once

#include "vesta/Export.h"
#include "vesta/String.h"

#include <functional>

/// Runs somebody else's code at a place that an exception must not leave: what it throws is logged
/// as one line that says `what` has failed. False when it threw. Any thread.
TOLVAN_API bool Guarded(const String& what, const std::function<void()>& call);

/// What the exception that is being handled says, for a line of the log. It is over then: a
/// platform's `Exception` is deleted.
TOLVAN_API String TakeCurrentException();
