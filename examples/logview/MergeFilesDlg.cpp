#include "logview/MergeFilesDlg.h"

#include "appearance/wxTolvanString.h"
#include "appearance/wxtButton.h"
#include "appearance/wxtCheckListBox.h"
#include "logview/ChosenFiles.h"

#include <wx/filedlg.h>
#include <wx/sizer.h>

#include <algorithm>

namespace
{
constexpr int     kBorder = 12;    // pixels around the dialog's content
constexpr int     kGap = 6;        // pixels between its parts
constexpr int     kListWidth = 64; // characters
constexpr int     kListRows = 10;  // shown at once
const char* const kPositionName = "MergeFiles";
} // namespace

MergeFilesDlg::MergeFilesDlg(wxWindow* parent, const std::vector<Path>& chosen,
                             const std::vector<Path>& offered)
    : wxTolvanDlg(parent, wxGetTranslation("Merge Files by Time"), kPositionName, true)
{
    wxBoxSizer* const whole = StartControls();
    whole->Add(NewStatic(wxGetTranslation(
                   "The lines of these files, in the order of their time stamps, in one page:")),
               0, wxLEFT | wxRIGHT | wxTOP, kBorder);
    m_List = new wxtCheckListBox(this);
    m_List->SetMinSize(wxSize(kListWidth * GetCharWidth(), GetCharHeight() * 3 / 2 * kListRows));
    m_List->Bind(wxEVT_CHECKLISTBOX, [this](wxCommandEvent&) { ShowWhatIsPossible(); });
    whole->Add(m_List, 1, wxEXPAND | wxLEFT | wxRIGHT | wxTOP, kBorder);
    auto* const add = new wxtButton(this, wxID_ANY, wxGetTranslation("&Add Files..."));
    add->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { OnAdd(); });
    whole->AddSpacer(kGap);
    whole->Add(add, 0, wxLEFT | wxRIGHT, kBorder);
    AddButtonRow(whole, kBorder);
    for (const Path& file : chosen)
    {
        AddFile(file, true);
    }
    for (const Path& file : offered)
    {
        AddFile(file, false);
    }
    ShowWhatIsPossible();
}

// One that is there already is only chosen.
void MergeFilesDlg::AddFile(const Path& file, bool choose)
{
    const auto known = std::find_if(m_Files.begin(), m_Files.end(),
                                    [&](const Path& other) { return other.Text() == file.Text(); });
    if (known != m_Files.end())
    {
        const auto item = static_cast<unsigned>(known - m_Files.begin());
        m_List->Check(item, choose || m_List->IsChecked(item));
        return;
    }
    m_Files.push_back(file);
    wxString shown = wxtToWx(file.Text());
    std::replace_if(
        shown.begin(), shown.end(), [](const wxUniChar& c) { return c < 0x20; }, L' ');
    m_List->Check(static_cast<unsigned>(m_List->Append(shown)), choose);
}

void MergeFilesDlg::OnAdd()
{
    const Path   folder = m_Files.empty() ? Path() : m_Files.back().Branch();
    wxFileDialog dialog(this, wxGetTranslation("Add Files"), wxtToWx(folder.Text()), wxString(),
                        wxFileSelectorDefaultWildcardStr,
                        wxFD_OPEN | wxFD_MULTIPLE | wxFD_FILE_MUST_EXIST);
    if (dialog.ShowModal() == wxID_OK)
    {
        wxArrayString names;
        dialog.GetPaths(names);
        for (const Path& file : PathsOf(names))
        {
            AddFile(file, true);
        }
        ShowWhatIsPossible();
    }
}

std::vector<Path> MergeFilesDlg::Chosen() const
{
    std::vector<Path> files;
    for (size_t i = 0; i < m_Files.size(); ++i)
    {
        if (m_List->IsChecked(static_cast<unsigned>(i)))
        {
            files.push_back(m_Files[i]);
        }
    }
    return files;
}

void MergeFilesDlg::ShowWhatIsPossible()
{
    if (wxWindow* const ok = FindWindow(wxID_OK))
    {
        ok->Enable(Chosen().size() >= 2);
    }
}
