#pragma once

#include "appearance/tabs/DropHint.h"
#include "appearance/tabs/DropPlace.h"
#include "appearance/tabs/InputFilter.h"

#include <wx/aui/auibook.h>
#include <wx/weakref.h>

#include <memory>

class wxtNotebook;

namespace appearance
{
class TabStrip;

/// A tab that is being dragged, out of a row of tabs or out of a window of its own. Within its own
/// row it moves along; elsewhere a hint shows where it would go. Escape cancels. Belongs to the
/// notebook, and ends itself by `Drop` and `Cancel`.
class TabDrag
{
public:
    /// Asks whether the page may be dragged, and begins. `source`: where the pointer was pressed;
    /// it is at `screen` by now.
    static void Begin(wxtNotebook& book, wxWindow* page, wxWindow& source, const wxPoint& screen);
    ~TabDrag();

    /// `isDown`: whether the button is still held.
    void Follow(const wxPoint& screen, bool isDown);
    /// Leaves the page there. The notebook tells of it: it may be gone afterwards.
    void Drop(const wxPoint& screen);
    void Cancel();
    /// Ends a drag out of a window that is being destroyed.
    static void EndWith(wxtNotebook& book, const wxWindow& source);

private:
    TabDrag(wxtNotebook& book, wxWindow* page, wxWindow& source);

    enum class Place
    {
        nowhere,
        row,   ///< At a place in a row of tabs.
        side,  ///< Beside a pane, which gives half of its room.
        window ///< A window of its own.
    };
    struct Target
    {
        Place         place = Place::nowhere;
        wxAuiTabCtrl* tabs = nullptr;
        size_t        index = 0;
        DropSide      side = DropSide::middle;
        wxRect        hint; ///< On the screen; empty for none.
    };
    Target TargetAt(const wxPoint& screen);
    Target InRow(TabStrip& strip, const wxPoint& screen);
    Target OnPane(TabStrip& strip, const wxPoint& screen);
    bool   IsOwnRow(const TabStrip& strip) const;
    bool   IsOnSource(const wxPoint& screen) const;
    void   GoTo(const Target& target);
    void   ReleaseSource();

    wxtNotebook&        m_Book;
    wxWeakRef<wxWindow> m_Page;
    wxWeakRef<wxWindow> m_Source;
    int                 m_FirstPlace = -1; ///< In its row.
    DropHint            m_Hint;
    InputFilter         m_Keys;
};
} // namespace appearance
