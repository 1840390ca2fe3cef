#include "listviews/wxDBTreeListCtrl.h"

#include "appearance/wxTolvanString.h"
#include "listviews/cells/ListGeometry.h"
#include "listviews/selecting/SelectionWork.h"
#include "listviews/slices/Slices.h"
#include "listviews/tree/TreeState.h"
#include "listviews/wxDBListBody.h"
#include "vesta/CallEntry.h"
#include "vesta/Guarded.h"
#include "vesta/Log.h"

#include <wx/intl.h>
#include <wx/listbase.h>

#include <algorithm>

using listviews::OpenNode;
using listviews::OpenTree;
using listviews::TreePlace;
using listviews::TreeState;

wxDEFINE_EVENT(wxEVT_DBTREELIST_ARRANGED, wxCommandEvent);

// clang-format off
wxBEGIN_EVENT_TABLE(wxDBTreeListCtrl, wxDBListCtrl)
    EVT_LIST_ITEM_SELECTED(wxID_ANY, wxDBTreeListCtrl::OnItemSelect)
    EVT_LIST_ITEM_DESELECTED(wxID_ANY, wxDBTreeListCtrl::OnItemDeselect)
wxEND_EVENT_TABLE()
// clang-format on

wxDBTreeListEvent::wxDBTreeListEvent(wxEventType type, wxWindow& list, int row, wxDBTreeNode node)
    : m_Node(node)
{
    SetEventType(type);
    SetId(list.GetId());
    SetEventObject(&list);
    SetInt(row);
}

wxDBTreeListCtrl::wxDBTreeListCtrl(wxWindow* parent, int id, bool singleSelection)
    : wxDBListCtrl(parent, id, singleSelection), m_Tree(std::make_unique<TreeState>())
{
    CALL_ENTRY("wxDBTreeListCtrl::wxDBTreeListCtrl");
    m_Tree->slices = std::make_unique<listviews::Slices>([this] { GoOnArranging(); });
    // Bound last, these are asked first.
    wxDBListBody& body = *GetBody();
    body.Bind(wxEVT_KEY_DOWN, &wxDBTreeListCtrl::OnKey, this);
    body.Bind(wxEVT_CHAR, &wxDBTreeListCtrl::OnChar, this);
    body.Bind(wxEVT_LEFT_DOWN, &wxDBTreeListCtrl::OnPress, this);
    body.Bind(wxEVT_LEFT_DCLICK, &wxDBTreeListCtrl::OnPress, this);
    body.Bind(wxEVT_MOTION, &wxDBTreeListCtrl::OnMotion, this);
    body.Bind(wxEVT_LEAVE_WINDOW, &wxDBTreeListCtrl::OnLeave, this);
}

// The views first: they ask for cells as long as they are there.
wxDBTreeListCtrl::~wxDBTreeListCtrl()
{
    DestroyChildren();
}

// Whatever the model throws is logged; false then.
bool wxDBTreeListCtrl::Ask(const char* what, const std::function<void()>& call) const
{
    ++m_Tree->asking;
    const bool answered = Guarded(what, call);
    --m_Tree->asking;
    return answered;
}

bool wxDBTreeListCtrl::IsAsking(const char* what) const
{
    if (m_Tree->asking > 0)
    {
        LogWarning(String(what) + " does nothing while the model of the tree is being asked");
    }
    return m_Tree->asking > 0;
}

// Model.

void wxDBTreeListCtrl::SetModel(wxDBTreeModel* model)
{
    CALL_ENTRY("wxDBTreeListCtrl::SetModel");
    if (IsAsking("wxDBTreeListCtrl::SetModel"))
    {
        return;
    }
    DoClear();
    m_Tree->model = model;
    m_Tree->isStale = true;
    StartArranging();
}

wxDBTreeModel* wxDBTreeListCtrl::GetModel() const
{
    return m_Tree->model;
}

void wxDBTreeListCtrl::DoClear()
{
    CALL_ENTRY("wxDBTreeListCtrl::DoClear");
    FinishCopying();
    DropJob();
    m_Tree->remains.Add(std::move(m_Tree->aside));
    m_Tree->matches = 0;
    m_Tree->hidden.Clear();
    m_Tree->hiddenAnchor.Clear();
    m_Tree->model = nullptr;
    ChangeRows(
        [this]
        { m_Tree->remains.Add(std::exchange(m_Tree->shown, std::make_unique<OpenTree>())); });
    SetLastSelect(-1);
}

// Rows.

// A list that has become shorter has lost its last rows, and one that has become longer has got
// some there, whichever they are: what is selected is kept by node.
void wxDBTreeListCtrl::ShowRows()
{
    const int64_t wanted = m_Tree->shown->RowCount();
    const int     most = listviews::MostRows(GetRowHeight());
    const int     count = static_cast<int>(std::min<int64_t>(wanted, most));
    const int     before = GetItemCount();
    if (count > before)
    {
        Insert(before, static_cast<unsigned long>(count - before), false);
    }
    else if (count < before)
    {
        SetItemCount(count); // none of millions is asked whether it is selected
    }
    if (wanted > most && !m_Tree->isTooLong)
    {
        LogError(SFormat("A tree of %lld rows is higher than can be scrolled: %d are shown",
                         static_cast<long long>(wanted), count));
    }
    m_Tree->isTooLong = wanted > most;
    GetBody()->Redraw();
}

