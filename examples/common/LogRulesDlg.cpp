#include "common/LogRulesDlg.h"

#include "appearance/wxTolvanString.h"
#include "appearance/wxtButton.h"
#include "appearance/wxtCheckBox.h"
#include "appearance/wxtCheckListBox.h"
#include "appearance/wxtChoice.h"
#include "appearance/wxtStockControls.h"
#include "appearance/wxtTextCtrl.h"
#include "common/LogRules.h"
#include "textviews/wxTextRules.h"

#include <wx/colordlg.h>
#include <wx/sizer.h>

#include <algorithm>
#include <iterator>

namespace
{
constexpr int     kBorder = 12;     // pixels around the dialog's content
constexpr int     kGap = 6;         // pixels between its parts
constexpr int     kListWidth = 24;  // characters
constexpr int     kListRows = 9;    // shown at once
constexpr int     kFieldWidth = 44; // characters
const char* const kPositionName = "LogRules";

/// A colour of the scheme that a rule can have.
struct ColourChoice
{
    const char*   label;
    const String* name;
};
const ColourChoice kColours[] = {
    {wxTRANSLATE("Red"), &color_TextRed},       {wxTRANSLATE("Orange"), &color_TextOrange},
    {wxTRANSLATE("Yellow"), &color_TextYellow}, {wxTRANSLATE("Green"), &color_TextGreen},
    {wxTRANSLATE("Cyan"), &color_TextCyan},     {wxTRANSLATE("Blue"), &color_TextBlue},
    {wxTRANSLATE("Indigo"), &color_TextIndigo}, {wxTRANSLATE("Violet"), &color_TextViolet},
    {wxTRANSLATE("Grey"), &color_TextGrey},
};
constexpr int kUncoloured = 0; // before them in the choice
constexpr int kOwnColour = static_cast<int>(std::size(kColours)) + 1;

wxArrayString ColourLabels()
{
    wxArrayString labels;
    labels.push_back(wxGetTranslation("As it is"));
    for (const ColourChoice& colour : kColours)
    {
        labels.push_back(wxGetTranslation(colour.label));
    }
    labels.push_back(wxGetTranslation("Own colour"));
    return labels;
}

int ColourIndex(const wxTextRule& rule)
{
    const auto* const found =
        std::find_if(std::begin(kColours), std::end(kColours),
                     [&rule](const ColourChoice& each) { return *each.name == rule.colourName; });
    if (found != std::end(kColours))
    {
        return static_cast<int>(found - std::begin(kColours)) + 1;
    }
    return rule.WantedColour().IsOk() ? kOwnColour : kUncoloured;
}

wxString LabelOf(const wxTextRule& rule)
{
    const String& text = rule.name.empty() ? rule.pattern : rule.name;
    return text.empty() ? wxString(wxGetTranslation("(empty)")) : wxtToWx(text);
}
} // namespace

LogRulesDlg::LogRulesDlg(wxWindow* parent)
    : wxTolvanDlg(parent, wxGetTranslation("Colour Rules"), kPositionName, true),
      m_Rules(KeptLogRules())
{
    wxBoxSizer* const whole = StartControls();
    auto* const       columns = new wxBoxSizer(wxHORIZONTAL);
    columns->Add(NewList(), 0, wxEXPAND | wxRIGHT, kBorder);
    columns->Add(NewFields(), 1, wxEXPAND);
    whole->Add(columns, 1, wxEXPAND | wxLEFT | wxRIGHT | wxTOP, kBorder);
    AddButtonRow(whole, kBorder);
    FillList(0);
}

wxtButton* LogRulesDlg::NewButton(const wxString& label, void (LogRulesDlg::*act)())
{
    auto* const button = new wxtButton(this, wxID_ANY, label);
    button->Bind(wxEVT_BUTTON, [this, act](wxCommandEvent&) { (this->*act)(); });
    return button;
}

