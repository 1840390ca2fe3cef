#include "appearance/SchemeNames.h"
#include "appearance/wxTolvanString.h"
#include "appearance/wxtTextCtrl.h"
#include "dialogs/colours/ColourLists.h"
#include "dialogs/colours/ColourText.h"
#include "dialogs/colours/Failure.h"
#include "dialogs/colours/SchemeEdit.h"
#include "dialogs/wxColorSchemeDlg.h"
#include "dialogs/wxQuestion.h"
#include "internal/port/ColourPicking.h"
#include "vesta/CallEntry.h"
#include "vesta/File.h"
#include "vesta/OutputFile.h"

#include <wx/colordlg.h>
#include <wx/filedlg.h>
#include <wx/intl.h>
#include <wx/menu.h>
#include <wx/stdpaths.h>

#include <algorithm>

using dialogs::k_ColourNames;
using dialogs::SchemeColours;

namespace
{
constexpr size_t  kLargestFile = 1 << 20; // bytes of a scheme
const char* const kExportName = "Colours.ini";

wxString FilePatterns()
{
    return wxGetTranslation("Colour schemes") + " (*.ini)|*.ini|" + wxGetTranslation("All files") +
           "|*";
}

// Where the user keeps schemes: where one was read or written last.
wxString& Folder()
{
    static wxString s_Folder = wxStandardPaths::Get().GetDocumentsDir();
    return s_Folder;
}

String PathOf(const wxFileDialog& dialog)
{
    Folder() = dialog.GetDirectory();
    return String(static_cast<const char*>(dialog.GetPath().fn_str()));
}

// What has to be told of a file that was read; empty: nothing.
wxString Complaint(const dialogs::ReadScheme& read)
{
    if (!read.isScheme)
    {
        return wxGetTranslation("The file names no colour of a scheme.");
    }
    wxString keys;
    for (const String& key : read.wrong)
    {
        keys += "\n" + wxtToWx(key);
    }
    return keys.empty()
               ? keys
               : wxGetTranslation("What the file has for these is no colour; they stay:") + keys;
}
} // namespace

void wxColorSchemeDlg::Change(const wxColour& colour, int deed)
{
    m_Edit->shown[Row()] = colour;
    m_Edit->history.Add(m_Edit->shown, deed);
    m_Sample->SetColour(colour);
    ShowColours();
    ApplySoon();
}

// The colour that is edited becomes one of those that have changed.
void wxColorSchemeDlg::ShowPresent()
{
    const SchemeColours& present = m_Edit->history.Now();
    const auto [was, is] =
        std::mismatch(m_Edit->shown.begin(), m_Edit->shown.end(), present.begin());
    const bool isRowSame = m_Edit->shown[Row()] == present[Row()];
    const auto changed = is - present.begin();
    m_Edit->shown = present;
    if (isRowSame && is != present.end())
    {
        m_Colours->Select(static_cast<int>(changed));
    }
    ShowColours();
    ShowValue();
    ApplySoon();
}

void wxColorSchemeDlg::StartFromMenu()
{
    wxMenu menu;
    for (const SchemeName& name : k_SchemeNames)
    {
        // The default is one of the others, and so is the desktop's; the custom one is as it was.
        if (name.scheme == scheme_Default || name.scheme == scheme_Desktop)
        {
            continue;
        }
        const bool isCustom = name.scheme == scheme_Custom;
        menu.Bind(
            wxEVT_MENU,
            [this, scheme = name.scheme, isCustom](wxCommandEvent&)
            {
                m_Edit->history.Add(isCustom ? m_Edit->file->Colours()
                                             : dialogs::ColoursOf(scheme));
                ShowPresent();
            },
            menu.Append(wxID_ANY,
                        isCustom ? wxGetTranslation("As They &Were") : wxGetTranslation(name.label))
                ->GetId());
    }
    PopupMenu(&menu, m_Start->GetPosition() + wxSize(0, m_Start->GetSize().y));
}

