// tolvan-checksum: sums up every file below a folder. A job of the demo farm.

#include "master/job-programs/checksum/Checksum.h"
#include "master/job-programs/checksum/FileWalk.h"
#include "vesta/CommandLine.h"
#include "vesta/String.h"
#include "vesta/Time.h"

#include <cinttypes>
#include <cstdio>

#include <sys/stat.h>

namespace
{

const char* const kHelp =
    "tolvan-checksum: prints the checksum and the size of every file below a folder.\n"
    "\n"
    "  --folder FOLDER  where to begin (the current folder)\n"
    "  --method NAME    \"sha1\" (default) or \"crc32\"\n"
    "  --skip NAMES     folders to leave out, separated by \";\"\n"
    "\n"
    "Files that cannot be read are reported and left out. Lines \"PROGRESS n\" tell the share "
    "that\n"
    "is done. Ends with 1 when the folder itself cannot be read, with 3 when a file could not.\n";

enum ExitCode
{
    kAllWell = 0,
    kNoFolder = 1,
    kBadArgument = 2,
    kSomeUnreadable = 3
};

struct Totals
{
    uint64_t files = 0;
    uint64_t bytes = 0;
    uint64_t unreadable = 0;
};

void SumOne(const String& folder, const String& name, const String& method, Totals& totals)
{
    const auto  sum = Checksum::Make(method);
    uint64_t    size = 0;
    std::string why;
    if (!SumFile(folder + "/" + name, *sum, size, why))
    {
        ++totals.unreadable;
        std::printf("%s: cannot be read: %s\n", name.c_str(), why.c_str());
        return;
    }
    ++totals.files;
    totals.bytes += size;
    std::printf("%s %12" PRIu64 " %s\n", sum->Text().c_str(), size, name.c_str());
}

Totals SumAll(const String& folder, const String& method, const FileWalk& walk)
{
    Totals totals;
    size_t lastPercent = 0;
    for (size_t i = 0; i < walk.files.size(); ++i)
    {
        SumOne(folder, walk.files[i], method, totals);
        const size_t percent = (i + 1) * 100 / walk.files.size();
        if (percent != lastPercent)
        {
            std::printf("PROGRESS %zu\n", percent);
            lastPercent = percent;
        }
    }
    for (const std::string& report : walk.reports)
    {
        ++totals.unreadable;
        std::printf("Cannot be read: %s\n", report.c_str());
    }
    return totals;
}

int Run(const String& folder, const String& method, const std::set<std::string>& skip)
{
    struct stat status = {};
    if (stat(folder.c_str(), &status) != 0 || !S_ISDIR(status.st_mode))
    {
        std::fprintf(stderr, "There is no folder %s\n", folder.c_str());
        return kNoFolder;
    }
    const Time     begin = Time::CurrentTime();
    const FileWalk walk = WalkFolder(folder, skip);
    std::printf("%zu files below %s\n", walk.files.size(), folder.c_str());
    const Totals totals = SumAll(folder, method, walk);
    std::printf("%" PRIu64 " files, %" PRIu64 " bytes in %s; %" PRIu64 " could not be read\n",
                totals.files, totals.bytes, (Time::CurrentTime() - begin).FormatDuration().c_str(),
                totals.unreadable);
    return totals.unreadable == 0 ? kAllWell : kSomeUnreadable;
}

} // namespace

int main(int argc, char** argv)
{
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
    const CommandLine commandLine(argc, argv, {"folder", "method", "skip"});
    if (commandLine.Has("help"))
    {
        std::fputs(kHelp, stdout);
        return kAllWell;
    }
    const String method = commandLine.Value("method", "sha1");
    if (!Checksum::Make(method))
    {
        std::fprintf(stderr, "There is no method '%s'\n", method.c_str());
        return kBadArgument;
    }
    std::set<std::string> skip;
    for (const String& name : StringTokenizer::Split(commandLine.Value("skip"), ";"))
    {
        skip.insert(name);
    }
    return Run(commandLine.Value("folder", "."), method, skip);
}
