#pragma once

#include <set>
#include <string>
#include <vector>

/// What a walk through a folder found.
struct FileWalk
{
    std::vector<std::string> files;   ///< Ordinary files, relative to the folder, sorted.
    std::vector<std::string> reports; ///< Folders that could not be read, and why.
};

/// Finds all files below the folder. Links are not followed, so that no loop is possible; folders
/// whose name stands in `skip` are left out.
FileWalk WalkFolder(const std::string& folder, const std::set<std::string>& skip);
