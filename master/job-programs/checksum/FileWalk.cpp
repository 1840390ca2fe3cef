#include "master/job-programs/checksum/FileWalk.h"

#include <algorithm>
#include <filesystem>

namespace
{

namespace fs = std::filesystem;

void WalkOne(const fs::path& root, const fs::path& folder, const std::set<std::string>& skip,
             FileWalk& walk)
{
    std::error_code        error;
    fs::directory_iterator entry(folder, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error))
    {
        std::error_code       ignored; // an entry that vanished meanwhile is none
        const fs::file_status status = entry->symlink_status(ignored);
        if (status.type() == fs::file_type::directory)
        {
            if (skip.count(entry->path().filename().string()) == 0)
            {
                WalkOne(root, entry->path(), skip, walk);
            }
        }
        else if (status.type() == fs::file_type::regular)
        {
            walk.files.push_back(entry->path().lexically_relative(root).string());
        }
    }
    if (error)
    {
        walk.reports.push_back(folder.string() + ": " + error.message());
    }
}

} // namespace

FileWalk WalkFolder(const std::string& folder, const std::set<std::string>& skip)
{
    FileWalk walk;
    WalkOne(folder, folder, skip, walk);
    std::sort(walk.files.begin(), walk.files.end());
    return walk;
}
