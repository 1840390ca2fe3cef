#pragma once

#include "listviews/wxDoubleBufferedWindow.h"
#include "vesta/Export.h"

#include <wx/listbase.h>

namespace listviews
{
struct ListGeometry;
struct ListModel;
} // namespace listviews

/// What the header and the body of a list have in common: they draw from the list's model, and send
/// its events. Of the list itself they know no more than the window that it is. Main thread.
class TOLVAN_API wxDBListBase : public wxDoubleBufferedWindow
{
public:
    /// The list says where it is scrolled to, as any window does. It owns the model.
    wxDBListBase(wxWindow& list, listviews::ListModel& model, long style);

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
    /// What has come of an event.
    enum class Outcome
    {
        Gone,   ///< The list; nothing may be touched any more.
        Passed, ///< No handler has kept it for itself.
        Taken
    };
    Outcome TellList(int type, const wxPoint& point, int column, int row);

    wxWindow&             m_List;
    listviews::ListModel& m_Model;

    wxDECLARE_EVENT_TABLE();
};
