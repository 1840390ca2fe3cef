#include "monitor/JobFields.h"

#include "monitor/FarmJob.h"

#include "appearance/wxTolvanString.h"
#include "appearance/wxtButton.h"
#include "appearance/wxtChoice.h"
#include "appearance/wxtStockControls.h"
#include "appearance/wxtTextCtrl.h"

#include <wx/dirdlg.h>
#include <wx/filedlg.h>
#include <wx/filename.h>
#include <wx/sizer.h>

#include <algorithm>

namespace
{
constexpr int    kMostLabel = 32;  // characters
constexpr int    kManyLines = 4;   // shown of a value that needs them
constexpr size_t kLongValue = 120; // bytes; a longer one gets several lines
constexpr size_t kMostName = 60;   // characters
constexpr size_t kMostTip = 400;   // characters

wxString LabelOf(const JobParamInfo& info)
{
    return wxtToWx(OneLine(info.Label(), kMostName));
}

// The whole of the label, the name, and what it has to be.
wxString TipOf(const JobParamInfo& info)
{
    String tip = info.name + ": " + OneLine(info.description, kMostTip);
    // What depends on other values is said when it is wrong.
    const String requirement = info.Requirement([](const String&) { return String(); });
    if (info.choices.empty() && !requirement.empty())
    {
        tip += (info.description.empty() ? "" : "\n") + requirement;
    }
    return wxtToWx(tip);
}

// As they were chosen; empty when nothing was.
wxString PickFolder(wxtTextCtrl* field, const wxString& title)
{
    wxDirDialog dialog(wxGetTopLevelParent(field), title, field->GetValue(),
                       wxDD_DEFAULT_STYLE | wxDD_DIR_MUST_EXIST);
    return dialog.ShowModal() == wxID_OK ? dialog.GetPath() : wxString();
}

wxString PickFile(wxtTextCtrl* field, const wxString& title)
{
    const wxFileName former(field->GetValue());
    wxFileDialog dialog(wxGetTopLevelParent(field), title, former.GetPath(), former.GetFullName(),
                        wxFileSelectorDefaultWildcardStr, wxFD_OPEN | wxFD_FILE_MUST_EXIST);
    return dialog.ShowModal() == wxID_OK ? dialog.GetPath() : wxString();
}

bool NeedsLines(const String& value)
{
    return value.size() > kLongValue || value.find('\n') != String::npos;
}
} // namespace

JobFields::JobFields(wxWindow* parent) : wxtScrolledPane(parent)
{
}

int JobFields::LabelWidth(const JobForm& form) const
{
    int width = 0;
    for (size_t i = 0; i < form.values.size(); ++i)
    {
        width = std::max(width,
                         GetTextExtent(LabelOf(form.Type().GetParam(static_cast<int>(i)))).x + 1);
    }
    return std::min(width, kMostLabel * GetCharWidth());
}

void JobFields::ShowForm(const JobForm& form, int labelWidth)
{
    Freeze();
    m_Fields.clear();
    if (GetSizer())
    {
        GetSizer()->Clear(true);
    }
    auto* const grid = new wxFlexGridSizer(2, k_Gap, k_Gap);
    grid->AddGrowableCol(1);
    for (size_t i = 0; i < form.values.size(); ++i)
    {
        AddRow(*grid, form.Type().GetParam(static_cast<int>(i)), form.values[i], labelWidth);
    }
    auto* const sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(grid, 0, wxEXPAND);
    SetSizer(sizer);
    FitInside();
    Layout();
    Scroll(0, 0);
    Thaw();
}

void JobFields::AddRow(wxFlexGridSizer& grid, const JobParamInfo& info, const String& value,
                       int labelWidth)
{
    auto* const label = new wxtStaticText(this, wxID_ANY, wxString(), wxDefaultPosition,
                                          wxDefaultSize, wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_END);
    label->SetLabelText(LabelOf(info));
    label->SetMinSize(wxSize(labelWidth, -1));
    wxWindow* const field = NewField(info, value);
    const wxString  tip = TipOf(info);
    label->SetToolTip(tip);
    field->SetToolTip(tip);
    grid.Add(label, 0, wxALIGN_CENTER_VERTICAL);
    const bool isBrowsed =
        info.kind == JobParamInfo::Kind::kFile || info.kind == JobParamInfo::Kind::kFolder;
    if (isBrowsed && dynamic_cast<wxtTextCtrl*>(field))
    {
        grid.Add(WithBrowse(field, info), 0, wxEXPAND);
    }
    else
    {
        grid.Add(field, 0, wxEXPAND);
    }
    m_Fields.push_back(field);
}

wxSizer* JobFields::WithBrowse(wxWindow* field, const JobParamInfo& info)
{
    auto* const    text = static_cast<wxtTextCtrl*>(field);
    auto* const    browse = new wxtButton(this, wxID_ANY, wxGetTranslation("Browse..."),
                                          wxDefaultPosition, wxDefaultSize, wxBU_EXACTFIT);
    const bool     isFolder = info.kind == JobParamInfo::Kind::kFolder;
    const wxString title = LabelOf(info);
    browse->SetToolTip(isFolder ? wxGetTranslation("Picks a folder")
                                : wxGetTranslation("Picks a file"));
    browse->Bind(wxEVT_BUTTON,
                 [text, isFolder, title](wxCommandEvent&)
                 {
                     const wxString chosen =
                         isFolder ? PickFolder(text, title) : PickFile(text, title);
                     if (!chosen.empty())
                     {
                         text->SetValue(chosen);
                         text->MarkDirty();
                         text->SetInsertionPointEnd();
                         text->SetFocus();
                     }
                 });
    auto* const row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(text, 1, wxEXPAND | wxRIGHT, k_Gap);
    row->Add(browse, 0, wxEXPAND);
    return row;
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
