#include "common/AboutInfo.h"

wxAboutDialogInfo AboutInfo(const wxString& program, const wxString& purpose)
{
    wxAboutDialogInfo info;
    info.SetName(program);
    info.SetVersion(TOLVAN_VERSION);
    info.SetDescription(purpose);
    return info;
}
