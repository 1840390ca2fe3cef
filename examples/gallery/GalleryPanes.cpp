#include "gallery/FontSizes.h"
#include "gallery/GallerySections.h"

#include "appearance/wxExpandablePanel.h"
#include "appearance/wxTolvanString.h"
#include "appearance/wxtCheckBox.h"
#include "appearance/wxtDockArt.h"
#include "appearance/wxtScrolledPane.h"
#include "appearance/wxtStockControls.h"

#include <wx/sizer.h>

namespace
{
constexpr int    kGap = 6;           // pixels
constexpr int    kIndent = 20;       // pixels
constexpr int    kScrolled = 6;      // boxes, more than there is room for
constexpr double kMostOfWidth = 0.5; // of the docked panes, for one at a side
const wxSize     kPaneSize(190, 60);
const wxSize     kDockSize(180, 60);

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
        m_ContentSizer->Add(new wxtStaticText(this, wxID_ANY, "Its content"), 0, wxLEFT, kIndent);
        m_Expanded = expanded;
        Expand();
    }
};

class DockManager : public wxtDockManager
{
public:
    using wxtDockManager::SetActivePane;
    using wxtDockManager::wxtDockManager;
};

// Two panes side by side, each with its caption; the first one is active.
class DockedPanes : public wxtPanel
{
public:
    explicit DockedPanes(wxWindow* parent) : wxtPanel(parent)
    {
        m_container.DisableSelfFocus();      // nothing in it takes keys
        SetSize(InFontOf(*this, kDockSize)); // which the widths of the panes are limited by
        m_Docking.SetDockSizeConstraint(kMostOfWidth, 1);
        AddPane(wxAuiPaneInfo().Caption("Docked").Center());
        m_Docking.SetActivePane(AddPane(wxAuiPaneInfo().Caption("Active").Left().BestSize(
            InFontOf(*this, wxSize(kDockSize.x / 2, kDockSize.y)))));
        m_Docking.Update();
    }
    ~DockedPanes() override { m_Docking.UnInit(); }

private:
    wxWindow* AddPane(const wxAuiPaneInfo& info)
    {
        auto* const pane = new wxtStaticText(this, wxID_ANY, "Its content");
        m_Docking.AddPane(pane, wxAuiPaneInfo(info).CaptionVisible().Floatable(false));
        return pane;
    }

    DockManager m_Docking{this};
};

wxWindow* NewScrolledPane(wxWindow* parent)
{
    auto* const pane = new wxtScrolledPane(parent);
    auto* const content = new wxBoxSizer(wxVERTICAL);
    for (int i = 1; i <= kScrolled; ++i)
    {
        content->Add(new wxtCheckBox(pane, wxID_ANY, wxString::Format("Scrolled %d", i)));
    }
    pane->SetSizer(content);
    pane->SetMinSize(InFontOf(*pane, kPaneSize));
    return pane;
}
} // namespace

void AddPanels(wxWindow* parent, wxSizer* sizer)
{
    auto* const panels = new wxBoxSizer(wxVERTICAL);
    panels->Add(new Panel(parent, "An open panel", true), 0, wxEXPAND);
    panels->Add(new Panel(parent, "A closed panel", false), 0, wxEXPAND);
    auto* const row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(panels, 1, wxRIGHT, kGap);
    row->Add(NewScrolledPane(parent), 0, wxRIGHT, kGap);
    auto* const docked = new DockedPanes(parent);
    docked->SetMinSize(InFontOf(*docked, kDockSize));
    row->Add(docked, 0, wxEXPAND);
    sizer->Add(row, 1, wxEXPAND);
}
