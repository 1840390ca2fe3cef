#include "common/ReadingAids.h"

#include "appearance/wxtMenuKey.h"
#include "common/FollowingText.h"
#include "common/LogRules.h"
#include "common/LogRulesDlg.h"

#include <wx/frame.h>
#include <wx/menu.h>

namespace
{
enum
{
    id_LineNumbers = 22400,
    id_ArrivalTimes,
    id_ColourErrors,
    id_Overview,
    id_EditRules,
    id_WrapLines
};

void AppendWithKey(wxMenu& menu, int id, const wxString& label, const wxString& key)
{
    wxtShowMenuKey(*menu.Append(id, label), key);
}

void AppendChoice(wxMenu& menu, wxFrame& frame, int id, const wxString& label, bool (*isWanted)(),
                  void (*want)(bool))
{
    menu.AppendCheckItem(id, label);
    frame.Bind(
        wxEVT_MENU, [isWanted, want](wxCommandEvent&) { want(!isWanted()); }, id);
    frame.Bind(
        wxEVT_UPDATE_UI, [isWanted](wxUpdateUIEvent& event) { event.Check(isWanted()); }, id);
}
} // namespace

void AppendReadingCommands(wxMenu& menu)
{
    AppendWithKey(menu, wxTextLineCtrl::id_GoToLine, wxGetTranslation("&Go to Line..."), "Ctrl+G");
    auto* const bookmarks = new wxMenu;
    AppendWithKey(*bookmarks, wxTextLineCtrl::id_ToggleBookmark, wxGetTranslation("&Set or Remove"),
                  "Ctrl+F2");
    AppendWithKey(*bookmarks, wxTextLineCtrl::id_NextBookmark, wxGetTranslation("&Next"), "F2");
    AppendWithKey(*bookmarks, wxTextLineCtrl::id_PreviousBookmark, wxGetTranslation("&Previous"),
                  "Shift+F2");
    bookmarks->Append(wxTextLineCtrl::id_RemoveBookmarks, wxGetTranslation("Remove &All"));
    menu.AppendSubMenu(bookmarks, wxGetTranslation("&Bookmarks"));
}

void AppendErrorCommands(wxMenu& menu)
{
    AppendWithKey(menu, wxTextLineCtrl::id_NextError, wxGetTranslation("Next &Error"), "F8");
    AppendWithKey(menu, wxTextLineCtrl::id_PreviousError, wxGetTranslation("Pre&vious Error"),
                  "Shift+F8");
    menu.Bind(wxEVT_MENU_OPEN,
              [&menu](wxMenuEvent& event)
              {
                  event.Skip();
                  menu.Enable(wxTextLineCtrl::id_NextError, AreLogRulesWanted());
                  menu.Enable(wxTextLineCtrl::id_PreviousError, AreLogRulesWanted());
              });
}

void AppendGutterChoices(wxMenu& menu, wxFrame& frame)
{
    AppendChoice(menu, frame, id_LineNumbers, wxGetTranslation("Line &Numbers"),
                 &FollowingText::AreNumbersWanted, &FollowingText::WantNumbers);
    AppendChoice(menu, frame, id_ArrivalTimes, wxGetTranslation("Arrival Ti&mes"),
                 &FollowingText::AreTimesWanted, &FollowingText::WantTimes);
    AppendChoice(menu, frame, id_WrapLines, wxGetTranslation("&Wrap Long Lines\tAlt+Z"),
                 &FollowingText::IsWrapWanted, &FollowingText::WantWrap);
}

void AppendRuleChoices(wxMenu& menu, wxFrame& frame)
{
    AppendChoice(menu, frame, id_ColourErrors, wxGetTranslation("Colour E&rrors and Warnings"),
                 &AreLogRulesWanted, &WantLogRules);
    menu.Append(id_EditRules, wxGetTranslation("Edit C&olour Rules..."));
    frame.Bind(
        wxEVT_MENU, [&frame](wxCommandEvent&) { LogRulesDlg(&frame).ShowModal(); }, id_EditRules);
    AppendChoice(menu, frame, id_Overview, wxGetTranslation("O&verview Strip"), &IsOverviewWanted,
                 &WantOverview);
}
