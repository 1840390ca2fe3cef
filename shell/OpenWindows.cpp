#include "shell/OpenWindows.h"

#include "appearance/wxTolvanString.h"
#include "internal/windows/Geometry.h"
#include "vesta/CallEntry.h"
#include "vesta/Log.h"

#include <wx/app.h>
#include <wx/control.h>
#include <wx/display.h>
#include <wx/toplevel.h>

#include <algorithm>
#include <map>

namespace
{
constexpr int     kUnsizedBelow = 100; // pixels; a window never given a size is smaller
const char* const kGroupIndent = "   ";
OpenWindows       s_OpenWindows;

// The text as a menu shows it: what would be a mnemonic or an accelerator is text, and the toolkit
// takes no empty label.
wxString Label(const wxString& text)
{
    wxString label = wxControl::EscapeMnemonics(text);
    label.Replace("\t", " ");
    return label.empty() ? wxString(" ") : label;
}
} // namespace

OpenWindows* const OpenWindows::_this = &s_OpenWindows;

void wxOpenUserWindow(wxTopLevelWindow* window, const String& name)
{
    CALL_ENTRY("wxOpenUserWindow");
    if (!window)
    {
        LogWarning("No window to register as one that the user has opened");
        return;
    }
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

OpenWindows::~OpenWindows() = default;

void OpenWindows::AddWindow(wxTopLevelWindow* window, const String& name)
{
    CALL_ENTRY("OpenWindows::AddWindow");
    const String shown = name.empty() ? String() : kGroupIndent + name;
    m_Windows.push_back({window, shown});
    window->Bind(wxEVT_CLOSE_WINDOW, &OpenWindows::OnClose, this);
    RefillLater();
}

void OpenWindows::Clear()
{
    CALL_ENTRY("OpenWindows::Clear");
    m_Windows.clear();
    DeletePendingEvents();
    // Not left to the destructor: the toolkit is gone by then.
    if (m_Menu && !m_Menu->IsAttached() && !m_Menu->GetParent())
    {
        delete m_Menu.get();
    }
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
        RefillLater();
    }
}

// GTK 3 shows a menu of a menu bar in the size that it had before it was asked for: items that a
// program adds when it opens are cut off. Later, because the menu's own command may be at work.
void OpenWindows::RefillLater()
{
    if (m_Menu && m_Menu->IsAttached())
    {
        CallAfter(
            [this]
            {
                if (m_Menu && m_Menu->IsAttached())
                {
                    GetMenu();
                }
            });
    }
}

wxMenu* OpenWindows::GetMenu()
{
    CALL_ENTRY("OpenWindows::GetMenu");
    DropDeadWindows();
    if (!m_Menu)
    {
        m_Menu = new wxMenu;
    }
    BindTo(wxTheApp->GetTopWindow());
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

// Once, however often the menu is filled; the program may have another top window by now.
void OpenWindows::BindTo(wxWindow* top)
{
    if (top)
    {
        top->Unbind(wxEVT_MENU, &OpenWindows::OnCommand, this, id_MainWindow, id_CollectAll);
        top->Bind(wxEVT_MENU, &OpenWindows::OnCommand, this, id_MainWindow, id_CollectAll);
    }
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
        groups[datum.group].push_back(new wxMenuItem(&menu, id++, Label(datum.window->GetTitle())));
    }
    for (const auto& group : groups)
    {
        menu.AppendSeparator();
        if (!group.first.empty())
        {
            menu.Append(wxID_ANY, Label(wxtToWx(group.first)))->Enable(false);
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
    const int id = event.GetId();
    if (id == id_CloseAll)
    {
        CloseAll();
    }
    else if (id == id_CollectAll)
    {
        CollectAll();
    }
    else if (id >= id_FirstWindow && id <= id_LastWindow)
    {
        RaiseWindow(static_cast<size_t>(id - id_FirstWindow));
    }
    else if (wxWindow* const top = id == id_MainWindow ? wxTheApp->GetTopWindow() : nullptr)
    {
        top->Raise();
    }
}

// A window that has died without having been closed keeps its place until the menu is filled anew:
// the items after it still mean their own windows.
void OpenWindows::RaiseWindow(size_t place)
{
    if (place < m_Windows.size() && m_Windows[place].window)
    {
        m_Windows[place].window->Raise();
    }
}

void OpenWindows::CloseAll()
{
    // Each takes itself off the list, and may take others with it.
    const std::vector<Datum> windows = m_Windows;
    for (const Datum& datum : windows)
    {
        if (datum.window)
        {
            datum.window->Close(false);
        }
    }
}

void OpenWindows::CollectAll()
{
    const std::vector<Datum> windows = m_Windows;
    for (const Datum& datum : windows)
    {
        CenterOnDisplay(wxTheApp->GetTopWindow(), datum.window);
    }
}

void OpenWindows::CenterOnDisplay(wxWindow* reference, wxWindow* window)
{
    CALL_ENTRY("OpenWindows::CenterOnDisplay");
    if (!reference || !window)
    {
        return;
    }
    const wxRect place = internal::CentredOn(internal::DisplayAreaOf(reference),
                                             reference->GetSize(), window->GetSize());
    window->Freeze();
    window->Move(place.GetPosition());
    window->SetSize(place.GetSize());
    window->Raise();
    window->Thaw();
}
