#include "dialogs/wxColorSchemeDlg.h"

#include "appearance/wxTolvanString.h"
#include "appearance/wxtTextCtrl.h"
#include "dialogs/colours/ColourLists.h"
#include "dialogs/colours/ColourPairs.h"
#include "dialogs/colours/ColourText.h"
#include "dialogs/colours/Failure.h"
#include "dialogs/colours/SchemeEdit.h"
#include "dialogs/wxQuestion.h"
#include "shell/wxTolvanFrame.h"
#include "vesta/CallEntry.h"

#include <wx/display.h>
#include <wx/intl.h>
#include <wx/listbase.h>
#include <wx/settings.h>
#include <wx/sizer.h>

#include <algorithm>

using dialogs::k_ColourNames;

namespace
{
// Pixels.
constexpr int kBorder = 12;
constexpr int kGap = 6;
constexpr int kListHeight = 320;
const wxSize  kSmallestList(180, 100);
constexpr int kSpare = 16;     // of a list's width: some themes' scrollbars are wider than they say
constexpr int kListShare = 45; // percent of the screen's width, of each list at first

// Characters.
constexpr int kValueWidth = 14;
constexpr int kSmallestName = 10;

constexpr int     kGatherMs = 120; // what changes meanwhile is written and shown at once
const char* const kPositionName = "Colour Scheme";

// All its columns, where the screen has room for them.
wxSize FirstSizeOf(const dialogs::OneOfList& list)
{
    const int screen = wxDisplay(&list).GetClientArea().width;
    const int bar = std::max(wxSystemSettings::GetMetric(wxSYS_VSCROLL_X), 0);
    return {std::min(list.WidthOfColumns() + bar + kSpare, screen * kListShare / 100), kListHeight};
}
} // namespace

wxColorSchemeDlg::wxColorSchemeDlg(wxWindow* parent)
    : wxTolvanDlg(parent, wxGetTranslation("Colours"), kPositionName, true),
      m_Edit(std::make_unique<dialogs::SchemeEdit>())
{
    CALL_ENTRY("wxColorSchemeDlg::wxColorSchemeDlg");
    wxBoxSizer* const whole = StartControls();
    auto* const       lists = new wxBoxSizer(wxHORIZONTAL);
    wxSizer* const    colours = NewColours();
    wxSizer* const    pairs = NewPairs();
    lists->Add(colours, FirstSizeOf(*m_Colours).x, wxEXPAND | wxRIGHT, kBorder);
    lists->Add(pairs, FirstSizeOf(*m_Pairs).x, wxEXPAND);
    whole->Add(lists, 1, wxEXPAND | wxLEFT | wxRIGHT | wxTOP, kBorder);
    whole->Add(NewActions(), 0, wxEXPAND | wxLEFT | wxRIGHT | wxTOP, kBorder);
    AddButtonRow(whole, kBorder);
    m_Timer.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { Apply(); });
    Bind(wxEVT_CHAR_HOOK, &wxColorSchemeDlg::OnShortcut, this);
    ShowColours();
    ShowValue();
    // The user may make it smaller than it is at first.
    SetMinSize(ClientToWindowSize(whole->GetMinSize()));
    m_Colours->SetMinSize(FirstSizeOf(*m_Colours));
    m_Pairs->SetMinSize(FirstSizeOf(*m_Pairs));
    Fit();
    CentreOnParent();
}

wxColorSchemeDlg::~wxColorSchemeDlg()
{
    DestroyChildren(); // which draw what is edited
}

// A text that is cut where there is no more room for it.
wxtStaticText* wxColorSchemeDlg::NewOneLine(const String& colourName)
{
    wxtStaticText* const text =
        NewStatic(wxString(), false, false, 0, wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_END);
    text->m_ForegroundName = colourName;
    text->RefreshColors();
    text->SetMinSize(wxSize(1, text->GetCharHeight()));
    return text;
}

wxtButton* wxColorSchemeDlg::NewButton(const wxString& label, void (wxColorSchemeDlg::*act)())
{
    auto* const button = new wxtButton(this, wxID_ANY, label);
    button->Bind(wxEVT_BUTTON, [this, act](wxCommandEvent&) { (this->*act)(); });
    return button;
}

