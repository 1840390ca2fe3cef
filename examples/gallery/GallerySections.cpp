#include "gallery/GallerySections.h"

#include "gallery/FontSizes.h"

#include "gallery/MarkedList.h"

#include "appearance/wxTolvanColors.h"
#include "appearance/wxtCheckListBox.h"
#include "appearance/wxtChoice.h"
#include "appearance/wxtTextCtrl.h"
#include "listviews/wxDBListBody.h"
#include "listviews/wxtListCtrl.h"
#include "textviews/wxBarHistoryCtrl.h"
#include "textviews/wxTextLineCtrl.h"
#include "textviews/wxTextLinePanes.h"
#include "textviews/wxTextLineSearchPanel.h"
#include "textviews/wxTextRules.h"

#include <wx/artprov.h>
#include <wx/listbase.h>
#include <wx/sizer.h>

#include <cmath>

namespace
{
constexpr int kGap = 6; // pixels
const wxSize  kViewSize(600, 130);
const wxSize  kTextSize(600, 240); // with the bar
const wxSize  kChartSize(200, 50);
const wxSize  kFieldSize(160, -1);
const wxSize  kListSize(130, 70);

wxSizer* AddRow(wxSizer* sizer)
{
    auto* const row = new wxBoxSizer(wxHORIZONTAL);
    sizer->Add(row, 0, wxBOTTOM, kGap);
    return row;
}

template <class Control> Control* Put(wxSizer* row, Control* control)
{
    row->Add(control, 0, wxRIGHT | wxALIGN_CENTRE_VERTICAL, kGap);
    return control;
}
} // namespace

void AddButtons(wxWindow* parent, wxSizer* sizer)
{
    wxSizer* const row = AddRow(sizer);
    Put(row, new wxtButton(parent, wxID_OK, "&Default"))->SetDefault();
    Put(row, new wxtButton(parent, wxID_ANY, "Normal"));
    Put(row, new wxtButton(parent, wxID_ANY, "Highlighted"))->Hilight(true);
    Put(row, new wxtButton(parent, wxID_ANY, "Disabled"))->Disable();
    const wxBitmapBundle icon = wxArtProvider::GetBitmapBundle(wxART_NEW, wxART_BUTTON);
    Put(row, new wxtBitmapButton(parent, wxID_ANY, icon))->SetToolTip("A button with a picture");
    Put(row, new wxtBitmapButton(parent, wxID_ANY, icon))->Disable();
}

void AddBoxes(wxWindow* parent, wxSizer* sizer)
{
    wxSizer* const boxes = AddRow(sizer);
    Put(boxes, new wxtCheckBox(parent, wxID_ANY, "Check box"));
    Put(boxes, new wxtCheckBox(parent, wxID_ANY, "Checked"))->SetValue(true);
    Put(boxes, new wxtCheckBox(parent, wxID_ANY, "Disabled"))->Disable();
    auto* const box = Put(boxes, new wxtCheckBox(parent, wxID_ANY, "Disabled and checked"));
    box->SetValue(true);
    box->Disable();
    wxSizer* const radios = AddRow(sizer);
    Put(radios, new wxtRadioButton(parent, wxID_ANY, "Chosen", wxDefaultPosition, wxDefaultSize,
                                   wxRB_GROUP));
    Put(radios, new wxtRadioButton(parent, wxID_ANY, "Radio button"));
    Put(radios, new wxtRadioButton(parent, wxID_ANY, "Disabled"))->Disable();
    Put(radios, new wxtRadioButton(parent, wxID_ANY, "Disabled and chosen", wxDefaultPosition,
                                   wxDefaultSize, wxRB_GROUP))
        ->Disable();
}

void AddFields(wxWindow* parent, wxSizer* sizer)
{
    wxSizer* const row = AddRow(sizer);
    Put(row, new wxtTextCtrl(parent, wxID_ANY, "Text field"))
        ->SetMinSize(InFontOf(*parent, kFieldSize));
    auto* const empty = Put(row, new wxtTextCtrl(parent, wxID_ANY));
    empty->SetHint("A hint");
    empty->SetMinSize(InFontOf(*parent, kFieldSize));
    auto* const disabled = Put(row, new wxtTextCtrl(parent, wxID_ANY, "Disabled"));
    disabled->SetMinSize(InFontOf(*parent, kFieldSize));
    disabled->Disable();
    wxSizer* const second = AddRow(sizer);
    for (const auto& [text, style] :
         {std::pair("Read-only", wxTE_READONLY), {"secret", wxTE_PASSWORD}})
    {
        Put(second,
            new wxtTextCtrl(parent, wxID_ANY, text, wxDefaultPosition, wxDefaultSize, style))
            ->SetMinSize(InFontOf(*parent, kFieldSize));
    }
    // As dialogs say what is wrong with a field.
    auto* const problem = Put(second, new wxtStaticText(parent, wxID_ANY, "What is wrong with it"));
    problem->m_ForegroundName = color_TextRed;
    problem->KeepReadable();
}

