#pragma once

#include "vesta/IniFile.h"
#include "vesta/Path.h"

#include <vector>

/// The names that were opened last, the latest first, ten at most. Kept in the options.
class RecentFiles
{
public:
    static constexpr size_t k_Most = 10;

    explicit RecentFiles(IniFile& options);

    const std::vector<Path>& Names() const { return m_Names; }
    /// Puts the name, which is an absolute one, to the front.
    void Add(const Path& name);
    void Remove(const Path& name);
    void Clear();

private:
    void Save() const;

    IniFile&          m_Options;
    std::vector<Path> m_Names;
};

/// What the search bar of a page had.
struct OpenedSearch
{
    String text;
    bool   matchCase = false;
    bool   wholeWords = false;
    bool   expression = false;
    bool   isOpen = false;       ///< The bar was shown.
    bool   onlyMatching = false; ///< So were the matching lines.
};

/// A file that was open when the viewer was closed.
struct OpenedFile
{
    Path             name;
    int              firstLine = 0; ///< The topmost one that was seen.
    bool             follows = true;
    std::vector<int> bookmarks = {}; ///< Lines, from top to bottom.
    OpenedSearch     search = {};
    /// Files that are one text, in the order of time; `name` is the first one. Empty: it is one.
    std::vector<Path> merged = {};
};

void                    KeepOpenedFiles(IniFile& options, const std::vector<OpenedFile>& files);
std::vector<OpenedFile> KeptOpenedFiles(const IniFile& options);