wxtCheckBox* LogRulesDlg::NewCheckBox(const wxString& label)
{
    auto* const box = new wxtCheckBox(this, wxID_ANY, label);
    box->Bind(wxEVT_CHECKBOX, [this](wxCommandEvent&) { TakeRule(); });
    return box;
}

wxtChoice* LogRulesDlg::NewChoice(const wxArrayString& items)
{
    auto* const choice = new wxtChoice(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, items);
    choice->Bind(wxEVT_CHOICE, [this](wxCommandEvent&) { TakeRule(); });
    return choice;
}

wxtTextCtrl* LogRulesDlg::NewField()
{
    auto* const field = new wxtTextCtrl(this, wxID_ANY, wxString(), wxDefaultPosition,
                                        wxSize(kFieldWidth * GetCharWidth(), -1));
    field->AutoComplete(nullptr); // it is about lines of logs
    field->Bind(wxEVT_TEXT, [this](wxCommandEvent&) { TakeRule(); });
    return field;
}

wxSizer* LogRulesDlg::NewList()
{
    auto* const column = new wxBoxSizer(wxVERTICAL);
    m_List = new wxtCheckListBox(this);
    m_List->SetMinSize(wxSize(kListWidth * GetCharWidth(), GetCharHeight() * 3 / 2 * kListRows));
    m_List->Bind(wxEVT_LISTBOX, [this](wxCommandEvent&) { ShowRule(); });
    m_List->Bind(wxEVT_CHECKLISTBOX,
                 [this](wxCommandEvent& event)
                 {
                     const auto row = static_cast<unsigned>(event.GetInt());
                     m_Rules[row].on = m_List->IsChecked(row);
                     Try();
                 });
    column->Add(m_List, 1, wxEXPAND);
    auto* const buttons = new wxFlexGridSizer(2, kGap, kGap);
    buttons->AddGrowableCol(0);
    buttons->AddGrowableCol(1);
    m_Remove = NewButton(wxGetTranslation("&Remove"), &LogRulesDlg::Remove);
    m_Up = NewButton(wxGetTranslation("Move &Up"), &LogRulesDlg::MoveUp);
    m_Down = NewButton(wxGetTranslation("Move &Down"), &LogRulesDlg::MoveDown);
    for (wxtButton* const button :
         {NewButton(wxGetTranslation("&Add"), &LogRulesDlg::Add), m_Remove, m_Up, m_Down})
    {
        buttons->Add(button, 0, wxEXPAND);
    }
    column->Add(buttons, 0, wxEXPAND | wxTOP, kGap);
    column->Add(NewButton(wxGetTranslation("&Standard Rules"), &LogRulesDlg::RestoreRules), 0,
                wxEXPAND | wxTOP, kGap);
    return column;
}

