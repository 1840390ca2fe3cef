#pragma once

#include <wx/string.h>

namespace dialogs
{
/// How long something goes on, by how far it came in which time. Milliseconds; -1: too early to
/// tell, or nobody knows.
long TimeLeft(long elapsedMs, int done, int total);
/// For people, who want no more of it than is known: "About 2 minutes left"; empty for -1.
wxString TimeLeftText(long ms);
} // namespace dialogs
