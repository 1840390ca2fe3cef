#pragma once

#include "vesta/Path.h"

#include <wx/arrstr.h>

#include <vector>

/// Names as the toolkit gives them: their bytes, which need not be a text.
inline std::vector<Path> PathsOf(const wxArrayString& names)
{
    std::vector<Path> paths;
    for (const wxString& name : names)
    {
        paths.emplace_back(String(name.fn_str()));
    }
    return paths;
}