wxSizer* LogRulesDlg::NewFields()
{
    auto* const column = new wxBoxSizer(wxVERTICAL);
    auto* const grid = new wxFlexGridSizer(2, kGap, kGap);
    grid->AddGrowableCol(1);
    const auto add = [&](const wxString& label, wxWindow* control)
    {
        grid->Add(NewStatic(label), 0, wxALIGN_CENTER_VERTICAL);
        grid->Add(control, 0, wxEXPAND);
    };
    const auto labels = [](std::initializer_list<const char*> texts)
    {
        wxArrayString array;
        for (const char* const text : texts)
        {
            array.push_back(wxGetTranslation(text));
        }
        return array;
    };
    add(wxGetTranslation("&Name"), m_Name = NewField());
    add(wxGetTranslation("&Pattern"), m_Pattern = NewField());
    grid->AddSpacer(0);
    m_Problem = NewStatic(wxString(), nullptr, color_TextRed);
    m_Problem->KeepReadable();
    grid->Add(m_Problem, 0, wxEXPAND);
    for (wxtCheckBox** const box : {&m_Expression, &m_MatchCase, &m_WholeWords})
    {
        *box = NewCheckBox(box == &m_Expression  ? wxGetTranslation("Regular &Expression")
                           : box == &m_MatchCase ? wxGetTranslation("&Match Case")
                                                 : wxGetTranslation("&Whole Words"));
        grid->AddSpacer(0);
        grid->Add(*box, 0, wxEXPAND);
    }
    add(wxGetTranslation("&Line is"),
        m_Kind = NewChoice(labels({wxTRANSLATE("Nothing of note"), wxTRANSLATE("Information"),
                                   wxTRANSLATE("A warning"), wxTRANSLATE("An error")})));
    add(wxGetTranslation("&Colour"), m_Colour = NewChoice(ColourLabels()));
    grid->AddSpacer(0);
    m_Pick = NewButton(wxGetTranslation("P&ick..."), &LogRulesDlg::PickColour);
    grid->Add(m_Pick, 0);
    add(wxGetTranslation("C&oloured is"),
        m_Part = NewChoice(labels({wxTRANSLATE("What is found"), wxTRANSLATE("The whole line")})));
    column->Add(grid, 0, wxEXPAND);
    wxtStaticText* const hint =
        NewStatic(wxGetTranslation("What a rule finds is not looked at by those below it."),
                  nullptr, color_TextGrey);
    hint->KeepReadable();
    column->AddStretchSpacer();
    column->Add(hint, 0, wxEXPAND | wxTOP, kBorder);
    return column;
}

wxTextRule* LogRulesDlg::Selected()
{
    const int row = m_List->GetSelection();
    return row < 0 ? nullptr : &m_Rules[static_cast<size_t>(row)];
}

void LogRulesDlg::FillList(int selection)
{
    wxArrayString labels;
    for (const wxTextRule& rule : m_Rules)
    {
        labels.push_back(LabelOf(rule));
    }
    m_List->Clear();
    if (!labels.empty())
    {
        m_List->Append(labels);
        m_List->SetSelection(std::clamp(selection, 0, static_cast<int>(labels.size()) - 1));
    }
    for (unsigned row = 0; row < m_Rules.size(); ++row)
    {
        m_List->Check(row, m_Rules[row].on);
    }
    ShowRule();
}

void LogRulesDlg::ShowRule()
{
    const wxTextRule* const selected = Selected();
    const wxTextRule        rule = selected ? *selected : wxTextRule();
    m_IsShowing = true;
    m_Name->ChangeValue(wxtToWx(rule.name));
    m_Pattern->ChangeValue(wxtToWx(rule.pattern));
    m_Expression->SetValue(rule.expression);
    m_MatchCase->SetValue(rule.matchCase);
    m_WholeWords->SetValue(rule.wholeWords);
    m_Kind->SetSelection(static_cast<int>(rule.kind));
    m_Colour->SetSelection(ColourIndex(rule));
    m_Part->SetSelection(static_cast<int>(rule.part));
    m_IsShowing = false;
    for (wxWindow* const window :
         std::initializer_list<wxWindow*>{m_Name, m_Pattern, m_Expression, m_MatchCase,
                                          m_WholeWords, m_Kind, m_Colour, m_Part, m_Pick, m_Remove})
    {
        window->Enable(selected != nullptr);
    }
    const int row = m_List->GetSelection();
    m_Up->Enable(row > 0);
    m_Down->Enable(selected && row + 1 < static_cast<int>(m_Rules.size()));
    ShowProblem();
}

void LogRulesDlg::ShowProblem()
{
    const wxTextRule* const rule = Selected();
    m_Problem->SetLabelText(rule ? wxTextRuleProblem(*rule) : wxString());
}