// Has the rows changed, with the row that a range begins at, and the one that the keys are on,
// staying on their nodes or on those that have closed around them.
void wxDBTreeListCtrl::ChangeRows(const std::function<void()>& change)
{
    FinishCopying();
    TreeState&            tree = *m_Tree;
    const OpenTree* const before = tree.shown.get();
    // Of very many rows that are being selected.
    const auto      waiting = GetBody()->Selecting().Waiting();
    const TreePlace first = before->At(waiting ? waiting->first : -1);
    const TreePlace last = before->At(waiting ? waiting->second : -1);
    const TreePlace anchor = before->At(GetLastSelect());
    const TreePlace focus = before->At(GetFocusRow());
    // A job that copies what is open would copy a part of the old and a part of the new.
    if (tree.job && !tree.job->IsFiltered())
    {
        DropJob();
        tree.isDue = true;
        tree.slices->GoOn();
    }
    change();
    ++tree.revision;
    tree.row = {};
    tree.hoverRow = -1;
    tree.seen.clear();
    ShowRows();
    if (tree.shown.get() != before)
    {
        DropSelecting();
    }
    else
    {
        if (waiting)
        {
            GoOnSelecting(first, last);
        }
        GoOnFrom(anchor, focus);
    }
}

// With the rows from one place to the other, or none: of places in nodes that have been closed with
// those that are left.
void wxDBTreeListCtrl::GoOnSelecting(const TreePlace& first, const TreePlace& last)
{
    const int from = RowAbove(first);
    const int hidden = first && m_Tree->shown->RowOf(first) < 0 ? 1 : 0;
    GetBody()->Selecting().RowsMoved(first ? from + hidden : 0, last ? RowAbove(last) : -1);
}

// The row that a range begins at, and the one that the keys are on.
void wxDBTreeListCtrl::GoOnFrom(const TreePlace& anchor, const TreePlace& focus)
{
    SetLastSelect(RowAbove(anchor));
    SetFocusRow(focus == anchor ? -1 : RowAbove(focus));
}

// The place's row, or that of the closed node that it is in.
int wxDBTreeListCtrl::RowAbove(TreePlace place) const
{
    int64_t row = -1;
    for (; place && row < 0; place = {place.parent->parent, place.parent->place})
    {
        row = m_Tree->shown->RowOf(place);
    }
    return row < GetItemCount() ? static_cast<int>(row) : -1;
}

wxDBTreeNode wxDBTreeListCtrl::NodeAt(int row) const
{
    TreeState::Row& known = m_Tree->row;
    if (row == known.row && row >= 0)
    {
        return known.node;
    }
    const TreePlace place = row < GetItemCount() ? m_Tree->shown->At(row) : TreePlace();
    if (!place || !m_Tree->model)
    {
        return wxDBTreeModel::k_Root;
    }
    const unsigned     revision = m_Tree->revision;
    const wxDBTreeNode node = listviews::ChildAt(*m_Tree->model, place);
    if (revision == m_Tree->revision)
    {
        known = {row, place, node};
    }
    return node;
}

int wxDBTreeListCtrl::ParentRow(int row) const
{
    const TreePlace place = m_Tree->shown->At(row);
    return place ? RowAbove({place.parent->parent, place.parent->place}) : -1;
}

int wxDBTreeListCtrl::GetLevel(int row) const
{
    const TreePlace place = m_Tree->shown->At(row);
    return place ? place.parent->level : 0;
}

String wxDBTreeListCtrl::GetCountText(int row)
{
    const TreePlace       place = m_Tree->shown->At(row);
    const OpenNode* const node = place ? place.Opened() : nullptr;
    long long             all = node ? node->modelCount : 0;
    if (place && !node && m_Tree->model)
    {
        const wxDBTreeNode heading = NodeAt(row);
        Ask("Counting a node", [&] { all = m_Tree->model->_ChildCount(heading); });
    }
    const long long shown = node ? node->count : all;
    return all <= 0 ? String()
           : shown == all
               ? SFormat(" (%lld)", all)
               : wxtFromWx(wxString::Format(wxGetTranslation(" (%lld of %lld)"), shown, all));
}

int wxDBTreeListCtrl::RowOf(const std::vector<wxDBTreeNode>& path) const
{
    CALL_ENTRY("wxDBTreeListCtrl::RowOf");
    TreePlace place;
    if (m_Tree->model)
    {
        OpenNode* node = &m_Tree->shown->Root();
        for (size_t i = 0; i < path.size() && node; ++i)
        {
            place = listviews::PlaceOf(*m_Tree->model, *node, path[i]);
            node = place ? place.Opened() : nullptr;
            if (i + 1 < path.size() && !node)
            {
                place = {};
            }
        }
    }
    const int64_t row = place ? m_Tree->shown->RowOf(place) : -1;
    return row < GetItemCount() ? static_cast<int>(row) : -1;
}

