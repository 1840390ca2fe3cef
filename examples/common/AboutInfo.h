#pragma once

#include <wx/aboutdlg.h>

/// What a program of the project says of itself. `purpose`: one sentence.
wxAboutDialogInfo AboutInfo(const wxString& program, const wxString& purpose);
