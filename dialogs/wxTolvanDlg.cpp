#include "dialogs/wxTolvanDlg.h"

#include "dialogs/keys/KeyRelease.h"
#include "internal/input/MouseHold.h"
#include "internal/port/FirstSize.h"
#include "internal/port/WindowAttributes.h"
#include "internal/windows/Geometry.h"
#include "shell/wxTolvanFrame.h"
#include "vesta/CallEntry.h"

#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/spinctrl.h>
#include <wx/textentry.h>

#include <algorithm>

namespace
{
constexpr long kStyle =
    wxCAPTION | wxSYSTEM_MENU | wxCLOSE_BOX | wxTAB_TRAVERSAL | wxFRAME_FLOAT_ON_PARENT;
constexpr int kCancelled = 0;
constexpr int kUsualCaptionHeight = 20; // pixels

int CaptionHeight(const wxWindow* window)
{
    const int height = wxSystemSettings::GetMetric(wxSYS_CAPTION_Y, window);
    return height > 0 ? height : kUsualCaptionHeight;
}

// The rectangle, made smaller and moved as far as it must to lie inside the area.
wxRect KeptInside(const wxRect& area, const wxRect& rect)
{
    const wxSize size(std::min(rect.width, area.width), std::min(rect.height, area.height));
    const int    x = std::clamp(rect.x, area.x, area.x + area.width - size.x);
    const int    y = std::clamp(rect.y, area.y, area.y + area.height - size.y);
    return wxRect(wxPoint(x, y), size);
}

wxWindow* FirstControl(const wxWindow& parent)
{
    for (wxWindow* const child : parent.GetChildren())
    {
        if (!child->IsTopLevel() && child->CanAcceptFocusFromKeyboard())
        {
            return child;
        }
    }
    return nullptr;
}

// GTK 3: an entry that has been laid out once asks for more height than it needs from then on.
void KeepSizesOfEntries(const wxWindow& parent)
{
    for (wxWindow* const child : parent.GetChildren())
    {
        if (child->IsTopLevel())
        {
            continue;
        }
        if (dynamic_cast<wxTextEntry*>(child) || dynamic_cast<wxSpinCtrl*>(child))
        {
            child->SetMinSize(child->GetEffectiveMinSize());
        }
        else
        {
            KeepSizesOfEntries(*child);
        }
    }
}
} // namespace

// clang-format off
wxBEGIN_EVENT_TABLE(wxTolvanDlg, wxDialog)
    EVT_CLOSE(wxTolvanDlg::OnClose)
    EVT_BUTTON(wxID_OK, wxTolvanDlg::OnOK)
    EVT_BUTTON(wxID_CANCEL, wxTolvanDlg::OnCancel)
    EVT_INIT_DIALOG(wxTolvanDlg::OnInit)
    EVT_SHOW(wxTolvanDlg::OnShow)
    EVT_CHAR_HOOK(wxTolvanDlg::OnKey)
wxEND_EVENT_TABLE()
// clang-format on

wxTolvanDlg::wxTolvanDlg(const String& positionName, bool modal)
    : m_PositionName(positionName), m_OpenIndex(g_OpenCount[positionName].dialogs++), m_Modal(modal)
{
    CALL_ENTRY("wxTolvanDlg::wxTolvanDlg");
    s_Dialogs.insert(this);
    Manage(this);
}

wxTolvanDlg::wxTolvanDlg(wxWindow* parent, const wxString& title, const String& positionName,
                         bool modal)
    : wxTolvanDlg(positionName, modal)
{
    CreateDialog(parent, title);
}

wxTolvanDlg::~wxTolvanDlg()
{
    internal::EndMouseHold(*this);
    s_Dialogs.erase(this);
    --g_OpenCount[m_PositionName].dialogs;
    s_DlgClosed.Emit();
    for (wxTolvanDlg* const dialog : s_Dialogs)
    {
        if (dialog->GetHandle())
        {
            dialog->Refresh();
        }
    }
}