// What the user has changed.
void LogRulesDlg::TakeRule()
{
    wxTextRule* const rule = Selected();
    if (!rule || m_IsShowing)
    {
        return;
    }
    rule->name = wxtFromWx(m_Name->GetValue());
    rule->pattern = wxtFromWx(m_Pattern->GetValue());
    rule->expression = m_Expression->GetValue();
    rule->matchCase = m_MatchCase->GetValue();
    rule->wholeWords = m_WholeWords->GetValue();
    rule->kind = static_cast<wxTextRule::Kind>(m_Kind->GetSelection());
    rule->part = static_cast<wxTextRule::Part>(m_Part->GetSelection());
    TakeColour(*rule);
    const auto row = static_cast<unsigned>(m_List->GetSelection());
    if (m_List->GetString(row) != LabelOf(*rule))
    {
        m_List->SetString(row, LabelOf(*rule));
    }
    ShowProblem();
    Try();
}

// One of the scheme's becomes the user's own at first as it is.
void LogRulesDlg::TakeColour(wxTextRule& rule) const
{
    const int index = m_Colour->GetSelection();
    if (index == ColourIndex(rule))
    {
        return;
    }
    const wxColour before = rule.WantedColour();
    rule.colourName.clear();
    rule.colour = wxColour();
    if (index == kOwnColour)
    {
        rule.colour = before.IsOk() ? before : wxtGetColor(color_TextRed);
    }
    else if (index != kUncoloured)
    {
        rule.colourName = *kColours[index - 1].name;
    }
}

void LogRulesDlg::Try() const
{
    TryLogRules(m_Rules);
}

void LogRulesDlg::Add()
{
    wxTextRule rule;
    rule.name = wxtFromWx(wxGetTranslation("New rule"));
    rule.colourName = color_TextGreen;
    // Before the others, which would have what it is to find.
    m_Rules.insert(m_Rules.begin(), rule);
    FillList(0);
    m_Pattern->SetFocus();
    Try();
}

void LogRulesDlg::Remove()
{
    const int row = m_List->GetSelection();
    if (row >= 0)
    {
        m_Rules.erase(m_Rules.begin() + row);
        FillList(row);
        Try();
    }
}

void LogRulesDlg::Move(int by)
{
    const int row = m_List->GetSelection();
    const int other = row + by;
    if (row >= 0 && other >= 0 && other < static_cast<int>(m_Rules.size()))
    {
        std::swap(m_Rules[static_cast<size_t>(row)], m_Rules[static_cast<size_t>(other)]);
        FillList(other);
        Try();
    }
}

void LogRulesDlg::RestoreRules()
{
    m_Rules = wxStandardTextRules();
    FillList(0);
    Try();
}

void LogRulesDlg::PickColour()
{
    wxTextRule* const rule = Selected();
    if (!rule)
    {
        return;
    }
    wxColourData data;
    data.SetChooseFull(true);
    data.SetColour(rule->WantedColour().IsOk() ? rule->WantedColour() : *wxRED);
    wxColourDialog dialog(this, &data);
    if (dialog.ShowModal() == wxID_OK)
    {
        rule->colourName.clear();
        rule->colour = dialog.GetColourData().GetColour();
        ShowRule();
        Try();
    }
}

// A rule that is wrong would be kept, and never be found.
bool LogRulesDlg::Validate()
{
    const auto wrong = std::find_if(m_Rules.begin(), m_Rules.end(),
                                    [](const wxTextRule& rule)
                                    { return rule.on && !wxTextRuleProblem(rule).empty(); });
    if (wrong == m_Rules.end())
    {
        return true;
    }
    m_List->SetSelection(static_cast<int>(wrong - m_Rules.begin()));
    ShowRule();
    m_Pattern->SetFocus();
    return false;
}

int LogRulesDlg::ShowModal()
{
    Try();
    const int result = wxTolvanDlg::ShowModal();
    if (result == wxID_OK)
    {
        WantLogRules(true);
        KeepLogRules(m_Rules);
    }
    else
    {
        TryLogRules(ShownLogRules());
    }
    return result;
}
