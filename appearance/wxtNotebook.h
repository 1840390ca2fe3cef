#pragma once

#include "appearance/wxtColorManaged.h"
#include "appearance/wxtTabArt.h"
#include "vesta/Export.h"
#include "vesta/String.h"

#include <wx/aui/auibook.h>
#include <wx/weakref.h>

#include <functional>
#include <memory>
#include <vector>

class wxFrame;
class wxMenu;

namespace appearance
{
enum class DropSide;
class PageBar;
class PageChooser;
class TabDrag;
class TabStrip;
struct PageData;
struct PageWindow;
struct PanePlace;
struct TabLayout;
} // namespace appearance

/// Pages with tabs in the colours of the scheme: a stand-in for the stock `wxAuiNotebook`, with its
/// events. Tabs that do not fit become narrower, with their texts shortened in the middle (a
/// tooltip has the whole), and then scroll: by the wheel, by two buttons, and a third opens a list
/// of all pages. A tab is dragged to its place, to another pane, to the side of a pane, which it
/// splits, and out of the notebook into a window of its own. A middle click closes a page. Ctrl+Tab
/// and Ctrl+Shift+Tab go through the pages in the order in which they were used, with a list while
/// Ctrl is held, pages in windows of their own among them; Ctrl+PgUp and Ctrl+PgDn go to the
/// neighbours in the tabs, with Shift they move the tab. The same keys work in a page's own window:
/// its neighbours are those of the place that it came from, and the window of the page that is
/// chosen comes to the front. So do the keys of the menus of the notebook's frame: a command of
/// theirs is about `PageInUse`. When a tab has the keys the arrows, Home and End select, Enter and
/// Down lead into the page, Delete closes it, and the menu key opens the menu of the tab, as a
/// right click does.
///
/// Events of the toolkit's that are sent: `wxEVT_AUINOTEBOOK_PAGE_CHANGING` (veto: the page stays)
/// and `PAGE_CHANGED`, `PAGE_CLOSE` (veto: it is not closed) and `PAGE_CLOSED`, `BEGIN_DRAG` (veto:
/// it is not dragged) and `DRAG_DONE` when the user has moved a page, also into a window and back
/// (then its selection is `wxNOT_FOUND` and the new index), `TAB_MIDDLE_DOWN`, `TAB_MIDDLE_UP`,
/// `TAB_RIGHT_DOWN` and `TAB_RIGHT_UP` (a handler that does not skip it takes the place of what the
/// notebook does) and `BG_DCLICK`. A handler may close any page and destroy the notebook. A page
/// that is destroyed leaves the notebook by itself.
///
/// Pages in windows of their own are none of the notebook's indices, but belong to it all the same.
/// Main thread.
class TOLVAN_API wxtNotebook : public wxAuiNotebook, public wxtColorManaged
{
public:
    static constexpr long k_Style = wxAUI_NB_TOP | wxAUI_NB_TAB_SPLIT | wxAUI_NB_TAB_MOVE |
                                    wxAUI_NB_CLOSE_ON_ALL_TABS | wxAUI_NB_MIDDLE_CLICK_CLOSE;

    explicit wxtNotebook(wxWindow* parent, wxWindowID id = wxID_ANY,
                         const wxPoint& position = wxDefaultPosition,
                         const wxSize& size = wxDefaultSize, long style = k_Style);
    ~wxtNotebook() override;

    /// @name Pages
    /// As in the toolkit; a page that comes leaves the focus where it is unless it is selected
    /// while the notebook has it.
    /// @{
    using wxAuiNotebook::AddPage;
    using wxAuiNotebook::InsertPage;
    bool AddPage(wxWindow* page, const wxString& caption, bool select = false,
                 const wxBitmapBundle& bitmap = wxBitmapBundle());
    bool InsertPage(size_t index, wxWindow* page, const wxString& caption, bool select = false,
                    const wxBitmapBundle& bitmap = wxBitmapBundle());
    bool RemovePage(size_t index) override;
    bool DeleteAllPages() override;
    bool SetPageText(size_t index, const wxString& text) override;
    bool SetPageBitmap(size_t index, const wxBitmapBundle& bitmap);
    /// @}