wxSizer* wxColorSchemeDlg::NewColours()
{
    auto* const column = new wxBoxSizer(wxVERTICAL);
    column->Add(NewStaticLine(wxGetTranslation("Colours of the custom scheme ")), 0, wxEXPAND);
    m_Colours = new dialogs::ColourList(this, m_Edit->shown);
    m_Colours->SetMinSize(kSmallestList);
    m_Colours->m_OnSelected = [this] { ShowValue(); };
    m_Colours->Bind(wxEVT_LIST_ITEM_ACTIVATED, [this](wxListEvent&) { Pick(); });
    column->Add(m_Colours, 1, wxEXPAND | wxTOP, kGap);
    column->Add(NewValueRow(), 0, wxEXPAND | wxTOP, kGap);
    m_Note = NewOneLine(color_Text);
    column->Add(m_Note, 0, wxEXPAND | wxTOP, kGap);
    return column;
}

wxSizer* wxColorSchemeDlg::NewValueRow()
{
    auto* const row = new wxBoxSizer(wxHORIZONTAL);
    m_Name = NewOneLine(color_Text);
    const int character = GetCharWidth();
    m_Name->SetMinSize(wxSize(kSmallestName * character, m_Name->GetCharHeight()));
    m_Sample = new dialogs::ColourSample(this);
    m_Value = new wxtTextCtrl(this, wxID_ANY, wxString(), wxDefaultPosition,
                              wxSize(kValueWidth * character, -1));
    m_Value->AutoComplete(nullptr); // a colour is no word of the farm's
    m_Value->Bind(wxEVT_TEXT, &wxColorSchemeDlg::OnValue, this);
    m_Value->Bind(wxEVT_KILL_FOCUS,
                  [this](wxFocusEvent& event)
                  {
                      event.Skip();
                      m_Edit->history.EndDeed();
                  });
    row->Add(m_Name, 1, wxALIGN_CENTRE_VERTICAL);
    for (wxWindow* const part :
         {static_cast<wxWindow*>(m_Sample), static_cast<wxWindow*>(m_Value),
          static_cast<wxWindow*>(NewButton(wxGetTranslation("&Pick..."), &wxColorSchemeDlg::Pick))})
    {
        row->Add(part, 0, wxALIGN_CENTRE_VERTICAL | wxLEFT, kGap);
    }
    return row;
}

wxSizer* wxColorSchemeDlg::NewPairs()
{
    auto* const column = new wxBoxSizer(wxVERTICAL);
    column->Add(NewStaticLine(wxGetTranslation("How well text can be read ")), 0, wxEXPAND);
    m_Pairs = new dialogs::PairList(this, m_Edit->shown);
    m_Pairs->SetMinSize(kSmallestList);
    m_Pairs->m_OnSelected = [this]
    {
        const auto& pair = dialogs::ColourPairs()[static_cast<size_t>(m_Pairs->Selected())];
        m_Colours->Select(static_cast<int>(dialogs::IndexOf(*pair.ink)));
        ShowValue();
    };
    column->Add(m_Pairs, 1, wxEXPAND | wxTOP, kGap);
    m_Summary = NewOneLine(color_Text);
    column->Add(m_Summary, 0, wxEXPAND | wxTOP, kGap);
    return column;
}

wxSizer* wxColorSchemeDlg::NewActions()
{
    auto* const row = new wxBoxSizer(wxHORIZONTAL);
    m_Start = NewButton(wxGetTranslation("&Start From..."), &wxColorSchemeDlg::StartFromMenu);
    m_Undo = NewButton(wxGetTranslation("&Undo"), &wxColorSchemeDlg::Undo);
    m_Redo = NewButton(wxGetTranslation("&Redo"), &wxColorSchemeDlg::Redo);
    for (wxtButton* const button :
         {m_Start, NewButton(wxGetTranslation("&Import..."), &wxColorSchemeDlg::Import),
          NewButton(wxGetTranslation("&Export..."), &wxColorSchemeDlg::Export)})
    {
        row->Add(button, 0, wxRIGHT, kGap);
    }
    row->AddStretchSpacer();
    row->Add(m_Undo, 0, wxRIGHT, kGap);
    row->Add(m_Redo);
    return row;
}

size_t wxColorSchemeDlg::Row() const
{
    return static_cast<size_t>(m_Colours->Selected());
}

int wxColorSchemeDlg::ShowModal()
{
    CALL_ENTRY("wxColorSchemeDlg::ShowModal");
    const int former = std::max<int>(g_Scheme, scheme_Default);
    if (!Begin())
    {
        return 0;
    }
    const int result = wxTolvanDlg::ShowModal();
    m_Timer.Stop();
    if (result != wxID_OK)
    {
        TakeBack(former);
    }
    return result;
}

