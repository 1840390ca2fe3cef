#include "logview/LogFiles.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>

namespace
{
constexpr std::array<std::string_view, 4> kEndings = {".log", ".txt", ".out", ".err"};

// What the ending says of an archive. The viewer itself looks at the content.
std::string_view WithoutArchive(std::string_view name)
{
    for (const std::string_view ending : {".gz", ".zst"})
    {
        if (name.size() > ending.size() && name.substr(name.size() - ending.size()) == ending)
        {
            return name.substr(0, name.size() - ending.size());
        }
    }
    return name;
}

// Without ".1" and the like.
std::string_view WithoutNumber(std::string_view name)
{
    const size_t dot = name.rfind('.');
    const bool   isNumber =
        dot != std::string_view::npos && dot + 1 < name.size() &&
        std::all_of(name.begin() + static_cast<std::ptrdiff_t>(dot) + 1, name.end(),
                    [](unsigned char c) { return std::isdigit(c) != 0; });
    return isNumber ? name.substr(0, dot) : name;
}
} // namespace

bool IsLogName(const String& leaf)
{
    const std::string_view name = WithoutNumber(WithoutArchive(leaf));
    return std::any_of(kEndings.begin(), kEndings.end(),
                       [name](std::string_view ending) {
                           return name.size() > ending.size() &&
                                  name.substr(name.size() - ending.size()) == ending;
                       });
}

std::vector<Path> LogFilesOf(const Path& name)
{
    std::error_code failed; // what cannot be looked into is told of when it is opened
    if (!std::filesystem::is_directory(name.Text().c_str(), failed))
    {
        return {name};
    }
    std::vector<Path> files;
    for (const auto& entry : std::filesystem::directory_iterator(name.Text().c_str(), failed))
    {
        std::error_code gone;
        if (entry.is_regular_file(gone) && IsLogName(entry.path().filename().string()))
        {
            files.emplace_back(String(entry.path().string()));
        }
    }
    std::sort(files.begin(), files.end(),
              [](const Path& a, const Path& b) { return a.Text() < b.Text(); });
    files.resize(std::min(files.size(), k_MostFiles));
    return files;
}
