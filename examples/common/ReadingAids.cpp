#include "common/ReadingAids.h"

#include "appearance/wxtMenuKey.h"
#include "common/FollowingText.h"

#include <wx/frame.h>
#include <wx/menu.h>

namespace
{
enum
{
    id_LineNumbers = 22400,
    id_ArrivalTimes
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

void AppendGutterChoices(wxMenu& menu, wxFrame& frame)
{
    AppendChoice(menu, frame, id_LineNumbers, wxGetTranslation("Line &Numbers"),
                 &FollowingText::AreNumbersWanted, &FollowingText::WantNumbers);
    AppendChoice(menu, frame, id_ArrivalTimes, wxGetTranslation("Arrival Ti&mes"),
                 &FollowingText::AreTimesWanted, &FollowingText::WantTimes);
}
