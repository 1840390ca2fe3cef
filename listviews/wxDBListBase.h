#pragma once

#include "listviews/wxDoubleBufferedWindow.h"
#include "vesta/Export.h"

#include <wx/listbase.h>

namespace listviews
{
struct ListGeometry;
}
class wxDBListCtrl;

/// What the header and the body of a list have in common: they know their list, where its columns
/// are, and send its events. Main thread.
class TOLVAN_API wxDBListBase : public wxDoubleBufferedWindow
{
public:
    wxDBListBase(wxDBListCtrl* list, long style);

    /// Has the list's handlers process an event of that type at once. `point`: pixels of the body.
    /// A column of -1 is found from the point, and so is a row of -1. The handlers may do anything
    /// to the list, even destroy it: false when it is gone, and nothing may be touched any more.
    bool SendListEvent(int type, const wxPoint& point, int column, int row);
    bool SendListEvent(int type, const wxPoint& point, int row);

    /// Where the list's rows and columns are now.
    listviews::ListGeometry Geometry() const;

    /// A pressed button that is lost to another window changes nothing: the list waits for the
    /// next one.
    void CaptureLost(wxMouseCaptureLostEvent& event);

protected:
    wxDBListCtrl& m_List;

    wxDECLARE_EVENT_TABLE();
};
