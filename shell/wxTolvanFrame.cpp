#include "shell/wxTolvanFrame.h"

#include "internal/input/MouseHold.h"
#include "internal/port/PopUps.h"
#include "internal/port/WindowAttributes.h"
#include "internal/windows/Geometry.h"
#include "internal/windows/UpperFloors.h"
#include "shell/app/TopWindow.h"
#include "shell/frames/FrameColors.h"
#include "shell/frames/FrameExtents.h"
#include "shell/wxTolvanApp.h"
#include "vesta/CallEntry.h"

#include <wx/image.h>
#include <wx/imagpng.h>
#include <wx/menu.h>

wxTolvanFrame*           wxTolvanFrame::s_Frame = nullptr;
Signal0<>                wxTolvanFrame::s_WinClosed;
bool                     wxTolvanFrame::s_MenuOpen = false;
std::set<wxTolvanFrame*> g_ChildFrames;

namespace
{
// Pixels; the toolkit gives a window that is coming up sizes that nobody could use.
constexpr int kLeastSide = 32;

// Keys in section "Window" of the options file.
const char* const kSection = "Window";
const char* const kGeometryKey = "Window";
const char* const kMinimizedKey = "IsMinimized";
const char* const kMaximizedKey = "IsMaximized";
const char* const kFullScreenKey = "IsFullScreen";

// Nobody but a frame hears of the menus.
const bool kAnswersForMenus =
    (internal::g_UpperFloors.isMenuOpen = &wxTolvanFrame::IsMenuOpen, true);

constexpr long kToolFrameStyle = wxCAPTION | wxFRAME_FLOAT_ON_PARENT | wxFRAME_TOOL_WINDOW;
} // namespace

// clang-format off
wxBEGIN_EVENT_TABLE(wxTolvanFrame, wxFrame)
    EVT_MOVE(wxTolvanFrame::OnMove)
    EVT_SIZE(wxTolvanFrame::OnSize)
    EVT_MENU_OPEN(wxTolvanFrame::OnMenuOpen)
    EVT_MENU_HIGHLIGHT_ALL(wxTolvanFrame::OnMenuOpen)
    EVT_MENU_CLOSE(wxTolvanFrame::OnMenuClose)
    EVT_ACTIVATE(wxTolvanFrame::OnActivate)
wxEND_EVENT_TABLE()
// clang-format on

wxTolvanFrame::wxTolvanFrame(const wxString& title, const wxPoint& position, const wxSize& size,
                             long style)
    : wxFrame(nullptr, wxID_ANY, title, position, size, style)
{
    CALL_ENTRY("wxTolvanFrame::wxTolvanFrame");
    if (s_Frame)
    {
        JoinMainFrame();
    }
    else
    {
        BecomeMainFrame();
    }
    Manage(this);
    shell::TopWindowWatch::Look();
}

wxTolvanFrame::wxTolvanFrame(wxWindow* parent, const wxString& title, long style)
    : wxFrame(parent, wxID_ANY, title, wxDefaultPosition, wxDefaultSize, style | kToolFrameStyle)
{
    CALL_ENTRY("wxTolvanFrame::wxTolvanFrame");
    g_ChildFrames.insert(this);
    Manage(this);
    shell::TopWindowWatch::Look();
}

void wxTolvanFrame::BecomeMainFrame()
{
    s_Frame = this;
    if (!wxImage::FindHandler(wxBITMAP_TYPE_PNG))
    {
        wxImage::AddHandler(new wxPNGHandler);
    }
    if (g_Scheme == -1)
    {
        LoadColorScheme();
    }
    shell::AnswerColorRequests();
}

void wxTolvanFrame::JoinMainFrame()
{
    g_ChildFrames.insert(this);
    const wxIcon icon = s_Frame->GetIcon();
    if (icon.IsOk())
    {
        SetIcon(icon);
    }
}

wxTolvanFrame::~wxTolvanFrame()
{
    internal::EndMouseHold(*this);
    if (this == s_Frame)
    {
        s_Frame = nullptr;
        while (!g_ChildFrames.empty())
        {
            wxTolvanFrame* const child = *g_ChildFrames.begin();
            g_ChildFrames.erase(child);
            delete child;
        }
    }
    else
    {
        g_ChildFrames.erase(this);
    }
    s_WinClosed.DisconnectAll();
}

void wxTolvanFrame::SizeHasChanged(const wxSize&, const wxSize&, bool)
{
}

void wxTolvanFrame::PositionHasChanged(const wxPoint&, const wxPoint&)
{
}

bool wxTolvanFrame::IsMenuOpen()
{
    return s_MenuOpen;
}

bool wxTolvanFrame::ClosePopUp()
{
    CALL_ENTRY("wxTolvanFrame::ClosePopUp");
    return internal::ClosePopUps();
}

