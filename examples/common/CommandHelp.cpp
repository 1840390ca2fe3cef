#include "common/CommandHelp.h"

#include "vesta/CommandLine.h"

#include <cstdio>

bool AnswerCommandLine(int argc, char** argv, const char* program, const char* help)
{
    const CommandLine commandLine(argc, argv);
    if (commandLine.Has("help"))
    {
        std::fputs(help, stdout);
        return true;
    }
    if (commandLine.Has("version"))
    {
        std::printf("%s %s\n", program, TOLVAN_VERSION);
        return true;
    }
    return false;
}
