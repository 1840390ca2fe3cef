#include "monitor/JobFields.h"

#include "monitor/FarmJob.h"

#include "appearance/wxTolvanString.h"
#include "appearance/wxtChoice.h"
#include "appearance/wxtStockControls.h"
#include "appearance/wxtTextCtrl.h"

#include <wx/sizer.h>

namespace
{
constexpr int    kGap = 6;         // pixels
constexpr int    kRightEdge = 16;  // pixels, beside the scrollbar
constexpr int    kManyLines = 4;   // shown of a value that needs them
constexpr size_t kLongValue = 120; // bytes; a longer one gets several lines
constexpr size_t kMostName = 40;   // characters
constexpr size_t kMostTip = 400;   // characters

bool NeedsLines(const String& value)
{
    return value.size() > kLongValue || value.find('\n') != String::npos;
}
} // namespace

JobFields::JobFields(wxWindow* parent) : ScrolledPane(parent)
{
}

void JobFields::ShowForm(const JobForm& form)
{
    Freeze();
    m_Fields.clear();
    if (GetSizer())
    {
        GetSizer()->Clear(true);
    }
    auto* const grid = new wxFlexGridSizer(2, kGap, kGap);
    grid->AddGrowableCol(1);
    for (size_t i = 0; i < form.values.size(); ++i)
    {
        AddRow(*grid, form.Type().GetParam(static_cast<int>(i)), form.values[i]);
    }
    auto* const sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(grid, 0, wxEXPAND | wxRIGHT, kRightEdge);
    SetSizer(sizer);
    FitInside();
    Layout();
    Scroll(0, 0);
    Thaw();
}

void JobFields::AddRow(wxFlexGridSizer& grid, const JobParamInfo& info, const String& value)
{
    auto* const label = new wxtStaticText(this, wxID_ANY, wxString());
    label->SetLabelText(wxtToWx(OneLine(info.name, kMostName)));
    wxWindow* const field = NewField(info, value);
    const wxString  tip = wxtToWx(OneLine(info.description, kMostTip));
    label->SetToolTip(tip);
    field->SetToolTip(tip);
    grid.Add(label, 0, wxALIGN_CENTER_VERTICAL);
    grid.Add(field, 0, wxEXPAND);
    m_Fields.push_back(field);
}

wxWindow* JobFields::NewField(const JobParamInfo& info, const String& value)
{
    if (!info.choices.empty())
    {
        auto* const choice = new wxtChoice(this);
        for (const String& item : info.choices)
        {
            choice->Append(wxtToWx(item));
            if (item == value)
            {
                choice->SetSelection(static_cast<int>(choice->GetCount()) - 1);
            }
        }
        return choice;
    }
    const long  style = NeedsLines(value) ? wxTE_MULTILINE | wxBORDER_SIMPLE : 0;
    auto* const text =
        new wxtTextCtrl(this, wxID_ANY, wxtToWx(value), wxDefaultPosition, wxDefaultSize, style);
    if (style)
    {
        text->SetMinSize(wxSize(-1, text->GetCharHeight() * (kManyLines + 1)));
    }
    else
    {
        text->SetMinSize(wxSize(1, text->GetMinHeight())); // however long its text is
    }
    return text;
}

void JobFields::TakeValues(JobForm& form) const
{
    for (size_t i = 0; i < m_Fields.size() && i < form.values.size(); ++i)
    {
        if (const auto* const text = dynamic_cast<wxtTextCtrl*>(m_Fields[i]))
        {
            // A text that was not touched keeps its bytes, whatever they are.
            if (text->IsModified())
            {
                form.values[i] = wxtFromWx(text->GetValue());
            }
        }
        else if (const auto* const choice = dynamic_cast<wxtChoice*>(m_Fields[i]))
        {
            const auto& choices = form.Type().GetParam(static_cast<int>(i)).choices;
            const int   index = choice->GetSelection();
            form.values[i] = index == wxNOT_FOUND ? String() : choices[static_cast<size_t>(index)];
        }
    }
}

void JobFields::FocusField(int index) const
{
    m_Fields[static_cast<size_t>(index)]->SetFocus();
}
