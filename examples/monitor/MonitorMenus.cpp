#include "monitor/MonitorMenus.h"

#include "monitor/JobMenu.h"

#include "common/EscapesMenu.h"
#include "common/FollowingText.h"
#include "common/ReadingAids.h"
#include "shell/OpenWindows.h"
#include "shell/wxColorMenu.h"

#include <wx/frame.h>
#include <wx/menu.h>

namespace
{
wxMenu* FileMenu()
{
    auto* const menu = new wxMenu;
    menu->Append(id_Submit, wxGetTranslation("Submit &Job...\tCtrl+N"));
    menu->AppendSeparator();
    menu->Append(wxTextLineCtrl::id_SaveAs, wxGetTranslation("Save Log &As..."));
    menu->AppendSeparator();
    menu->Append(wxID_EXIT, wxGetTranslation("&Quit\tCtrl+Q"));
    return menu;
}

wxMenu* EditMenu()
{
    auto* const menu = new wxMenu;
    AppendTextCommands(*menu);
    AppendReadingCommands(*menu);
    AppendErrorCommands(*menu);
    menu->Append(id_FilterJobs, wxGetTranslation("&Filter the List..."));
    menu->AppendSeparator();
    menu->Append(wxID_PREFERENCES, wxGetTranslation("&Preferences...\tCtrl+,"));
    return menu;
}

wxMenu* GroupMenu()
{
    auto* const menu = new wxMenu;
    int         id = id_GroupFirst;
    for (const wxString& label : {wxGetTranslation("&Nothing"), wxGetTranslation("&User"),
                                  wxGetTranslation("&Product"), wxGetTranslation("&State")})
    {
        menu->AppendRadioItem(id++, label);
    }
    return menu;
}

wxMenu* ViewMenu(wxFrame& frame)
{
    auto* const menu = new wxMenu;
    menu->Append(id_Refresh, wxGetTranslation("&Refresh\tF5"));
    menu->AppendCheckItem(id_Follow, wxGetTranslation("&Follow the Log\tCtrl+L"))->Check();
    AppendGutterChoices(*menu, frame);
    AppendRuleChoices(*menu, frame);
    menu->AppendSeparator();
    menu->AppendSubMenu(GroupMenu(), wxGetTranslation("&Group Jobs by"));
    menu->AppendCheckItem(id_FramesInTree, wxGetTranslation("Show Frames in the &Tree"));
    menu->AppendSeparator();
    menu->Append(id_SwitchPane, wxGetTranslation("Switch &Pane\tF6"));
    menu->Append(id_MoreJobs, wxGetTranslation("More Room for the &Jobs\tAlt+Down"));
    menu->Append(id_MoreLog, wxGetTranslation("More Room for the &Log\tAlt+Up"));
    menu->AppendSeparator();
    AppendEscapes(*menu);
    menu->AppendSubMenu(new wxColorMenu, wxGetTranslation("&Colours"));
    menu->AppendCheckItem(id_FullScreen, wxGetTranslation("F&ull Screen\tF11"));
    return menu;
}

wxMenu* HelpMenu()
{
    auto* const menu = new wxMenu;
    menu->Append(wxID_ABOUT, wxGetTranslation("&About"));
    return menu;
}
} // namespace

void BuildMonitorMenus(wxFrame& frame, JobMenu* jobs)
{
    auto* const bar = new wxMenuBar;
    bar->Append(FileMenu(), wxGetTranslation("&File"));
    bar->Append(EditMenu(), wxGetTranslation("&Edit"));
    bar->Append(ViewMenu(frame), wxGetTranslation("&View"));
    bar->Append(jobs, wxGetTranslation("&Job"));
    bar->Append(wxGetOpenWindowMenu(), wxGetTranslation("&Window"));
    bar->Append(HelpMenu(), wxGetTranslation("&Help"));
    frame.SetMenuBar(bar);
}
