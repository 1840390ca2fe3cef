#pragma once

#include "listviews/wxDBListCtrl.h"
#include "listviews/wxDBTreeModel.h"
#include "vesta/Export.h"

#include <wx/listbase.h>
#include <wx/treelist.h>

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

class wxtSearchField;
namespace listviews
{
class OpenTree;
struct TreePlace;
struct TreeState;
} // namespace listviews

/// What a tree tells of one of its rows. It is an event of the stock tree list with the row and the
/// node in place of the stock list's item, which is invalid: a handler that takes a
/// `wxTreeListEvent` can veto, and finds the row in `GetInt`.
class TOLVAN_API wxDBTreeListEvent : public wxTreeListEvent
{
public:
    wxDBTreeListEvent(wxEventType type, wxWindow& list, int row, wxDBTreeNode node);

    int          GetRow() const { return GetInt(); }
    wxDBTreeNode GetNode() const { return m_Node; }
    wxEvent*     Clone() const override { return new wxDBTreeListEvent(*this); }

private:
    wxDBTreeNode m_Node;
};

/// The tree has been sorted, filtered or filled anew (`wxCommandEvent`).
wxDECLARE_EXPORTED_EVENT(TOLVAN_API, wxEVT_DBTREELIST_ARRANGED, wxCommandEvent);

/// A list whose rows are the nodes of a tree that its model has, in the order in which they are
/// open below one another. It asks for a node when its row is seen, and counts its children when it
/// opens; of a closed node it keeps nothing. It keeps what is selected, by node.
///
/// Beside the events of any list it sends `wxEVT_TREELIST_ITEM_EXPANDING`, which can be vetoed, and
/// `wxEVT_TREELIST_ITEM_EXPANDED`, both as `wxDBTreeListEvent`, when the user opens a node; not
/// when the program does. There is none for closing, as in the stock list; what was selected in the
/// node is deselected (`wxEVT_LIST_ITEM_DESELECTED` for each row). Handlers may do anything to the
/// list.
///
/// The pointer opens and closes by a click on the expander, which selects nothing, and by a double
/// click on a node with children; only one without children is activated. Keys: Right opens, then
/// goes to the first child; Left closes, then goes to the node that it is in, as Backspace does at
/// once; + opens, - closes, * opens all that is in the node. The other keys are the list's.
///
/// Operations on rows that the list does not have do nothing. Main thread.
class TOLVAN_API wxDBTreeListCtrl : public wxDBListCtrl
{
public:
    /// Of an opening at once more rows than that stay closed, and the log says so.
    static constexpr int k_MostOpened = 2000000;

    /// `singleSelection`: a click always ends the selection of all other rows.
    wxDBTreeListCtrl(wxWindow* parent, int id, bool singleSelection);
    ~wxDBTreeListCtrl() override;

    /// @name Model
    /// @{
    /// Shows another tree, with everything closed; null: none. The model has to live until another
    /// one is set or the list is gone. Its functions must not change the list.
    void           SetModel(wxDBTreeModel* model);
    wxDBTreeModel* GetModel() const;
    /// Asks for everything anew. What is open or selected and the row that a range begins at stay
    /// with their nodes, as the model's keys know them, and the view with what is seen. What was
    /// selected and has gone is told to be deselected. A large tree is asked in idle time, with the
    /// old rows shown meanwhile.
    void ModelChanged();
    /// The same when only that node has other children now (or has some, or none).
    void ChildrenChanged(wxDBTreeNode node);
    /// @}

    /// @name Open and closed nodes
    /// @{
    bool Open(int row);  ///< Whether the node is open now.
    bool Close(int row); ///< Whether it was open. It keeps in mind what is open in it.
    bool OpenAllIn(int row);
    void OpenAll();
    void CloseAll(); ///< Also what a closed node has in mind.
    bool IsOpen(int row) const;
    bool MayOpen(int row) const;
    /// The root's children that are open, by their numbers; without a filter, also where one shows
    /// others.
    std::vector<wxDBTreeNode> GetOpenInRoot() const;
    /// Opens every node on the way to the last one, by their numbers from the root's child down,
    /// and scrolls there. Its row; -1 when there is no such way.
    int Reveal(const std::vector<wxDBTreeNode>& path);
    /// Keeps in the options file which nodes are open, by their keys: at most 32 KiB of them.
    void SaveOpenNodes(const String& section, const String& key);
    /// Opens the nodes that are kept there, in addition. A text that makes no sense does nothing.
    void RestoreOpenNodes(const String& section, const String& key);
    /// @}

    /// @name Rows
    /// @{
    wxDBTreeNode NodeAt(int row) const; ///< The root when there is no such row.
    int          RowOf(const std::vector<wxDBTreeNode>& path) const; ///< Or -1.
    int          ParentRow(int row) const; ///< -1 for a child of the root.
    int          GetLevel(int row) const;  ///< 0 for a child of the root.
    /// What a heading says behind its name of the children that it has: " (3)", or " (1 of 3)"
    /// where a filter shows some of them. Empty when there are none.
    String                    GetCountText(int row);
    std::vector<wxDBTreeNode> GetSelectedNodes(); ///< In the order of the rows.
    /// Selects these rows, and no others unless `adding`. There is no event, as none is needed by
    /// who asks for it; very many take little time.
    void ChangeSelection(const std::vector<int>& rows, bool adding);
    /// The column that has the expanders, by its type, 0 at first; when none of that type is shown,
    /// the first one that is.
    void SetTreeColumn(int type);
    int  GetTreeColumn() const; ///< Its index.
    /// @}