    /// @name What is told of a page
    /// The page may be in a window of its own; nothing happens for a window that is no page.
    /// @{
    void SetCaption(wxWindow* page, const wxString& caption);
    /// A page that has been modified has a mark in its tab.
    void SetPageModified(const wxWindow* page, bool modified);
    bool IsPageModified(const wxWindow* page) const;
    /// What the page goes by in the kept layout; without one it goes by the caption that it came
    /// with.
    void SetPageKey(const wxWindow* page, const String& key);
    /// @}

    /// Closes a page as the user does: asks (`PAGE_CLOSE`), deletes it and tells (`PAGE_CLOSED`).
    /// False when it is still there.
    bool ClosePage(wxWindow* page);
    /// For handlers of `PAGE_CLOSE`: the page that it is about. One that has a window of its own
    /// has no index, and the event's selection is `wxNOT_FOUND` then. Null at other times.
    wxWindow* ClosingPage() const { return m_Closing; }

    /// The page to that side (`wxLEFT` and so on) of the pane that it lies in, which has other
    /// pages besides.
    void Split(size_t index, int direction) override;
    /// Moves a page to that place in its row of tabs.
    void MovePage(wxWindow* page, size_t place);

    /// @name Windows of their own
    /// @{
    /// Whether the user may give a page a window of its own; at first, yes.
    void AllowWindows(bool allow);
    bool AllowsWindows() const { return m_AllowsWindows; }
    /// Gives a page a window, which comes back where the page's last one was. The page comes back
    /// into the notebook when the window is closed, when its tab there is dragged into the notebook
    /// or double-clicked, and by the tab's menu. The window; null for what is no page of the
    /// notebook's tabs.
    wxFrame* OpenWindow(wxWindow* page);
    /// Brings a page back to where it was.
    void                   CloseWindow(wxWindow* page);
    std::vector<wxWindow*> PagesInWindows() const;
    /// The page that the user is at: that of the window that is active, else the notebook's current
    /// one. Null when there is none.
    wxWindow* PageInUse() const;
    /// Shows a page, in front of other windows where it has one of its own, and gives it the keys;
    /// nothing happens for what is no page.
    void BringUp(wxWindow* page);
    /// @}

    /// @name Layout
    /// Which pages there are in which pane and in windows, in which order, and the sizes of the
    /// panes, kept under `name` in the options file.
    /// @{
    void SaveLayout(const String& name);
    /// Brings the pages that there are by now to where they were; those that the layout does not
    /// know stay behind the others in the middle. False, and nothing is done, without a layout that
    /// can be used.
    bool LoadLayout(const String& name);
    /// @}

    /// Opens the list of all pages, below the tabs; the user picks one.
    void ShowPageList();
    /// Opens the menu of a tab.
    void ShowTabMenu(wxWindow* page);

    bool SetFont(const wxFont& font) override;
    /// In place of the toolkit's: the art of a themed notebook is a themed one. Takes ownership.
    void SetArtProvider(wxtTabArt* art);

protected:
    /// Adds to the menu of a tab. Bind the commands to the menu.
    virtual void FillTabMenu(wxMenu& menu, wxWindow* page);

    int  DoModifySelection(size_t index, bool events) override;
    void RemoveChild(wxWindowBase* child) override;

private:
    friend class appearance::PageBar;
    friend class appearance::TabDrag;
    friend class appearance::TabStrip;

