#include "shell/OpenWindows.h"

#include "appearance/wxTolvanString.h"
#include "shell/_Geometry.h"
#include "vesta/CallEntry.h"

#include <wx/app.h>
#include <wx/control.h>
#include <wx/display.h>
#include <wx/menu.h>
#include <wx/toplevel.h>

#include <algorithm>
#include <map>

namespace
{
constexpr int     kUnsizedBelow = 100; // pixels; a window never given a size is smaller
const char* const kGroupIndent = "   ";
OpenWindows       s_OpenWindows;
} // namespace

OpenWindows* const OpenWindows::_this = &s_OpenWindows;

void wxOpenUserWindow(wxTopLevelWindow* window, const String& name)
{
    CALL_ENTRY("wxOpenUserWindow");
    OpenWindows::_this->AddWindow(window, name);
    const wxSize size = window->GetSize();
    if (window->IsVisible() && (size.x < kUnsizedBelow || size.y < kUnsizedBelow))
    {
        OpenWindows::_this->CenterOnDisplay(wxTheApp->GetTopWindow(), window);
    }
}

wxMenu* wxGetOpenWindowMenu()
{
    return OpenWindows::_this->GetMenu();
}

OpenWindows::OpenWindows() = default;

OpenWindows::~OpenWindows()
{
    // The menu is left to the process's end: the toolkit is gone by the time that statics are
    // destroyed.
}

void OpenWindows::AddWindow(wxTopLevelWindow* window, const String& name)
{
    CALL_ENTRY("OpenWindows::AddWindow");
    window->Bind(wxEVT_CLOSE_WINDOW, &OpenWindows::OnClose, this);
    m_Windows.push_back({window, name.empty() ? String() : kGroupIndent + name});
}

void OpenWindows::Clear()
{
    CALL_ENTRY("OpenWindows::Clear");
    m_Windows.clear();
}

size_t OpenWindows::Count()
{
    DropDeadWindows();
    return m_Windows.size();
}

void OpenWindows::DropDeadWindows()
{
    const auto isDead = [](const Datum& datum) { return !datum.window; };
    m_Windows.erase(std::remove_if(m_Windows.begin(), m_Windows.end(), isDead), m_Windows.end());
}

void OpenWindows::OnClose(wxCloseEvent& event)
{
    CALL_ENTRY("OpenWindows::OnClose");
    event.Skip();
    const auto isClosed = [&event](const Datum& datum)
    { return datum.window.get() == event.GetEventObject(); };
    const auto found = std::find_if(m_Windows.begin(), m_Windows.end(), isClosed);
    if (found != m_Windows.end())
    {
        m_Windows.erase(found);
    }
}

wxMenu* OpenWindows::GetMenu()
{
    CALL_ENTRY("OpenWindows::GetMenu");
    DropDeadWindows();
    if (!m_Menu)
    {
        m_Menu = new wxMenu;
        wxTheApp->GetTopWindow()->Bind(wxEVT_MENU, &OpenWindows::OnCommand, this, id_MainWindow,
                                       id_CollectAll);
    }
    while (m_Menu->GetMenuItemCount() > 0)
    {
        m_Menu->Destroy(m_Menu->FindItemByPosition(0));
    }
    if (m_Windows.empty())
    {
        m_Menu->Append(wxID_ANY, wxGetTranslation("No open windows"))->Enable(false);
    }
    m_Menu->Append(id_MainWindow, wxGetTranslation("Main Window"));
    AppendWindows(*m_Menu);
    m_Menu->Append(id_CloseAll, wxGetTranslation("Close All"));
    return m_Menu;
}

void OpenWindows::AppendWindows(wxMenu& menu)
{
    if (m_Windows.empty())
    {
        return;
    }
    std::map<String, std::vector<wxMenuItem*>> groups;
    int                                        id = id_FirstWindow;
    for (const Datum& datum : m_Windows)
    {
        if (id > id_LastWindow)
        {
            break;
        }
        groups[datum.group].push_back(
            new wxMenuItem(&menu, id++, wxControl::EscapeMnemonics(datum.window->GetTitle())));
    }
    for (const auto& group : groups)
    {
        menu.AppendSeparator();
        if (!group.first.empty())
        {
            menu.Append(wxID_ANY, wxtToWx(group.first))->Enable(false);
        }
        for (wxMenuItem* const item : group.second)
        {
            menu.Append(item);
        }
    }
    menu.AppendSeparator();
    menu.Append(id_CollectAll, wxGetTranslation("Collect All"),
                wxGetTranslation("Center all open windows over the main window"));
}

void OpenWindows::OnCommand(wxCommandEvent& event)
{
    CALL_ENTRY("OpenWindows::OnCommand");
    event.Skip();
    DropDeadWindows();
    wxWindow* const top = wxTheApp->GetTopWindow();
    const int       id = event.GetId();
    // Closing windows changes the list.
    const std::vector<Datum> windows = m_Windows;
    if (id == id_MainWindow)
    {
        top->Raise();
    }
    else if (id == id_CloseAll || id == id_CollectAll)
    {
        for (const Datum& datum : windows)
        {
            // A window may have taken another one with it.
            if (datum.window && id == id_CloseAll)
            {
                datum.window->Close(false);
            }
            else if (datum.window)
            {
                CenterOnDisplay(top, datum.window);
            }
        }
    }
    else if (id >= id_FirstWindow && id - id_FirstWindow < static_cast<int>(windows.size()))
    {
        windows[static_cast<size_t>(id - id_FirstWindow)].window->Raise();
    }
}

void OpenWindows::CenterOnDisplay(wxWindow* reference, wxWindow* window)
{
    CALL_ENTRY("OpenWindows::CenterOnDisplay");
    const wxRect place =
        _CentredOn(_DisplayAreaOf(reference), reference->GetSize(), window->GetSize());
    window->Freeze();
    window->Move(place.GetPosition());
    window->SetSize(place.GetSize());
    window->Raise();
    window->Thaw();
}
