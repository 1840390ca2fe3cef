#pragma once

#include "vesta/Log.h"

#include <wx/log.h>

namespace shell
{
/// Leads what the toolkit logs into the platform's log.
class wxTolvanLog : public wxLog
{
protected:
    void DoLogRecord(wxLogLevel level, const wxString& message,
                     const wxLogRecordInfo& info) override;
};

/// The platform's level for one of the toolkit's.
LogLevel PlatformLogLevel(wxLogLevel level);
} // namespace shell
