#include "listviews/columns/ColumnActions.h"
#include "listviews/model/ListModel.h"
#include "listviews/wxDBListHeader.h"
#include "vesta/CallEntry.h"

#include <wx/settings.h>

#include <algorithm>
#include <cstdlib>

// A title that a hand drags to another place.

namespace
{
constexpr int kLeastDrag = 4;      // pixels that a press may tremble by, at least
constexpr int kScrollMs = 50;      // between two steps under a title that is held outside
constexpr int kScrollColumns = 20; // pixels of such a step

int DragThreshold(const wxWindow& window)
{
    // The toolkit's is the width of the place that a press may not leave.
    const int width = wxSystemSettings::GetMetric(wxSYS_DRAG_X, const_cast<wxWindow*>(&window));
    return std::max(kLeastDrag, width / 2);
}
} // namespace

bool wxDBListHeader::IsMovingTitle() const
{
    return m_Model.dropGap >= 0;
}

bool wxDBListHeader::MayMove(int x) const
{
    return m_Model.canMoveTitles && m_Model.HasColumn(m_Model.pressedColumn) && HasCapture() &&
           m_Model.ShownCount() > 1 && std::abs(x - m_Model.pressX) > DragThreshold(*this);
}

void wxDBListHeader::MoveTitle(int x)
{
    if (!IsMovingTitle() && !MayMove(x))
    {
        return;
    }
    UnsetToolTip();
    m_Model.dragX = x;
    m_Model.dropGap = Geometry().GapAt(x);
    if ((x < 0 || x >= GetClientSize().x) && !m_MoveTimer.IsRunning())
    {
        m_MoveTimer.Start(kScrollMs);
    }
    Redraw();
}

void wxDBListHeader::ScrollToPointer()
{
    CALL_ENTRY("wxDBListHeader::ScrollToPointer");
    const int width = GetClientSize().x;
    if (!IsMovingTitle() || (m_Model.dragX >= 0 && m_Model.dragX < width))
    {
        m_MoveTimer.Stop();
        return;
    }
    const int step = m_Model.dragX < 0 ? -kScrollColumns : kScrollColumns;
    const int before = m_List.GetScrollPos(wxHORIZONTAL);
    m_List.SetScrollPos(wxHORIZONTAL, std::max(before + step, 0));
    // The place that it is held at stays under the pointer.
    m_Model.pressX += before - m_List.GetScrollPos(wxHORIZONTAL);
    m_Model.dropGap = Geometry().GapAt(m_Model.dragX);
}

void wxDBListHeader::DropTitle()
{
    const int from = m_Model.pressedColumn;
    const int gap = m_Model.dropGap;
    GiveUpMove();
    const int to = gap > from ? gap - 1 : gap;
    if (to != from)
    {
        m_Actions.move(from, to);
    }
}

bool wxDBListHeader::GiveUpMove()
{
    CALL_ENTRY("wxDBListHeader::GiveUpMove");
    if (!IsMovingTitle())
    {
        return false;
    }
    LetMouseGo();
    m_MoveTimer.Stop();
    m_Model.dropGap = -1;
    m_Model.pressedColumn = -1;
    Redraw();
    return true;
}

// A press that is lost otherwise waits for the next motion.
void wxDBListHeader::OnCaptureLost(wxMouseCaptureLostEvent&)
{
    GiveUpMove();
}
