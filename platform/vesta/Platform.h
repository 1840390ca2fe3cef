#pragma once

#include "vesta/Export.h"
#include "vesta/String.h"

#include <map>

/// What the operating system knows. May be called on any thread.
class TOLVAN_API Platform
{
public:
    static String GetCurrentUserName(); ///< The login name; the user's number when it has none.
    static String GetHostName();
    static int    GetProcessId();
    /// The environment as it stands now.
    static std::map<String, String> GetLiveEnv();
    /// The folder that the running program lies in; empty when it cannot be told.
    static String GetProgramFolder();
};
