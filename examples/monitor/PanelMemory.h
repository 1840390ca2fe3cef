#pragma once

#include "vesta/IniFile.h"
#include "vesta/String.h"

/// Where it is remembered which jobs' panels are open: by the job's name, as a job that is
/// submitted again is a new one to the farm but the same to its user. Without a window.

/// Section of the options file.
extern const char* const k_PanelSection;

/// The settings key of a job of that name; short and plain whatever the name is.
String PanelKey(const String& jobName);

/// Forgets closed panels, which are closed without being remembered too, and the oldest open ones
/// beyond some two hundred, so that years of jobs leave no trace.
void PrunePanelMemory(IniFile& options);
