#include "logview/LogFiles.h"

#include "logview/FileFollower.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <map>
#include <string_view>

namespace
{
constexpr std::array<std::string_view, 4> kEndings = {".log", ".txt", ".out", ".err"};

bool EndsWith(std::string_view text, std::string_view end)
{
    return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

// What the ending says of an archive. The viewer itself looks at the content.
std::string_view WithoutArchive(std::string_view name)
{
    for (const std::string_view ending : {".gz", ".zst"})
    {
        if (name != ending && EndsWith(name, ending))
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
                       [name](std::string_view ending)
                       { return name != ending && EndsWith(name, ending); });
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

String AbsoluteName(const Path& file)
{
    std::error_code failed;
    const auto      name = std::filesystem::absolute(file.Text().c_str(), failed);
    return failed || FileFollower::IsInput(file) ? file.Text() : String(name.string());
}

std::vector<String> NamesApart(const std::vector<Path>& files)
{
    std::map<String, std::vector<size_t>> sameName;
    for (size_t i = 0; i < files.size(); ++i)
    {
        sameName[files[i].Leaf()].push_back(i);
    }
    std::vector<String> names(files.size());
    for (const auto& [leaf, group] : sameName)
    {
        for (const size_t file : group)
        {
            const String& whole = files[file].Text();
            names[file] = leaf;
            const auto isTaken = [&](size_t other)
            {
                const String& text = files[other].Text();
                return text != whole && EndsWith("/" + text, "/" + names[file]);
            };
            while (names[file].size() < whole.size() &&
                   std::any_of(group.begin(), group.end(), isTaken))
            {
                const Path folder = String(whole.substr(0, whole.size() - names[file].size() - 1));
                names[file] = folder.Leaf() + "/" + names[file];
            }
        }
    }
    return names;
}
