#pragma once

#include "appearance/wxtColorManaged.h"
#include "vesta/String.h"

#include <wx/aui/auibook.h>
#include <wx/frame.h>
#include <wx/weakref.h>
#include <wx/window.h>

class wxtNotebook;

namespace appearance
{
/// What a program tells of a page.
struct PageData
{
    String key; ///< In the kept layout.
    bool   isModified = false;
};

/// What a notebook knows of a page that has a window of its own.
struct PageWindow
{
    PageData                data;
    wxWeakRef<wxFrame>      frame;
    wxWeakRef<wxWindow>     page;
    wxAuiNotebookPage       info;
    wxWeakRef<wxAuiTabCtrl> home;  ///< Where the page comes from; null when that is gone.
    size_t                  place; ///< There.
};

/// The bar at the top of such a window, with the page's tab, which is dragged back into the
/// notebook, brings the page back at a double click or by its close button, and closes it at a
/// middle click. Goes with the page.
class PageBar : public wxWindow, public wxtColorManaged
{
public:
    PageBar(wxFrame& frame, wxtNotebook& book, wxWindow* page);
    ~PageBar() override;

    const wxtNotebook* Book() const { return m_Book; } ///< Null once it is gone.

private:
    PageWindow* Window() const;
    wxRect      TabRect() const;
    bool        IsOnSlot(const wxPoint& point) const;
    bool        IsOnTab(const wxPoint& point) const;
    bool        IsDragStart(const wxPoint& point) const;
    void        SetTip(const wxPoint& point);

    void OnPaint(wxPaintEvent& event);
    void OnPress(wxMouseEvent& event);
    void OnRelease(wxMouseEvent& event);
    void OnMotion(wxMouseEvent& event);
    void OnLeave(wxMouseEvent& event);
    void OnMiddle(wxMouseEvent& event);
    void OnRightDown(wxMouseEvent& event);
    void OnCaptureLost(wxMouseCaptureLostEvent& event);

    wxWeakRef<wxtNotebook> m_Book;
    wxWeakRef<wxWindow>    m_Page;
    wxPoint                m_PressPoint;
    bool                   m_IsPressed = false;
    bool                   m_IsMiddlePressed = false;
    bool                   m_IsSlotPressed = false;
    bool                   m_IsSlotHovered = false;
};
} // namespace appearance