void wxTolvanFrame::LoadWindowPosition()
{
    CALL_ENTRY("wxTolvanFrame::LoadWindowPosition");
    wxSetWindowPos(this, kSection, 0);
    m_Position = GetPosition();
    m_NormalSize = GetSize();
    m_LastSize = m_NormalSize;
    // "IsMinimized" is not read: a program that starts iconised looks as if it had not started.
    const OptionsFile& options = Application::the_Application->Options();
    m_WasMaximized = options.GetBool(kSection, kMaximizedKey, false);
    m_WasFullScreen = options.GetBool(kSection, kFullScreenKey, false);
    m_MaximizedBehind = m_WasMaximized && m_WasFullScreen;
    Maximize(m_WasMaximized);
    ShowFullScreen(m_WasFullScreen, wxFULLSCREEN_ALL);
}

void wxTolvanFrame::SaveWindowPosition() const
{
    CALL_ENTRY("wxTolvanFrame::SaveWindowPosition");
    OptionsFile&                      options = Application::the_Application->Options();
    const OptionsFile::PauseAutoWrite pause(options);
    const WriteLock                   lock(options.Lock());
    const String                      stored = options.GetValue(kSection, kGeometryKey);
    options.SetValue(kSection, kGeometryKey,
                     internal::GeometryToStore(stored, wxRect(m_Position, m_NormalSize),
                                               internal::Displays::Get().placesWindows()));
    if (!IsFullScreen()) // it has no frame then
    {
        shell::SaveFrameExtents(*this, kSection);
    }
    options.SetValue(kSection, kMinimizedKey, String::FromBool(IsIconized()));
    options.SetValue(kSection, kMaximizedKey,
                     String::FromBool(m_WasMaximized || m_MaximizedBehind));
    // A maximised window may become as large as the screen without an event that tells of it.
    options.SetValue(kSection, kFullScreenKey, String::FromBool(IsFullScreen()));
}

wxVisualAttributes wxTolvanFrame::GetDefaultAttributes() const
{
    return internal::TopLevelAttributes();
}

void wxTolvanFrame::OnMove(wxMoveEvent& event)
{
    CALL_ENTRY("wxTolvanFrame::OnMove");
    event.Skip();
    if (m_Built && !IsIconized() && !IsMaximized() && !IsFullScreen())
    {
        const wxPoint old = m_Position;
        m_Position = GetPosition();
        PositionHasChanged(m_Position, old);
    }
}

// Some window managers end the maximised state while the frame is full screen, and take it up again
// behind that.
void wxTolvanFrame::NoteState()
{
    m_MaximizedBehind = IsFullScreen() && (m_WasMaximized || m_MaximizedBehind);
    m_WasMaximized = IsMaximized();
    m_WasFullScreen = IsFullScreen();
}

void wxTolvanFrame::OnSize(wxSizeEvent& event)
{
    CALL_ENTRY("wxTolvanFrame::OnSize");
    event.Skip();
    if (!m_Built)
    {
        LogDebug("Size event ignored because gui is not finished building");
        return;
    }
    if (event.GetSize().x < kLeastSide || event.GetSize().y < kLeastSide)
    {
        LogDebug("Size event ignored because the window has not been laid out yet");
        return;
    }
    if (event.GetSize() == m_LastSize)
    {
        LogDebug("Size event ignored because it is a duplicate event");
        if (IsMaximized() || IsFullScreen())
        {
            NoteState(); // the one state may be as large as the other
        }
        return;
    }
    const wxSize oldSize = m_LastSize;
    m_LastSize = event.GetSize();
    const bool restoring =
        (m_WasMaximized && !IsMaximized()) || (m_WasFullScreen && !IsFullScreen());
    NoteState();
    const bool normal = !m_WasMaximized && !m_WasFullScreen;
    if (restoring && normal && m_LastSize != m_NormalSize)
    {
        // Window managers first report the old, large size; the resize brings a further event.
        SetSize(-1, -1, m_NormalSize.x, m_NormalSize.y, wxSIZE_USE_EXISTING);
        LogDebug("Size event ignored because we're restoring the correct size");
        return;
    }
    if (normal)
    {
        m_NormalSize = m_LastSize;
    }
    SizeHasChanged(m_LastSize, oldSize, restoring);
}

void wxTolvanFrame::OnMenuOpen(wxMenuEvent& event)
{
    event.Skip();
    s_MenuOpen = true;
}

void wxTolvanFrame::OnMenuClose(wxMenuEvent& event)
{
    event.Skip();
    // One in another menu closes alone.
    if (!event.GetMenu() || !event.GetMenu()->GetParent())
    {
        s_MenuOpen = false;
    }
}

void wxTolvanFrame::OnActivate(wxActivateEvent& event)
{
    event.Skip();
    if (auto* const app = dynamic_cast<wxTolvanApp*>(wxTheApp))
    {
        app->ActivateEvent(event);
    }
}
