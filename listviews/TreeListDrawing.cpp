#include "appearance/wxTolvanColors.h"
#include "internal/drawing/ColorMix.h"
#include "internal/drawing/Emphasis.h"
#include "listviews/tree/TreeCell.h"
#include "listviews/tree/TreeState.h"
#include "listviews/wxDBListBody.h"
#include "listviews/wxDBTreeListCtrl.h"
#include "vesta/CallEntry.h"

#include <wx/dc.h>

using listviews::OpenNode;
using listviews::TreePlace;
using listviews::TreeState;

namespace
{
// From the row up to the root: whether another child comes behind.
std::vector<bool> SiblingsOf(const TreePlace& place, int levels)
{
    std::vector<bool> siblings;
    int               at = place.place;
    for (const OpenNode* node = place.parent; node && levels > 0; node = node->parent, --levels)
    {
        siblings.push_back(at + 1 < node->count);
        at = node->place;
    }
    return siblings;
}
} // namespace

void wxDBTreeListCtrl::PrepareToDraw(int row)
{
    CALL_ENTRY("wxDBTreeListCtrl::PrepareToDraw");
    TreeState& tree = *m_Tree;
    tree.row = {};
    const unsigned     revision = tree.revision;
    const wxDBTreeNode node = NodeAt(row);
    if (row == 0 || tree.seen.empty() || row != tree.lastSeen + 1)
    {
        tree.seen.clear();
    }
    const uint64_t identity = tree.model ? listviews::IdentityOf(*tree.model, node) : 0;
    if (revision == tree.revision && tree.row.place)
    {
        tree.seen.push_back({tree.row.place, identity});
        tree.lastSeen = row;
    }
}

String wxDBTreeListCtrl::GetDisplayText(int row, int column)
{
    const wxDBTreeNode node = NodeAt(row);
    return m_Tree->model && node != wxDBTreeModel::k_Root
               ? m_Tree->model->_Text(node, GetColumn(column).type)
               : String();
}

wxColour wxDBTreeListCtrl::GetRowColor(int row)
{
    const wxColour own = m_Tree->model ? m_Tree->model->_RowColor(NodeAt(row)) : wxColour();
    return own.IsOk() ? own : wxDBListCtrl::GetRowColor(row);
}

wxColour wxDBTreeListCtrl::GetRowBGColor(int row)
{
    const wxColour own = m_Tree->model ? m_Tree->model->_RowBGColor(NodeAt(row)) : wxColour();
    return own.IsOk() ? own : wxDBListCtrl::GetRowBGColor(row);
}

void wxDBTreeListCtrl::DrawCell(wxDC& dc, int row, int column, wxRect rect, bool selected)
{
    CALL_ENTRY("wxDBTreeListCtrl::DrawCell");
    const wxDBTreeNode node = NodeAt(row);
    if (!m_Tree->model || node == wxDBTreeModel::k_Root)
    {
        return; // it has gone, and the list is not told yet
    }
    if (column == GetTreeColumn())
    {
        rect = DrawTree(dc, row, rect, selected);
    }
    if (!m_Tree->model->_DrawCell(dc, node, GetColumn(column).type, rect, selected))
    {
        wxDBListCtrl::DrawCell(dc, row, column, rect, selected);
    }
}

int wxDBTreeListCtrl::GetCellWidth(wxDC& dc, int row, int column)
{
    const int width = wxDBListCtrl::GetCellWidth(dc, row, column);
    if (column != GetTreeColumn())
    {
        return width;
    }
    const listviews::TreeCellGeometry geometry(GetBody()->GetCellRect(row, column), 0);
    return width + (GetLevel(row) + 1) * geometry.indent;
}

// Lines and expander; what they leave of the cell.
wxRect wxDBTreeListCtrl::DrawTree(wxDC& dc, int row, const wxRect& rect, bool selected)
{
    listviews::TreeCellState state;
    state.isFirst = row == 0;
    state.hasExpander = MayOpen(row);
    state.isOpen = state.hasExpander && IsOpen(row);
    const listviews::TreeCellGeometry geometry(rect, GetLevel(row));
    state.isHovered = geometry.Press().Contains(m_Tree->pointer);
    state.hasSibling = SiblingsOf(m_Tree->shown->At(row), geometry.level + 1);
    const wxColour ground =
        selected ? internal::MixColours(wxtGetColor(color_WindowBGDarker),
                                        wxtGetColor(color_Selected), internal::k_SelectedRowShare)
                 : GetRowBGColor(row);
    const auto fill = [&](const wxRect& part, const wxColour& colour)
    { GetBody()->FillCell(dc, part, colour); };
    DrawTreeCell(dc, fill, geometry, state, LookOf(state, wxtGetColor(color_Text), ground),
                 dc.GetContentScaleFactor());
    return geometry.Text();
}
