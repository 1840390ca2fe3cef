#pragma once

#include "vesta/Path.h"

#include <vector>

/// What a name stands for: a folder for the log files that lie in it, by name and at most
/// `k_MostFiles`; anything else for itself. A folder without any has no files.
std::vector<Path> LogFilesOf(const Path& name);
/// Whether a file of that name is taken for a log: by its ending, behind which there may be the
/// number of a rotation and the ending of an archive.
bool IsLogName(const String& leaf);
/// The same from whatever folder the viewer is started; the standard input's stays.
String AbsoluteName(const Path& file);
/// Short names for files that are open together: without the folder, or with as many of the folders
/// around it as tell it from another file of that name. In their order; a file twice has one name.
std::vector<String> NamesApart(const std::vector<Path>& files);

constexpr size_t k_MostFiles = 500;
