#pragma once

#include "vesta/IniDocument.h"
#include "vesta/Path.h"
#include "vesta/String.h"

#include <map>
#include <vector>

namespace tolvan
{
/// The text of a module file, read value by value; every complaint names the file and the line.
class ModuleFile
{
public:
    /// Throws an `Exception*` for a file that cannot be read, is larger than `limit` bytes or has a
    /// line that is no part of an ini file.
    ModuleFile(const Path& path, size_t limit);

    /// "FILE:LINE: why" as an `Exception*` (ec_BadData); a line of 0 is left out.
    [[noreturn]] void Complain(int line, const String& why) const;
    [[noreturn]] void Complain(const String& section, const String& key, const String& why) const;

    /// Log keys of the section that are not among those known, and a section that is not. Of many
    /// only the first are named; `ReportTheRest` tells how many more there are.
    /// @{
    void ReportUnknownKeys(const String& section, const std::vector<String>& known);
    void ReportUnknownSection(const String& section);
    void ReportTheRest() const;
    /// @}

    std::vector<String> Sections() const { return m_Document.Sections(); }
    bool                HasSection(const String& section) const;

    String Get(const String& section, const String& key) const;     ///< Empty when there is none.
    String Require(const String& section, const String& key) const; ///< Complains when empty.
    bool   GetBool(const String& section, const String& key) const; ///< Complains of other words.
    /// The pieces between ";", trimmed, without empty ones.
    std::vector<String>      GetList(const String& section, const String& key) const;
    std::map<String, String> GetMap(const String& section) const; ///< All keys and values.

private:
    int FirstLineOf(const String& section) const;

    Path        m_Path;
    IniDocument m_Document;
    int         m_UnknownCount = 0; ///< Keys and sections that mean nothing.
};
} // namespace tolvan