void wxDBTreeListCtrl::SetTreeColumn(int type)
{
    m_Tree->columnType = type;
    Redraw();
}

int wxDBTreeListCtrl::GetTreeColumn() const
{
    int column = FindColumnByType(m_Tree->columnType);
    if (column < 0 || !IsColumnShown(column))
    {
        for (column = 0; column < GetColumnCount() - 1 && !IsColumnShown(column); ++column)
        {
        }
    }
    return column;
}

// Selection.

bool wxDBTreeListCtrl::IsRowSelected(int row)
{
    const OpenTree& tree = *m_Tree->shown;
    return tree.SelectedCount() > 0 &&
           tree.IsSelected(row == m_Tree->row.row && row >= 0 ? m_Tree->row.place : tree.At(row));
}

std::vector<int> wxDBTreeListCtrl::GetSelection()
{
    const std::vector<int64_t> rows = m_Tree->shown->SelectedRows();
    std::vector<int>           shown;
    shown.reserve(rows.size());
    for (const int64_t row : rows)
    {
        if (row < GetItemCount())
        {
            shown.push_back(static_cast<int>(row));
        }
    }
    return shown;
}

std::vector<wxDBTreeNode> wxDBTreeListCtrl::GetSelectedNodes()
{
    CALL_ENTRY("wxDBTreeListCtrl::GetSelectedNodes");
    std::vector<wxDBTreeNode> nodes;
    if (m_Tree->model)
    {
        for (const TreePlace& place : m_Tree->shown->SelectedPlaces())
        {
            nodes.push_back(listviews::ChildAt(*m_Tree->model, place));
        }
    }
    return nodes;
}

// Skipped, so that the host hears of what has changed.
void wxDBTreeListCtrl::OnItemSelect(wxListEvent& event)
{
    const auto      row = static_cast<int>(event.GetIndex());
    const TreePlace place = row < GetItemCount() ? m_Tree->shown->At(row) : TreePlace();
    if (!place || !m_Tree->model)
    {
        return;
    }
    event.Skip();
    ForgetHidden();
    Ask("A node's key",
        [&]
        {
            const uint64_t identity = listviews::IdentityOf(*m_Tree->model, NodeAt(row));
            m_Tree->shown->Select(place, identity);
        });
    RedrawSelection();
}

void wxDBTreeListCtrl::OnItemDeselect(wxListEvent& event)
{
    const TreePlace place = m_Tree->shown->At(event.GetIndex());
    if (place && m_Tree->shown->Deselect(place))
    {
        event.Skip();
        ForgetHidden();
        RedrawSelection();
    }
}

void wxDBTreeListCtrl::ChangeSelection(const std::vector<int>& rows, bool adding)
{
    CALL_ENTRY("wxDBTreeListCtrl::ChangeSelection");
    if (!m_Tree->model || IsAsking("wxDBTreeListCtrl::ChangeSelection"))
    {
        return;
    }
    ForgetHidden();
    if (!adding)
    {
        DropSelecting();
        m_Tree->shown->DeselectIn(m_Tree->shown->Root());
    }
    Ask("A node's key",
        [&]
        {
            for (const int row : rows)
            {
                const TreePlace place = row < GetItemCount() ? m_Tree->shown->At(row) : TreePlace();
                if (place)
                {
                    const wxDBTreeNode node = listviews::ChildAt(*m_Tree->model, place);
                    m_Tree->shown->Select(place, listviews::IdentityOf(*m_Tree->model, node));
                }
            }
        });
    GetBody()->Redraw();
}

// What a filter has hidden comes back to the selection that it was part of, and to no other.
void wxDBTreeListCtrl::ForgetHidden()
{
    if (!m_Tree->isTelling)
    {
        m_Tree->leaving.reset(); // what leaves is looked for once more
    }
    if (m_Tree->isFiltering)
    {
        return;
    }
    for (listviews::HiddenNodes* const hidden : {&m_Tree->hidden, &m_Tree->hiddenAnchor})
    {
        if (!hidden->IsEmpty())
        {
            hidden->Clear();
        }
    }
}

// Tells that the rows are deselected, the last one first. False when a handler has taken the list
// or its rows away.
bool wxDBTreeListCtrl::DeselectRows(const std::vector<int64_t>& rows)
{
    const unsigned revision = m_Tree->revision;
    return std::all_of(rows.rbegin(), rows.rend(),
                       [&](int64_t row)
                       { return TellRow(wxEVT_LIST_ITEM_DESELECTED, row, revision); });
}

bool wxDBTreeListCtrl::TellRow(wxEventType type, int64_t row, unsigned revision)
{
    return row >= GetItemCount() ||
           (GetBody()->SendListEvent(type, wxPoint(0, 0), 0, static_cast<int>(row)) &&
            revision == m_Tree->revision);
}
