#pragma once

#include "vesta/CommandLine.h"
#include "vesta/Path.h"
#include "vesta/String.h"

#include <chrono>

namespace master
{
/// What the master was asked to do on its command line and in the environment.
struct Options
{
    Path                      jobsFolder;
    Path                      runFolder;
    Path                      modulesFolder; ///< Empty: where the job factory looks by itself.
    Path                      ownFolder;     ///< The program's own.
    int                       slots = 1;
    bool                      stays = false;
    std::chrono::milliseconds grace{3000};        ///< After the last client has gone.
    std::chrono::milliseconds firstClient{30000}; ///< For the first client to come.
};

extern const char* const master_Help;

/// The options that take the next word as their value.
CommandLine MasterCommandLine(int argc, const char* const* argv);
/// Throws an `Exception*` (ec_BadData) whose text names a wrong option.
Options ReadOptions(const CommandLine& commandLine);
/// The folder of the log file: "--log-dir", else "logs" in the user's folder, else this user's
/// private folder in the temporary folder; the same rule as the clients'.
Path LogFolder(const CommandLine& commandLine);
} // namespace master