void wxTolvanDlg::CreateDialog(wxWindow* parent, const wxString& title)
{
    CALL_ENTRY("wxTolvanDlg::CreateDialog");
    SetExtraStyle(GetExtraStyle() | wxTOPLEVEL_EX_DIALOG);
    const long resizable = m_PositionName.empty() ? 0 : wxRESIZE_BORDER;
    const bool created =
        Create(parent ? parent : wxTolvanFrame::s_Frame, wxID_ANY, title, wxDefaultPosition,
               wxDefaultSize, kStyle | resizable, wxASCII_STR(wxFrameNameStr));
    SetExtraStyle(GetExtraStyle() & ~wxWS_EX_BLOCK_EVENTS);
    if (created && m_hasFont)
    {
        // Taken from a parent dialog, whose font is already smaller.
        SetFont(wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT));
    }
    wxFont font = GetFont();
    font.SetPointSize(std::max(1, font.GetPointSize() - 1));
    SetFont(font);
    Manage(this);
}

void wxTolvanDlg::SavePosition()
{
    if (!m_PositionName.empty())
    {
        wxSaveWindowPos(this, m_PositionName);
    }
}

void wxTolvanDlg::RestorePosition()
{
    if (m_PositionName.empty())
    {
        return;
    }
    if (!GetMinSize().IsFullySpecified())
    {
        // Its buttons stay visible, whatever size is stored and whatever the user makes of it.
        SetMinSize(GetSize());
    }
    wxSetWindowPos(this, m_PositionName, CaptionHeight(this) * static_cast<int>(m_OpenIndex));
    const wxRect place = KeptInside(internal::DisplayAreaOf(this), GetRect());
    if (place != GetRect())
    {
        SetSize(place);
    }
}

// Before the window system sees it: a dialog that changes its size as it comes up flickers.
wxVisualAttributes wxTolvanDlg::GetDefaultAttributes() const
{
    return internal::TopLevelAttributes();
}

bool wxTolvanDlg::Show(bool show)
{
    CALL_ENTRY("wxTolvanDlg::Show");
    if (show && !IsShown())
    {
        internal::TakeFonts(*this);
        KeepSizesOfEntries(*this);
        Fit();
    }
    return wxDialog::Show(show);
}

// The frame that the window manager puts around the program's first windows may take its room from
// the content.
void wxTolvanDlg::OnShow(wxShowEvent& event)
{
    event.Skip();
    const wxSize needed = event.IsShown() && GetSizer() ? GetSizer()->GetMinSize() : wxSize();
    if (GetClientSize().x < needed.x || GetClientSize().y < needed.y)
    {
        Fit();
    }
}

void wxTolvanDlg::End(int result)
{
    if (IsRunModally())
    {
        SavePosition();
        EndDialog(result);
        TellFinished();
    }
    else
    {
        SetReturnCode(result);
        Close(true);
    }
}

void wxTolvanDlg::OnOK(wxCommandEvent&)
{
    CALL_ENTRY("wxTolvanDlg::OnOK");
    if (Validate() && TransferDataFromWindow())
    {
        End(wxID_OK);
    }
}

void wxTolvanDlg::OnCancel(wxCommandEvent&)
{
    CALL_ENTRY("wxTolvanDlg::OnCancel");
    End(kCancelled);
}

void wxTolvanDlg::OnClose(wxCloseEvent& event)
{
    CALL_ENTRY("wxTolvanDlg::OnClose");
    SavePosition();
    if (IsRunModally())
    {
        event.Skip(); // a stock Cancel button is clicked then
        TellFinished();
    }
    else
    {
        Destroy();
    }
}

void wxTolvanDlg::OnInit(wxInitDialogEvent& event)
{
    CALL_ENTRY("wxTolvanDlg::OnInit");
    RefreshColors(); // a derived class that made the window itself has not done so yet
    Layout();
    Fit();
    RestorePosition();
    dialogs::KeyRelease::SwallowClicks();
    event.Skip();
    if (wxWindow* const control = FirstControl(*this))
    {
        control->SetFocusFromKbd(); // as by Tab: of radio buttons to the chosen one
    }
    if (IsRunModally())
    {
        m_IsFinished = false;
        s_ModalStarted.Emit();
    }
}

void wxTolvanDlg::OnConnected(bool)
{
}
