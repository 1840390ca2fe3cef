#include "gallery/GalleryDialogs.h"

#include "dialogs/wxConfirmDlg.h"
#include "dialogs/wxQuestion.h"
#include "dialogs/wxTextFromUserDlg.h"
#include "dialogs/wxtAboutDlg.h"
#include "dialogs/wxtProgressDlg.h"

#include <wx/colordlg.h>
#include <wx/filedlg.h>
#include <wx/fontdlg.h>
#include <wx/menu.h>
#include <wx/msgdlg.h>
#include <wx/utils.h>

namespace
{
constexpr int     kSteps = 500;
constexpr int     kStepMs = 20;
const char* const kSection = "Gallery";

void Ask(wxWindow* parent)
{
    wxAsk(parent, {kSection, "Question", "Three jobs are running. Stop them?", "Stop", "Go On"});
}

void AskForText(wxWindow* parent)
{
    wxString text = "orbit_sh010";
    wxTolvanTextFromUser(parent, "The name of the job", "Text", text, kSection);
}

void ShowProgress(wxWindow* parent)
{
    wxtProgressDlg progress(parent, "Progress", "Counting", kSteps);
    for (int step = 0; step < kSteps && progress.Update(step); ++step)
    {
        wxMilliSleep(kStepMs);
    }
}

void ShowAbout(wxWindow* parent)
{
    wxAboutDialogInfo info;
    info.SetName("Tolvan Gallery");
    info.SetVersion("1.0");
    info.SetDescription("All controls in all schemes.");
    info.AddDeveloper("the Tolvan developers");
    info.SetCopyright("(C) 2026 the Tolvan developers");
    info.SetWebSite("http://localhost/");
    wxtAboutBox(info, parent);
}

const struct
{
    const char* label;
    void (*open)(wxWindow* parent);
} kDialogs[] = {
    {"&Question...", Ask},
    {"&Text...", AskForText},
    {"P&rogress...", ShowProgress},
    {"&Problem...", [](wxWindow* parent) { wxTellProblem("The disk is full.", parent); }},
    {"&About...", ShowAbout},
    // The toolkit's own, which follow the scheme, too.
    {"&Message...", [](wxWindow* parent)
     { wxMessageBox("Save the changes?", "Changes", wxYES_NO | wxCANCEL, parent); }},
    {"&File...", [](wxWindow* parent) { wxFileDialog(parent).ShowModal(); }},
    {"&Colour...", [](wxWindow* parent) { wxColourDialog(parent).ShowModal(); }},
    {"F&ont...", [](wxWindow* parent) { wxFontDialog(parent).ShowModal(); }},
};
} // namespace

wxMenu* NewDialogMenu(wxWindow& window)
{
    auto* const menu = new wxMenu;
    for (const auto& dialog : kDialogs)
    {
        const int id = menu->Append(wxID_ANY, dialog.label)->GetId();
        menu->Bind(
            wxEVT_MENU, [&window, open = dialog.open](wxCommandEvent&) { open(&window); }, id);
    }
    return menu;
}
