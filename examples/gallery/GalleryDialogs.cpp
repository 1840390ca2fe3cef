#include "gallery/GallerySections.h"

#include "appearance/wxtButton.h"
#include "dialogs/wxQuestion.h"
#include "dialogs/wxtProgressDlg.h"

#include <wx/colordlg.h>
#include <wx/filedlg.h>
#include <wx/fontdlg.h>
#include <wx/msgdlg.h>
#include <wx/sizer.h>
#include <wx/utils.h>

namespace
{
constexpr int kGap = 6; // pixels
constexpr int kSteps = 500;
constexpr int kStepMs = 20;

void ShowProgress(wxWindow* parent)
{
    wxtProgressDlg progress(parent, "Progress", "Counting", kSteps);
    for (int step = 0; step < kSteps && progress.Update(step); ++step)
    {
        wxMilliSleep(kStepMs);
    }
}

const struct
{
    const char* label;
    void (*open)(wxWindow* parent);
} kDialogs[] = {
    {"Progress...", ShowProgress},
    {"Problem...", [](wxWindow* parent) { wxTellProblem("The disk is full.", parent); }},
    // The toolkit's own, which follow the scheme, too.
    {"Message...", [](wxWindow* parent)
     { wxMessageBox("Save the changes?", "Message", wxYES_NO | wxCANCEL, parent); }},
    {"File...", [](wxWindow* parent) { wxFileDialog(parent).ShowModal(); }},
    {"Colour...", [](wxWindow* parent) { wxColourDialog(parent).ShowModal(); }},
    {"Font...", [](wxWindow* parent) { wxFontDialog(parent).ShowModal(); }},
};
} // namespace

void AddDialogs(wxWindow* parent, wxSizer* sizer)
{
    auto* const row = new wxBoxSizer(wxHORIZONTAL);
    for (const auto& dialog : kDialogs)
    {
        auto* const button = new wxtButton(parent, wxID_ANY, dialog.label);
        button->Bind(wxEVT_BUTTON, [parent, open = dialog.open](wxCommandEvent&)
                     { open(wxGetTopLevelParent(parent)); });
        row->Add(button, 0, wxRIGHT, kGap);
    }
    sizer->Add(row, 0, wxTOP, kGap);
}
