#include "gallery/GallerySections.h"

#include "gallery/MarkedList.h"

#include "appearance/wxExpandablePanel.h"
#include "appearance/wxTolvanColors.h"
#include "appearance/wxTolvanString.h"
#include "appearance/wxtCheckListBox.h"
#include "appearance/wxtChoice.h"
#include "appearance/wxtTextCtrl.h"
#include "listviews/wxDBListBody.h"
#include "listviews/wxtListCtrl.h"
#include "textviews/wxBarHistoryCtrl.h"
#include "textviews/wxTextLineCtrl.h"
#include "textviews/wxTextLineSearchPanel.h"

#include <wx/listbase.h>
#include <wx/sizer.h>

#include <cmath>

namespace
{
constexpr int kGap = 6; // pixels
const wxSize  kViewSize(600, 130);
const wxSize  kChartSize(200, 50);
const wxSize  kFieldSize(160, -1);
const wxSize  kListSize(170, 70);

class Panel : public wxExpandablePanel
{
public:
    Panel(wxWindow* parent, const wxString& caption, bool expanded)
        : wxExpandablePanel(parent, wxVERTICAL)
    {
        m_Section = "Gallery";
        m_Key = wxtFromWx(caption);
        m_CollapsedCaption = caption;
        m_ExpandedCaption = caption;
        CreateInfrastructure(wxString(), true);
        m_ContentSizer->Add(new wxtStaticText(this, wxID_ANY, "Its content"), 0, wxLEFT, 20);
        m_Expanded = expanded;
        Expand();
    }
};

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
}

void AddBoxes(wxWindow* parent, wxSizer* sizer)
{
    wxSizer* const boxes = AddRow(sizer);
    Put(boxes, new wxtCheckBox(parent, wxID_ANY, "Check box"));
    Put(boxes, new wxtCheckBox(parent, wxID_ANY, "Checked"))->SetValue(true);
    auto* const box = Put(boxes, new wxtCheckBox(parent, wxID_ANY, "Disabled"));
    box->SetValue(true);
    box->Disable();
    wxSizer* const radios = AddRow(sizer);
    Put(radios, new wxtRadioButton(parent, wxID_ANY, "Chosen", wxDefaultPosition, wxDefaultSize,
                                   wxRB_GROUP));
    Put(radios, new wxtRadioButton(parent, wxID_ANY, "Radio button"));
    Put(radios, new wxtRadioButton(parent, wxID_ANY, "Disabled"))->Disable();
}

void AddFields(wxWindow* parent, wxSizer* sizer)
{
    wxSizer* const row = AddRow(sizer);
    Put(row, new wxtTextCtrl(parent, wxID_ANY, "Text field"))->SetMinSize(kFieldSize);
    auto* const empty = Put(row, new wxtTextCtrl(parent, wxID_ANY));
    empty->SetHint("A hint");
    empty->SetMinSize(kFieldSize);
    auto* const disabled = Put(row, new wxtTextCtrl(parent, wxID_ANY, "Disabled"));
    disabled->SetMinSize(kFieldSize);
    disabled->Disable();
}

void AddChoices(wxWindow* parent, wxSizer* sizer)
{
    wxArrayString items;
    for (const char* const item : {"Ray Tracer", "Checksum", "Another product"})
    {
        items.Add(item);
    }
    wxSizer* const row = AddRow(sizer);
    auto* const    choice =
        Put(row, new wxtChoice(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, items));
    choice->SetSelection(0);
    choice->SetMinSize(kFieldSize);
    auto* const combo = Put(row, new wxtComboBox(parent, wxID_ANY, "Combo box", wxDefaultPosition,
                                                 wxDefaultSize, items));
    combo->SetMinSize(kFieldSize);
    auto* const list =
        Put(row, new wxtCheckListBox(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, items));
    list->Check(0);
    list->SetMinSize(kListSize);
}

void AddPanels(wxWindow* parent, wxSizer* sizer)
{
    sizer->Add(new Panel(parent, "An open panel", true), 0, wxEXPAND);
    sizer->Add(new Panel(parent, "A closed panel", false), 0, wxEXPAND);
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
        list->AddColumn(list->GetColumnCount(), title, width);
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

void AddText(wxWindow* parent, wxSizer* sizer)
{
    auto* const text = new wxTextLineCtrl(parent);
    text->SetMinSize(kViewSize);
    for (int i = 1; i <= 12; ++i)
    {
        text->Append(SFormat("FRAME %d/180 frame_%04d.png took 0.%02d s", i, i, 40 + 7 * i % 50),
                     false);
    }
    sizer->Add(text, 1, wxEXPAND);
    sizer->Add(text->GetSearchPanel(), 0, wxEXPAND);
    text->ToggleSearch();
    text->GetSearchPanel()->SetText("FRAME 3");
}
