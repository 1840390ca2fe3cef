#include "common/PreferencesDlg.h"

#include "appearance/SchemeNames.h"
#include "appearance/wxtButton.h"
#include "appearance/wxtCheckBox.h"
#include "appearance/wxtStockControls.h"
#include "dialogs/wxColorSchemeDlg.h"
#include "dialogs/wxConfirmDlg.h"
#include "shell/wxTolvanFrame.h"

#include <wx/sizer.h>

#include <algorithm>
#include <functional>
#include <iterator>

namespace
{
constexpr int     kBorder = 12; // pixels around the dialog's content
constexpr int     kGap = 6;     // pixels between its parts
const char* const kPositionName = "Preferences";
} // namespace

PreferencesDlg::PreferencesDlg(wxWindow* parent, const std::vector<Section>& sections)
    : wxTolvanDlg(parent, wxGetTranslation("Preferences"), kPositionName, true), m_Former(g_Scheme)
{
    auto* const content = new wxBoxSizer(wxVERTICAL);
    AddSchemes(*content);
    content->AddSpacer(kBorder);
    AddQuestions(*content);
    content->AddSpacer(kBorder);
    for (const Section& section : sections)
    {
        AddSection(*content, section);
    }
    if (std::none_of(sections.begin(), sections.end(), std::mem_fn(&Section::isGrowing)))
    {
        content->AddStretchSpacer();
    }
    wxBoxSizer* const whole = StartControls();
    whole->Add(content, 1, wxEXPAND | wxLEFT | wxRIGHT | wxTOP, kBorder);
    AddButtonRow(whole, kBorder);
    // Another program may change the scheme as well.
    Bind(wxEVT_SYS_COLOUR_CHANGED,
         [this](wxSysColourChangedEvent& event)
         {
             event.Skip();
             OnSchemeChanged();
         });
}

void PreferencesDlg::AddSchemes(wxBoxSizer& sizer)
{
    sizer.Add(NewStaticLine(wxGetTranslation("Colour scheme of all programs ")), 0, wxEXPAND);
    for (const SchemeName& name : k_SchemeNames)
    {
        const long  style = m_Schemes.empty() ? wxRB_GROUP : 0;
        auto* const button = new wxtRadioButton(this, wxID_ANY, wxGetTranslation(name.label),
                                                wxDefaultPosition, wxDefaultSize, style);
        button->Bind(wxEVT_RADIOBUTTON, [this, &name](wxCommandEvent&) { Choose(name.scheme); });
        if (name.scheme == scheme_Custom)
        {
            // Picked again it has the colours read anew, which the button does not tell of.
            button->Bind(wxEVT_LEFT_UP,
                         [](wxMouseEvent& event)
                         {
                             event.Skip();
                             if (g_Scheme == scheme_Custom)
                             {
                                 wxTolvanFrame::SetColorScheme(scheme_Custom);
                             }
                         });
        }
        sizer.Add(button, 0, wxEXPAND | wxTOP, kGap);
        m_Schemes.push_back(button);
    }
    auto* const edit = new wxtButton(this, wxID_ANY, wxGetTranslation("&Edit Colours..."));
    edit->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { EditColours(); });
    sizer.Add(edit, 0, wxTOP, kGap);
    ShowScheme();
}

void PreferencesDlg::AddQuestions(wxBoxSizer& sizer)
{
    auto* const again = new wxtButton(this, wxID_ANY, wxGetTranslation("Ask every question again"));
    m_Asked = NewStatic(wxGetTranslation("Also those that you no longer wanted to be asked."),
                        nullptr, color_TextGrey);
    m_Asked->KeepReadable();
    again->Bind(wxEVT_BUTTON,
                [this](wxCommandEvent&)
                {
                    wxConfirmDlg::ResetAll();
                    m_Asked->SetLabel(wxGetTranslation("Every question will be asked again."));
                });
    sizer.Add(NewStaticLine(wxGetTranslation("Questions ")), 0, wxEXPAND);
    sizer.Add(again, 0, wxTOP, kGap);
    sizer.Add(m_Asked, 0, wxEXPAND | wxTOP, kGap);
}

void PreferencesDlg::AddSection(wxBoxSizer& sizer, const Section& section)
{
    sizer.Add(NewStaticLine(section.title + " "), 0, wxEXPAND);
    sizer.Add(section.make(this), section.isGrowing ? 1 : 0, wxEXPAND | wxTOP, kGap);
    sizer.AddSpacer(kBorder);
}

void PreferencesDlg::Choose(int scheme)
{
    m_Chosen = scheme;
    wxTolvanFrame::SetColorScheme(scheme);
}

void PreferencesDlg::EditColours()
{
    m_IsEditing = true;
    const bool isConfirmed = wxColorSchemeDlg(this).ShowModal() == wxID_OK;
    m_IsEditing = false;
    if (isConfirmed)
    {
        m_Chosen = scheme_Custom;
    }
    OnSchemeChanged();
}

// What another program has picked meanwhile is what Cancel leaves.
void PreferencesDlg::OnSchemeChanged()
{
    const bool isEdited = m_IsEditing && g_Scheme == scheme_Custom;
    if (!isEdited && g_Scheme != m_Chosen)
    {
        m_Former = g_Scheme;
        m_Chosen.reset();
    }
    ShowScheme();
}

void PreferencesDlg::ShowScheme()
{
    for (size_t i = 0; i < m_Schemes.size(); ++i)
    {
        if (k_SchemeNames[i].scheme == g_Scheme)
        {
            m_Schemes[i]->SetValue(true);
        }
    }
}

int PreferencesDlg::ShowModal()
{
    const int result = wxTolvanDlg::ShowModal();
    if (result != wxID_OK && m_Chosen)
    {
        wxTolvanFrame::SetColorScheme(m_Former);
    }
    return result;
}