bool wxColorSchemeDlg::Show(bool show)
{
    CALL_ENTRY("wxColorSchemeDlg::Show");
    const bool isChanged = wxTolvanDlg::Show(show);
    // It has its first size by now. The lists share what the user leaves them.
    m_Colours->SetMinSize(kSmallestList);
    m_Pairs->SetMinSize(kSmallestList);
    Layout();
    return isChanged;
}

bool wxColorSchemeDlg::Begin()
{
    const String failure = dialogs::FailureOf(
        [this]
        {
            m_Edit->file.emplace(dialogs::ColourFile::UserFile(), m_Edit->dark);
            m_Edit->shown = m_Edit->file->Colours();
            m_Edit->history = dialogs::ColourHistory(m_Edit->shown);
            if (m_Edit->file->IsAlone())
            {
                m_Edit->file->Write(m_Edit->shown);
            }
        });
    const bool isTaken = m_Edit->file && !m_Edit->file->IsAlone();
    if (isTaken || !failure.empty())
    {
        m_Edit->file.reset();
        wxTellProblem(isTaken ? wxGetTranslation("Another program has the colours open to edit.")
                              : wxtToWx(failure),
                      GetParent());
        return false;
    }
    wxTolvanFrame::SetColorScheme(scheme_Custom);
    ShowColours();
    ShowValue();
    return true;
}

// The file first: whoever hears of the scheme reads it. A file that did not say which scheme it is
// has to from now on, or the other programs would stay in the custom one.
void wxColorSchemeDlg::TakeBack(int scheme)
{
    const bool   isOurs = g_Scheme == scheme_Custom; // no other program has chosen since
    const String failure = dialogs::FailureOf([this] { m_Edit->file->Restore(); });
    if (isOurs)
    {
        wxTolvanFrame::SetColorScheme(scheme);
    }
    if (!failure.empty())
    {
        wxTellProblem(wxtToWx(failure), GetParent());
    }
}

void wxColorSchemeDlg::ShowColours()
{
    m_Colours->Redraw();
    m_Pairs->Redraw();
    const size_t poor = dialogs::CountOfPoor(m_Edit->shown);
    m_Summary->SetLabel(poor
                            ? wxString::Format(wxGetTranslation("%d of %d have less than 4.5 : 1."),
                                               static_cast<int>(poor),
                                               static_cast<int>(dialogs::ColourPairs().size()))
                            : wxGetTranslation("All of them have 4.5 : 1 or more."));
    m_Undo->Enable(m_Edit->history.CanUndo());
    m_Redo->Enable(m_Edit->history.CanRedo());
}

void wxColorSchemeDlg::ShowValue()
{
    const wxColour& colour = m_Edit->shown[Row()];
    m_Edit->history.EndDeed();
    m_Name->SetLabel(wxGetTranslation(k_ColourNames[Row()].label));
    m_Value->ChangeValue(wxtToWx(dialogs::ColourText(colour)));
    m_Sample->SetColour(colour);
    m_Note->SetLabel(colour.IsOk() ? wxString()
                                   : wxGetTranslation("What the file has for it is no colour."));
}

void wxColorSchemeDlg::ApplySoon()
{
    if (m_Edit->file && !m_Timer.IsRunning())
    {
        m_Timer.StartOnce(kGatherMs);
    }
}

bool wxColorSchemeDlg::Apply()
{
    CALL_ENTRY("wxColorSchemeDlg::Apply");
    m_Timer.Stop();
    const String failure = dialogs::FailureOf([this] { m_Edit->file->Write(m_Edit->shown); });
    if (!failure.empty())
    {
        m_Note->SetLabel(wxtToWx(failure));
        return false;
    }
    wxTolvanFrame::SetColorScheme(scheme_Custom);
    return true;
}

bool wxColorSchemeDlg::Validate()
{
    CALL_ENTRY("wxColorSchemeDlg::Validate");
    const wxColour& colour = m_Edit->shown[Row()];
    const String    text = wxtFromWx(m_Value->GetValue());
    // One that has been none all along is left so.
    if ((text.empty() && !colour.IsOk()) || dialogs::TypedColour(text).IsOk())
    {
        return true;
    }
    m_Value->SetFocus();
    m_Value->SelectAll();
    return false;
}

bool wxColorSchemeDlg::TransferDataFromWindow()
{
    CALL_ENTRY("wxColorSchemeDlg::TransferDataFromWindow");
    if (m_Edit->file && !Apply())
    {
        wxTellProblem(m_Note->GetLabel(), this);
        return false;
    }
    return true;
}
