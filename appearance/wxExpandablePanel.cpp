#include "appearance/wxExpandablePanel.h"

#include "appearance/ColorScheme.h"
#include "appearance/controls/ClickStatic.h"
#include "appearance/controls/collapse.xpm"
#include "appearance/controls/expand.xpm"
#include "appearance/wxtColorManaged.h"
#include "appearance/wxtStockControls.h"
#include "internal/input/ForeignPress.h"
#include "vesta/Application.h"
#include "vesta/CallEntry.h"

#include <wx/control.h>
#include <wx/scrolwin.h>
#include <wx/wupdlock.h>

namespace
{
// Kept to the process's end: the toolkit may be gone by the time that statics are destroyed.
const wxBitmap& ExpandImage()
{
    static const wxBitmap& s_Image = *new wxBitmap(expand_xpm);
    return s_Image;
}

const wxBitmap& CollapseImage()
{
    static const wxBitmap& s_Image = *new wxBitmap(collapse_xpm);
    return s_Image;
}

const wxBitmap& ImageFor(bool expanded)
{
    return expanded ? CollapseImage() : ExpandImage();
}

// A sizer whose items take part only while the panel is open, also those that are added later.
class ContentSizer : public wxBoxSizer
{
public:
    explicit ContentSizer(const bool& expanded) : wxBoxSizer(wxVERTICAL), m_Expanded(expanded) {}

    wxSize CalcMin() override
    {
        if (m_Expanded)
        {
            return wxBoxSizer::CalcMin();
        }
        ShowItems(false);
        return wxSize(0, 0);
    }

private:
    const bool& m_Expanded; // the panel's, which owns the sizer
};

// A panel that grows moves its neighbours, and the panel that it lies in grows with it.
void LayoutUpwards(wxWindow* window)
{
    for (; window; window = window->GetParent())
    {
        window->InvalidateBestSize();
        if (dynamic_cast<wxScrollHelperBase*>(window))
        {
            window->FitInside();
        }
        window->Layout();
        if (window->IsTopLevel())
        {
            break;
        }
    }
}
} // namespace

appearance::_ClickStatic::_ClickStatic(wxWindow* parent, wxWindowID id, const wxString& label)
    : wxtStaticText(parent, id, label)
{
    Bind(wxEVT_LEFT_UP, &appearance::_ClickStatic::OnClick, this);
    internal::RefuseForeignRelease(*this);
}

void appearance::_ClickStatic::OnClick(wxMouseEvent& event)
{
    CALL_ENTRY("_ClickStatic::OnClick");
    // A press that is let go elsewhere has been thought better of.
    if (event.LeftIsDown() || !IsEnabled() || !GetClientRect().Contains(event.GetPosition()))
    {
        return;
    }
    wxCommandEvent command(wxEVT_BUTTON, wxExpandablePanel::id_Expand);
    command.SetEventObject(this);
    GetEventHandler()->ProcessEvent(command);
}

// clang-format off
wxBEGIN_EVENT_TABLE(wxExpandablePanel, wxtPanel)
    EVT_BUTTON(wxExpandablePanel::id_Expand, wxExpandablePanel::OnExpand)
wxEND_EVENT_TABLE()
// clang-format on

wxExpandablePanel::wxExpandablePanel(wxWindow* parent, wxOrientation orientation)
    : wxtPanel(parent), m_Orientation(orientation)
{
}

void wxExpandablePanel::CreateInfrastructure(const wxString& tip, bool expandable)
{
    CALL_ENTRY("wxExpandablePanel::Create");
    auto* const whole = new wxBoxSizer(m_Orientation);
    SetSizer(whole);
    SetToolTip(tip);
    whole->Add(CreateHeader(tip, expandable));
    m_ContentSizer = new ContentSizer(m_Expanded);
    whole->Add(m_ContentSizer, 1, wxEXPAND);
    whole->Show(m_ContentSizer, m_Expanded);
    Layout();
}

wxSizer* wxExpandablePanel::CreateHeader(const wxString& tip, bool expandable)
{
    auto* const header = new wxBoxSizer(wxHORIZONTAL);
    m_Expanded = true; // what cannot be opened is open
    if (expandable)
    {
        m_Expanded = Application::the_Application->Options().GetBool(m_Section, m_Key, false);
        CreateButton(tip);
        header->Add(m_ExpandButton, 0, wxALIGN_CENTER_VERTICAL);
    }
    m_Caption = new appearance::_ClickStatic(this, id_Caption, Caption());
    m_Caption->SetToolTip(tip);
    m_Caption->Enable(expandable);
    header->Add(m_Caption, 0, wxALIGN_CENTER_VERTICAL);
    return header;
}

void wxExpandablePanel::CreateButton(const wxString& tip)
{
    m_ExpandButton = new wxtBitmapButton(this, id_Expand, ImageFor(m_Expanded), wxDefaultPosition,
                                         wxDefaultSize, wxBORDER_NONE | wxBU_EXACTFIT);
    m_ExpandButton->m_BackgroundName = color_WindowBG;
    m_ExpandButton->m_BackgroundOffset = 0;
    m_ExpandButton->RefreshColors();
    m_ExpandButton->SetToolTip(tip);
}

const wxString& wxExpandablePanel::Caption() const
{
    return m_Expanded ? m_ExpandedCaption : m_CollapsedCaption;
}

void wxExpandablePanel::Expand()
{
    CALL_ENTRY("wxExpandablePanel::Expand");
    const wxWindowUpdateLocker frozen(GetParent());
    if (!m_Expanded)
    {
        TakeKeysFromContent();
    }
    GetSizer()->Show(m_ContentSizer, m_Expanded);
    if (m_ExpandButton)
    {
        m_ExpandButton->SetBitmap(ImageFor(m_Expanded));
    }
    m_Caption->SetLabel(Caption());
    LayoutUpwards(this);
}

// A window that is hidden with the keyboard leaves nobody to type to.
void wxExpandablePanel::TakeKeysFromContent()
{
    wxWindow* const focused = FindFocus();
    if (m_ExpandButton && focused && focused != m_ExpandButton && IsDescendant(focused))
    {
        m_ExpandButton->SetFocus();
    }
}

void wxExpandablePanel::OnExpand(wxCommandEvent&)
{
    CALL_ENTRY("wxExpandablePanel::OnExpand");
    m_Expanded = !m_Expanded;
    Expand();
    OptionsFile&    options = Application::the_Application->Options();
    const WriteLock lock(options.Lock());
    options.InsertSection(m_Section);
    options.SetValue(m_Section, m_Key, m_Expanded ? "1" : "0");
}