void wxColorSchemeDlg::Import()
{
    wxFileDialog dialog(this, wxGetTranslation("Import Colours"), Folder(), wxString(),
                        FilePatterns(), wxFD_OPEN | wxFD_FILE_MUST_EXIST);
    if (dialog.ShowModal() != wxID_OK)
    {
        return;
    }
    dialogs::ReadScheme read;
    wxString            complaint = wxtToWx(dialogs::FailureOf(
        [&]
        { read = dialogs::ReadColours(File::Read(PathOf(dialog), kLargestFile), m_Edit->dark); }));
    if (complaint.empty())
    {
        complaint = Complaint(read);
    }
    if (read.isScheme)
    {
        for (size_t i = 0; i < dialogs::k_ColourCount; ++i)
        {
            read.colours[i] = read.colours[i].IsOk() ? read.colours[i] : m_Edit->shown[i];
        }
        m_Edit->history.Add(read.colours);
        ShowPresent();
    }
    if (!complaint.empty())
    {
        wxTellProblem(complaint, this);
    }
}

void wxColorSchemeDlg::Export()
{
    wxFileDialog dialog(this, wxGetTranslation("Export Colours"), Folder(), kExportName,
                        FilePatterns(), wxFD_SAVE | wxFD_OVERWRITE_PROMPT);
    if (dialog.ShowModal() != wxID_OK)
    {
        return;
    }
    const String failure = dialogs::FailureOf(
        [&]
        {
            OutputFile file(PathOf(dialog));
            file.Write(dialogs::WithColours(String(), String(), m_Edit->shown, m_Edit->dark));
            file.Close();
        });
    if (!failure.empty())
    {
        wxTellProblem(wxtToWx(failure), this);
    }
}

// A button that cannot be used once more gives the keys to the one that takes its deed back.
void wxColorSchemeDlg::Undo()
{
    const String typed = wxtFromWx(m_Value->GetValue());
    const bool   isTaken = dialogs::TypedColour(typed).IsOk();
    if (!isTaken && typed != dialogs::ColourText(m_Edit->shown[Row()]))
    {
        ShowValue(); // what was typed last, and is no colour yet, is the first to go
        return;
    }
    m_Edit->history.Undo();
    ShowPresent();
    if (!FindFocus() && !m_Edit->history.CanUndo())
    {
        m_Redo->SetFocus();
    }
}

void wxColorSchemeDlg::Redo()
{
    m_Edit->history.Redo();
    ShowPresent();
    if (!FindFocus() && !m_Edit->history.CanRedo())
    {
        m_Undo->SetFocus();
    }
}

void wxColorSchemeDlg::Pick()
{
    const wxColour before = m_Edit->shown[Row()];
    wxColourData   data;
    data.SetChooseFull(true);
    data.SetColour(before.IsOk() ? before : *wxBLACK);
    wxColourDialog dialog(this, &data);
    dialog.SetTitle(wxGetTranslation(k_ColourNames[Row()].label));
    const auto attempt = [this](const wxColour& colour)
    {
        m_Edit->shown[Row()] = colour;
        m_Sample->SetColour(colour);
        ShowColours();
        ApplySoon();
    };
    internal::OnColourPicked(dialog, attempt);
    m_Edit->history.EndDeed();
    if (dialog.ShowModal() == wxID_OK)
    {
        Change(dialog.GetColourData().GetColour(), dialogs::ColourHistory::k_OwnStep);
    }
    else
    {
        attempt(before);
    }
    ShowValue();
}

void wxColorSchemeDlg::OnValue(wxCommandEvent&)
{
    const wxColour colour = dialogs::TypedColour(wxtFromWx(m_Value->GetValue()));
    m_Note->SetLabel(colour.IsOk()
                         ? wxString()
                         : wxGetTranslation("This is no colour: #rrggbb, rgb(...) or a name."));
    m_Sample->SetColour(colour);
    if (colour.IsOk())
    {
        Change(colour, static_cast<int>(Row()));
    }
}

void wxColorSchemeDlg::OnShortcut(wxKeyEvent& event)
{
    const int  key = event.GetKeyCode();
    const int  modifiers = event.GetModifiers();
    const bool isRedo = (key == 'Z' && modifiers == (wxMOD_CONTROL | wxMOD_SHIFT)) ||
                        (key == 'Y' && modifiers == wxMOD_CONTROL);
    if (isRedo)
    {
        Redo();
    }
    else if (key == 'Z' && modifiers == wxMOD_CONTROL)
    {
        Undo();
    }
    else
    {
        event.Skip();
    }
}
