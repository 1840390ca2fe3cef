#include "shell/app/wxTolvanLog.h"

#include "appearance/wxTolvanString.h"
#include "vesta/CallEntry.h"

#include <iterator>

namespace shell
{
namespace
{
// Part of the log's format, which tools read; it does not follow the toolkit's own version.
const char* const kOrigin = "wxWidgets 3.1.2: ";

constexpr LogLevel kLevels[] = {
    log_Fatal,   // wxLOG_FatalError
    log_Error,   // wxLOG_Error
    log_Warning, // wxLOG_Warning
    log_Notice,  // wxLOG_Message
    log_Notice,  // wxLOG_Status
    log_Info,    // wxLOG_Info
    log_Debug,   // wxLOG_Debug
    log_Debug,   // wxLOG_Trace
};
static_assert(std::size(kLevels) == wxLOG_Trace + 1, "one row a level of the toolkit");
} // namespace

LogLevel PlatformLogLevel(wxLogLevel level)
{
    return level < std::size(kLevels) ? kLevels[level] : log_Info;
}

void wxTolvanLog::DoLogRecord(wxLogLevel level, const wxString& message, const wxLogRecordInfo&)
{
    CALL_ENTRY("wxTolvanLog::DoLogRecord");
    GlobalLog(PlatformLogLevel(level), kOrigin + wxtFromWx(message));
}
} // namespace shell
