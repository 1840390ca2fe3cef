#include "monitor/FilterBar.h"

#include "appearance/wxtSearchField.h"
#include "listviews/wxDBListBody.h"
#include "listviews/wxDBListCtrl.h"

#include <wx/sizer.h>
#include <wx/textctrl.h>

namespace
{
constexpr int kGap = 2; // pixels around the field

bool IsFind(const wxKeyEvent& event)
{
    return event.GetKeyCode() == 'F' && event.GetModifiers() == wxMOD_CONTROL;
}
} // namespace

FilterBar::FilterBar(wxWindow* parent, wxDBListCtrl& list, const wxString& hint)
    : wxtPanel(parent), m_List(list), m_Field(new wxtSearchField(this, wxID_ANY, hint))
{
    auto* const sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(m_Field, 0, wxEXPAND | wxALL, kGap);
    SetSizer(sizer);
    Hide();
    Bind(wxEVT_CHAR_HOOK, &FilterBar::OnKey, this);
    m_List.GetBody()->Bind(wxEVT_KEY_DOWN, &FilterBar::OnListKey, this);
}

void FilterBar::Open()
{
    ShowBar(true);
    m_Field->GetField()->SetFocus();
    m_Field->GetField()->SelectAll();
}

void FilterBar::Close()
{
    if (IsShown())
    {
        m_List.SetFocus();
        m_Field->SetValue(wxString());
        ShowBar(false);
    }
}

void FilterBar::ShowBar(bool show)
{
    if (IsShown() != show)
    {
        Show(show);
        GetParent()->Layout();
    }
}

// Esc comes here only from an empty field, which else takes it itself.
void FilterBar::OnKey(wxKeyEvent& event)
{
    if (IsFind(event))
    {
        Open();
    }
    else if (event.GetKeyCode() == WXK_ESCAPE && !event.HasAnyModifiers())
    {
        Close();
    }
    else
    {
        event.Skip();
    }
}

void FilterBar::OnListKey(wxKeyEvent& event)
{
    if (IsFind(event))
    {
        Open();
    }
    else if (event.GetKeyCode() == WXK_ESCAPE && !event.HasAnyModifiers() && IsShown())
    {
        StepBack();
    }
    else
    {
        event.Skip();
    }
}

void FilterBar::StepBack()
{
    if (m_Field->GetValue().empty())
    {
        Close();
    }
    else
    {
        m_Field->SetValue(wxString());
    }
}