    /// @name Pages
    /// @{
    appearance::PageData*      DataOf(const wxWindow* page) const; ///< Null for what is no page.
    wxAuiTabCtrl*              TabsOf(const wxWindow* page, int* place = nullptr) const;
    appearance::TabStrip&      StripOf(wxAuiTabCtrl& tabs);
    std::vector<wxAuiTabCtrl*> AllTabs() const; ///< Those of the panes, the middle one first.
    wxRect                     PaneRect(wxAuiTabCtrl& tabs) const; ///< Tabs and page, client area.
    void                       ShowPage(wxWindow* page, bool takesFocus);
    void                       ShowIn(wxAuiTabCtrl& tabs, wxWindow* page);
    void                       FitPage(wxAuiTabCtrl& tabs, wxWindow* page);
    bool                       HasFocusInside() const;
    bool                       Send(wxEventType type, int selection, int oldSelection);
    bool                       Select(wxWindow* page, bool events);
    void                       RefreshTabs();
    void                       Detach(wxWindow* page);
    /// @}

    /// @name What a hand and the keys do
    /// @{
    void PressTab(wxWindow* page);
    void OnKey(wxKeyEvent& event);
    bool OnTabKey(wxAuiTabCtrl& tabs, int key);
    void GoTo(int steps);
    void MoveTab(int steps);
    void ChooseByUse(wxWindow* page, bool forward);
    void OpenChooser(wxWindow& owner, const wxPoint& screen, bool byUse, bool forward);
    void OnChosen(wxWindow* page);
    void OnChildFocus(wxChildFocusEvent& event);
    void AppendToMenu(wxMenu& menu, const wxString& label, bool enabled,
                      const std::function<void()>& action);
    void CloseOthers(wxWindow* page);
    void MoveOut(wxWindow* page);
    /// @}

    /// @name Panes
    /// @{
    using PanePlaces = std::vector<std::pair<wxAuiTabCtrl*, appearance::PanePlace>>;
    appearance::PanePlace PlaceOf(wxAuiTabCtrl& tabs);
    wxSize                PaneSize(wxAuiTabCtrl& tabs);
    wxAuiTabCtrl&         SplitOff(wxWindow* page);
    void SplitBeside(wxWindow* page, wxAuiTabCtrl& target, appearance::DropSide side);
    void Arrange(const PanePlaces& panes);
    void MoveTo(wxWindow* page, wxAuiTabCtrl& tabs, size_t place);
    void PutInTabs(wxAuiTabCtrl& tabs, wxWindow* page, size_t place);
    void ShowLatest(wxAuiTabCtrl& tabs);
    appearance::TabLayout LayoutNow();
    void                  Restore(const appearance::TabLayout& layout);
    String                KeyOf(const wxWindow* page) const;
    /// @}

    /// @name Windows
    /// @{
    appearance::PageWindow* WindowOf(const wxWindow* page) const;
    wxFrame*                MoveToWindow(wxWindow* page, const wxRect& screen);
    void                    Dock(wxWindow* page, wxAuiTabCtrl* tabs, size_t place);
    wxWindow*               PageIn(const wxObject* frame) const;
    void                    OnWindowClose(wxCloseEvent& event);
    void                    OnWindowKey(wxKeyEvent& event);
    bool                    OnPageKey(wxWindow* page, const wxKeyEvent& event);
    void                    OnWindowActive(wxActivateEvent& event);
    wxWindow*               Neighbour(const appearance::PageWindow& window, int steps) const;
    String                  WindowName(const wxWindow* page) const;
    void                    KeepWindowPlaces() const;
    void                    TellOfMove(wxWindow* page);
    void                    GiveKeysTo(wxWindow* page);
    /// @}

    struct Parts;
    std::unique_ptr<Parts> m_Parts;
    String                 m_Name; ///< Of the layout.
    bool                   m_AllowsWindows = true;
    bool                   m_IsQuiet = false;   ///< Pages are selected without events.
    wxWeakRef<wxWindow>    m_Closing;           ///< The page that `PAGE_CLOSE` is sent for.
    const wxWindowBase*    m_Leaving = nullptr; ///< A page that is being destroyed.
};
