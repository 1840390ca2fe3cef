#include "gallery/FontSizes.h"
#include "gallery/GallerySections.h"

#include "gallery/MarkedList.h"

#include "listviews/wxDBListBody.h"
#include "listviews/wxDBTreeListCtrl.h"

#include <wx/listbase.h>
#include <wx/sizer.h>

namespace
{
const wxSize  kViewSize(600, 160);
constexpr int kJobs = 12;    // of a user
constexpr int kFrames = 240; // of a job

/// Users with jobs with frames. A node's number is made of theirs, each counted from 1.
class FarmTree : public wxDBTreeModel
{
public:
    enum
    {
        column_Name,
        column_State,
        column_Time
    };

    long long _ChildCount(wxDBTreeNode node) override
    {
        return node == k_Root ? 3 : Frame(node) ? 0 : Job(node) ? kFrames : kJobs;
    }
    wxDBTreeNode _Child(wxDBTreeNode node, long long index) override
    {
        const wxDBTreeNode number = index + 1;
        return node == k_Root ? number : Job(node) ? node | number << 16 : node | number << 8;
    }
    String _Text(wxDBTreeNode node, int column) override
    {
        static const char* const kUsers[] = {"Amelia Fischer", "Jonas Okafor", "Mei Tanaka"};
        if (column == column_State)
        {
            return Frame(node) || !Job(node) ? "" : IsRunning(node) ? "Running" : "Done";
        }
        if (column == column_Time)
        {
            return Frame(node) ? SFormat("%lld s", Seconds(node)) : String();
        }
        return Frame(node) ? SFormat("Frame %lld", Frame(node))
               : Job(node) ? SFormat("orbit_sh%03lld", 10 * Job(node))
                           : String(kUsers[(node & 0xff) - 1]);
    }
    bool                  _MayHaveChildren(wxDBTreeNode node) override { return !Frame(node); }
    String                _Key(wxDBTreeNode node) override { return _Text(node, column_Name); }
    std::optional<double> _SortNumber(wxDBTreeNode node, int column) override
    {
        return column == column_Time ? std::optional<double>(Seconds(node)) : std::nullopt;
    }

private:
    static long long Job(wxDBTreeNode node) { return node >> 8 & 0xff; }
    static long long Frame(wxDBTreeNode node) { return node >> 16; }
    static bool      IsRunning(wxDBTreeNode node) { return Job(node) % 4 == 2; }
    static long long Seconds(wxDBTreeNode node) { return Frame(node) * 37 % 101; }
};

// A click on a title sorts by it, the next one the other way round, and the third one no more.
void SortByTitle(wxDBTreeListCtrl& tree, int column)
{
    const int before = tree.GetColumn(column).image;
    for (int i = 0; i < tree.GetColumnCount(); ++i)
    {
        tree.SetColumnImage(i, wxDBListCtrl::image_None);
    }
    const bool isLast = before == wxDBListCtrl::image_Descending;
    tree.SetHighlightColumn(isLast ? -1 : column);
    if (isLast)
    {
        tree.SortChildren({});
        return;
    }
    const bool isDescending = before == wxDBListCtrl::image_Ascending;
    tree.SetColumnImage(column, isDescending ? wxDBListCtrl::image_Descending
                                             : wxDBListCtrl::image_Ascending);
    tree.SortChildren({{tree.GetColumn(column).type, isDescending}});
}
} // namespace

void AddTree(wxWindow* parent, wxSizer* sizer)
{
    static FarmTree s_Farm;
    auto* const     tree =
        new MarkedList<wxDBTreeListCtrl, FarmTree::column_State>(parent, wxID_ANY, false);
    tree->SetMinSize(kViewSize);
    tree->AddColumn(FarmTree::column_Name, "Name", InFontOf(*tree, 250));
    tree->AddColumn(FarmTree::column_State, "State", InFontOf(*tree, 90));
    tree->AddColumn(FarmTree::column_Time, "Time", InFontOf(*tree, 90));
    tree->SetModel(&s_Farm);
    tree->Open(1);
    tree->Open(3);
    tree->GetBody()->SendListEvent(wxEVT_LIST_ITEM_SELECTED, wxPoint(0, 0), 0, 3);
    tree->Bind(wxEVT_LIST_COL_CLICK,
               [tree](wxListEvent& event)
               {
                   if (tree->IsOnTitles(event) && event.GetColumn() >= 0)
                   {
                       SortByTitle(*tree, event.GetColumn());
                   }
               });
    sizer->Add(tree, 1, wxEXPAND);
}