    /// @name Order and filter
    /// A change is worked out in idle time, with the old rows shown meanwhile, and told by
    /// `wxEVT_DBTREELIST_ARRANGED`; a small tree changes at once.
    /// @{
    /// Sorts the children of every node: the first column that tells two apart decides, and those
    /// that none does stay in the model's order. Without any column, they are in that order again.
    void SortChildren(const std::vector<wxDBTreeSort>& by);
    /// Shows the nodes that match, all that is in them, and what they are in. Without a function
    /// everything is shown again and open as it was; what is selected stays in sight. At most
    /// 10,000,000 nodes are looked at.
    void SetFilter(const std::function<bool(wxDBTreeNode)>& matches);
    /// Filters by words, as `wxListArranger` does; each counts for a node and all that is in it. A
    /// node that matches is closed unless there is one in it that has a word of its own. An empty
    /// text: everything.
    void          SetFilterText(const String& text);
    const String& GetFilterText() const;
    /// The field's text is the filter from now on, and the field says how many nodes match. Its
    /// Down key leads to the list.
    void      Follow(wxtSearchField& field);
    bool      IsFiltered() const;    ///< What is shown.
    long long GetMatchCount() const; ///< Nodes that match; 0 when nothing is filtered.
    bool      IsArranging() const;   ///< The rows are going to be others.
    /// Rows that go from sight are being deselected, or selected that are shown again: of very many
    /// some at a time. `wxEVT_DBTREELIST_ARRANGED` follows the last one.
    bool IsReselecting() const;
    /// @}

    bool             IsRowSelected(int row) override;
    std::vector<int> GetSelection() override; ///< In the order of the rows.
    void             PrepareToDraw(int row) override;
    String           GetDisplayText(int row, int column) override;
    wxColour         GetRowColor(int row) override;
    wxColour         GetRowBGColor(int row) override;
    void             DrawCell(wxDC& dc, int row, int column, wxRect rect, bool selected) override;
    int              GetCellWidth(wxDC& dc, int row, int column) override;
    void             DoClear() override; ///< Shows no tree any more.

private:
    void OnItemSelect(wxListEvent& event);
    void OnItemDeselect(wxListEvent& event);
    void ForgetHidden();

    /// @name Open and closed nodes
    /// @{
    bool Ask(const char* what, const std::function<void()>& call) const;
    bool IsAsking(const char* what) const;
    void ChangeRows(const std::function<void()>& change);
    void ShowRows();
    bool DeselectRows(const std::vector<int64_t>& rows);
    bool TellRow(wxEventType type, int64_t row, unsigned revision);
    void OpenAt(const listviews::TreePlace& place);
    void OpenWithin(const listviews::TreePlace& place);
    void GoOnSelecting(const listviews::TreePlace& first, const listviews::TreePlace& last);
    void GoOnFrom(const listviews::TreePlace& anchor, const listviews::TreePlace& focus);
    int  RowAbove(listviews::TreePlace place) const;
    /// @}

    /// @name Order and filter
    /// @{
    void StartArranging();
    void DropJob();
    void ArrangeOn();
    void GoOnArranging();
    void TakeArranged();
    void GoOnReturning();
    bool FindReturning(size_t fewerThan);
    bool TellReturning(std::chrono::steady_clock::time_point end);
    void OnField(wxCommandEvent& event);
    struct _Sight;
    _Sight SightOf() const;
    bool   Carry(listviews::OpenTree& made, _Sight& sight, std::vector<int64_t>& lost);
    bool   DeselectLeaving(_Sight& sight);
    bool   TellLeaving(std::chrono::steady_clock::time_point end);
    bool   TellOwn(wxEventType type, int64_t row, bool isFiltering);
    void ShowTree(std::unique_ptr<listviews::OpenTree> made, bool isFiltered, const _Sight& sight);
    void KeepHiddenAnchor(const _Sight& sight);
    listviews::TreePlace TakeReturnedAnchor();
    /// @}

    /// @name Input and drawing
    /// @{
    bool   MayOpenNow(int row) const;
    void   OpenByHand(int row, bool whole);
    void   ToggleByHand(int row);
    bool   SendTreeEvent(wxEventType type, int row);
    void   GoToRow(int row);
    bool   PressKey(int row, int key);
    void   OnKey(wxKeyEvent& event);
    void   OnChar(wxKeyEvent& event);
    void   OnPress(wxMouseEvent& event);
    void   OnMotion(wxMouseEvent& event);
    void   OnLeave(wxMouseEvent& event);
    int    ExpanderRowAt(const wxPoint& point) const;
    void   HoverExpander(const wxPoint& point);
    wxRect DrawTree(wxDC& dc, int row, const wxRect& rect, bool selected);
    /// @}

    std::unique_ptr<listviews::TreeState> m_Tree;

    wxDECLARE_EVENT_TABLE();
};
