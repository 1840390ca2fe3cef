#include "appearance/tabs/TabDrag.h"

#include "appearance/tabs/DropPlace.h"
#include "appearance/tabs/NotebookParts.h"

#include <wx/toplevel.h>

namespace appearance
{
namespace
{
const wxPoint kFromPointer(-40, -10); // pixels, of a new window
constexpr int kMarker = 4;            // pixels, of the place between two tabs
} // namespace

void TabDrag::Begin(wxtNotebook& book, wxWindow* page, wxWindow& source, const wxPoint& screen)
{
    // A quick hand has let go by now, and its release waits behind the motion.
    const bool                   wasDown = wxGetMouseState().LeftIsDown();
    const wxWeakRef<wxtNotebook> aliveBook(&book);
    const wxWeakRef<wxWindow>    alivePage(page);
    const wxWeakRef<wxWindow>    aliveSource(&source);
    // The handler may take its time, in which the release comes, or goes to a dialog.
    bool              isOver = false;
    const InputFilter ends(
        [&](const wxEvent& event)
        {
            const wxEventType type = event.GetEventType();
            isOver =
                isOver || type == wxEVT_LEFT_UP ||
                (type == wxEVT_ACTIVATE && !static_cast<const wxActivateEvent&>(event).GetActive());
            return false;
        });
    const bool mayDrag =
        book.Send(wxEVT_AUINOTEBOOK_BEGIN_DRAG, book.FindPage(page), book.FindPage(page));
    if (mayDrag && !isOver && aliveBook && alivePage && aliveSource &&
        aliveSource->IsShownOnScreen() && aliveSource->IsEnabled() &&
        (!wasDown || wxGetMouseState().LeftIsDown()) && !wxWindow::GetCapture())
    {
        book.m_Parts->drag.reset(new TabDrag(book, page, source));
        book.m_Parts->drag->Follow(screen, true);
    }
}

TabDrag::TabDrag(wxtNotebook& book, wxWindow* page, wxWindow& source)
    : m_Book(book),
      m_Page(page),
      m_Source(&source),
      m_Hint(book),
      m_Keys(
          [this](wxEvent& event)
          {
              // The toolkit sends no hook while the mouse is held.
              const wxEventType type = event.GetEventType();
              const bool        isEscape = (type == wxEVT_CHAR_HOOK || type == wxEVT_KEY_DOWN) &&
                                    static_cast<wxKeyEvent&>(event).GetKeyCode() == WXK_ESCAPE;
              if (isEscape)
              {
                  Cancel();
              }
              return isEscape;
          })
{
    book.TabsOf(page, &m_FirstPlace);
    source.CaptureMouse();
}

TabDrag::~TabDrag()
{
    ReleaseSource();
}

// The source is still what the toolkit knows it as.
void TabDrag::EndWith(wxtNotebook& book, const wxWindow& source)
{
    if (book.m_Parts->drag && book.m_Parts->drag->m_Source == &source)
    {
        book.m_Parts->drag.reset();
    }
}

void TabDrag::ReleaseSource()
{
    if (m_Source && m_Source->HasCapture())
    {
        m_Source->ReleaseMouse();
    }
    if (m_Source)
    {
        m_Source->SetCursor(wxNullCursor);
    }
}

bool TabDrag::IsOwnRow(const TabStrip& strip) const
{
    return strip.Tabs() == m_Source;
}

// The window that it is dragged out of may lie over the notebook.
bool TabDrag::IsOnSource(const wxPoint& screen) const
{
    wxWindow* const top = wxGetTopLevelParent(m_Source);
    return top && top != wxGetTopLevelParent(&m_Book) && top->GetScreenRect().Contains(screen);
}

TabDrag::Target TabDrag::InRow(TabStrip& strip, const wxPoint& screen)
{
    const TabRow row = strip.Row();
    const int    x = screen.x - strip.ScreenRect().x;
    Target       target{Place::row, strip.Tabs(), 0, DropSide::middle, wxRect()};
    int          place = -1;
    if (IsOwnRow(strip) && m_Book.TabsOf(m_Page, &place))
    {
        target.index = row.PlaceFor(static_cast<size_t>(place), x);
    }
    else
    {
        target.index = row.PlaceAt(x);
        target.hint = strip.ScreenRect();
        target.hint.x += row.EdgeOf(target.index) - kMarker / 2;
        target.hint.width = kMarker;
    }
    return target;
}

TabDrag::Target TabDrag::OnPane(TabStrip& strip, const wxPoint& screen)
{
    const wxRect  client = m_Book.PaneRect(*strip.Tabs());
    const wxRect  pane(m_Book.ClientToScreen(client.GetPosition()), client.GetSize());
    const bool    isAlone = IsOwnRow(strip) && strip.Tabs()->GetPageCount() < 2;
    const bool    maySplit = m_Book.GetWindowStyleFlag() & wxAUI_NB_TAB_SPLIT;
    const wxPoint at = screen;
    const auto    side = maySplit && !isAlone ? SideOf(pane, at) : DropSide::middle;
    if (side != DropSide::middle)
    {
        return {Place::side, strip.Tabs(), 0, side, HalfOf(pane, side)};
    }
    if (IsOwnRow(strip))
    {
        return {};
    }
    return {Place::row, strip.Tabs(), strip.Tabs()->GetPageCount(), DropSide::middle, pane};
}

TabDrag::Target TabDrag::TargetAt(const wxPoint& screen)
{
    if (IsOnSource(screen))
    {
        return {};
    }
    const bool mayMove = m_Book.GetWindowStyleFlag() & wxAUI_NB_TAB_MOVE;
    for (wxAuiTabCtrl* const tabs : m_Book.AllTabs())
    {
        TabStrip& strip = m_Book.StripOf(*tabs);
        if (strip.ScreenRect().Contains(screen))
        {
            return mayMove ? InRow(strip, screen) : Target{};
        }
        if (m_Book.PaneRect(*tabs).Contains(m_Book.ScreenToClient(screen)))
        {
            return mayMove ? OnPane(strip, screen) : Target{};
        }
    }
    if (m_Book.GetScreenRect().Contains(screen))
    {
        // On a sash; or the notebook has no pane.
        const bool isEmpty = m_Book.GetPageCount() == 0;
        return isEmpty ? Target{Place::row, nullptr, 0, DropSide::middle, m_Book.GetScreenRect()}
                       : Target{};
    }
    // The last page in a window of its own would leave nothing behind, and one that has a window
    // has it.
    if (!m_Book.AllowsWindows() || m_Book.WindowOf(m_Page))
    {
        return {};
    }
    return {Place::window, nullptr, 0, DropSide::middle,
            wxRect(screen + kFromPointer, m_Page->GetSize())};
}

void TabDrag::Follow(const wxPoint& screen, bool isDown)
{
    if (!m_Page || !m_Source || !isDown)
    {
        Cancel(); // released where nobody heard it
        return;
    }
    const Target target = TargetAt(screen);
    m_Hint.Show(target.hint);
    const bool isHere = target.place == Place::row && target.tabs == m_Source;
    m_Source->SetCursor(isHere                           ? wxNullCursor
                        : target.place == Place::nowhere ? wxCursor(wxCURSOR_NO_ENTRY)
                                                         : wxCursor(wxCURSOR_SIZING));
    int place = -1;
    if (isHere && m_Book.TabsOf(m_Page, &place) && static_cast<size_t>(place) != target.index)
    {
        m_Book.MoveTo(m_Page, *target.tabs, target.index);
    }
}

void TabDrag::Drop(const wxPoint& screen)
{
    const std::unique_ptr<TabDrag> self = std::move(m_Book.m_Parts->drag);
    if (m_Page && m_Source)
    {
        const Target target = TargetAt(screen);
        ReleaseSource();
        m_Hint.Hide();
        GoTo(target);
    }
}

void TabDrag::GoTo(const Target& target)
{
    const wxWeakRef<wxtNotebook> book(&m_Book);
    wxWindow* const              page = m_Page;
    const bool                   isHere = target.place == Place::row && target.tabs == m_Source;
    if (target.place == Place::nowhere ||
        (isHere && target.index == static_cast<size_t>(m_FirstPlace)))
    {
        return;
    }
    if (target.place == Place::window)
    {
        m_Book.MoveToWindow(page, target.hint);
    }
    else
    {
        if (m_Book.WindowOf(page))
        {
            m_Book.Dock(page, target.tabs, target.index);
        }
        else if (target.tabs && target.place == Place::row)
        {
            m_Book.MoveTo(page, *target.tabs, target.index);
        }
        if (target.place == Place::side)
        {
            m_Book.SplitBeside(page, *target.tabs, target.side);
        }
    }
    if (book)
    {
        book->TellOfMove(page);
    }
}

void TabDrag::Cancel()
{
    const std::unique_ptr<TabDrag> self = std::move(m_Book.m_Parts->drag);
    int                            place = -1;
    wxAuiTabCtrl* const            tabs = m_Page ? m_Book.TabsOf(m_Page, &place) : nullptr;
    if (tabs && tabs == m_Source && place != m_FirstPlace)
    {
        m_Book.MoveTo(m_Page, *tabs, static_cast<size_t>(m_FirstPlace));
    }
}
} // namespace appearance