void AddChoices(wxWindow* parent, wxSizer* sizer)
{
    wxArrayString items;
    for (const char* const item : {"Ray Tracer", "Checksum", "Another product"})
    {
        items.Add(item);
    }
    wxSizer* const row = AddRow(sizer);
    const auto     addBoth = [&](auto makeControl)
    {
        auto* const column = new wxBoxSizer(wxVERTICAL);
        row->Add(column, 0, wxRIGHT, kGap);
        for (const bool isEnabled : {true, false})
        {
            wxWindow* const control = makeControl();
            control->SetMinSize(InFontOf(*parent, kFieldSize));
            control->Enable(isEnabled);
            column->Add(control, 0, wxBOTTOM, kGap);
        }
    };
    const auto makeList = [&]
    {
        auto* const list =
            new wxtCheckListBox(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, items);
        list->Check(0);
        list->SetMinSize(InFontOf(*parent, kListSize));
        return Put(row, list);
    };
    addBoth(
        [&]
        {
            auto* const choice =
                new wxtChoice(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, items);
            choice->SetSelection(0);
            return choice;
        });
    addBoth(
        [&]
        {
            return new wxtComboBox(parent, wxID_ANY, "Combo box", wxDefaultPosition, wxDefaultSize,
                                   items);
        });
    makeList();
    makeList()->Disable();
}

void AddCharts(wxWindow* parent, wxSizer* sizer)
{
    wxSizer* const row = AddRow(sizer);
    auto* const    empty = Put(row, new wxBarHistoryCtrl(parent, wxID_ANY));
    auto* const    chart = Put(row, new wxBarHistoryCtrl(parent, wxID_ANY));
    for (wxBarHistoryCtrl* const each : {empty, chart})
    {
        each->SetMinSize(kChartSize);
        each->SetBounds(0, 100);
        each->SetMidBound(75);
        each->LimitHistory(static_cast<uint32_t>(kChartSize.x));
    }
    for (int i = 0; i < kChartSize.x; ++i)
    {
        chart->PushValue(static_cast<uint32_t>(50 + 40 * std::sin(i / 15.0)));
    }
}

void AddList(wxWindow* parent, wxSizer* sizer)
{
    auto* const list = new MarkedList<wxtListCtrl, 1>(parent, wxID_ANY);
    list->SetMinSize(kViewSize);
    for (const auto& [title, width] : {std::pair("Name", 150), {"State", 90}, {"Folder", 140}})
    {
        list->AddColumn(list->GetColumnCount(), title, InFontOf(*list, width));
    }
    const char* const rows[][2] = {{"Bounce", "Running"},
                                   {"Orbit", "Waiting"},
                                   {"Sum up the sources", "Done"},
                                   {"Orbit, again", "Failed"}};
    for (int row = 0; row < 4; ++row)
    {
        list->InsertItem(row, rows[row][0]);
        list->SetItem(row, 1, rows[row][1]);
        list->SetItem(row, 2, "/farm/projects/orbit/sq010/sh010/render");
    }
    list->SetColumnImage(0, wxDBListCtrl::image_Ascending);
    list->SetHighlightColumn(0);
    list->GetBody()->SendListEvent(wxEVT_LIST_ITEM_SELECTED, wxPoint(0, 0), 0, 1);
    sizer->Add(list, 1, wxEXPAND);
}

// A job's output: every kind of line that it has.
String OutputLine(int frame)
{
    switch (frame)
    {
    case 4:
        return SFormat("FRAME %d/180 warning: the texture is small", frame);
    case 6:
        return SFormat("FRAME %d/180 error: no sample is left", frame);
    default:
        return SFormat("FRAME %d/180 \x1b[3%dmframe_%04d.png\x1b[0m took 0.%02d s", frame,
                       frame % 3 + 4, frame, 40 + 7 * frame % 50);
    }
}

void AddText(wxWindow* parent, wxSizer* sizer)
{
    auto* const panes = new wxTextLinePanes(parent);
    auto* const text = new wxTextLineCtrl(panes->GetViewParent());
    for (int frame = 1; frame <= 60; ++frame)
    {
        text->Append(OutputLine(frame), false);
    }
    text->SetEscapes(wxTextLineCtrl::Escapes::Coloured);
    text->SetRules(wxStandardTextRules());
    text->ShowOverview(true);
    text->ShowLineNumbers(true);
    text->SetBookmark(2);
    text->OfferReadingCommands(true);
    text->SelectWithinLines(true);
    text->SetFollowEnd(true);
    text->ShowFollowButton(true);
    panes->ShowView(text);
    panes->SetMinSize(kTextSize);
    sizer->Add(panes, 1, wxEXPAND);
    text->ToggleSearch();
    text->GetSearchPanel()->SetText("FRAME 3");
}
