#include "listviews/slices/Slices.h"
#include "listviews/tree/OpenKeys.h"
#include "listviews/tree/TreeState.h"
#include "listviews/wxDBListBody.h"
#include "listviews/wxDBTreeListCtrl.h"
#include "vesta/Application.h"
#include "vesta/CallEntry.h"
#include "vesta/Log.h"

using listviews::OpenNode;
using listviews::OpenTree;
using listviews::TreePlace;
using listviews::TreeState;

namespace
{
// Opens all that is in a node, as far as can be waited for.
class _OpeningAll
{
public:
    explicit _OpeningAll(TreeState& tree) : m_Tree(tree) {}

    void Open(const TreePlace& place)
    {
        bool            isUnsorted = false;
        OpenNode* const node = place.IsOpen()
                                   ? place.Opened()
                                   : OpenChild(*m_Tree.shown, place, *m_Tree.model, {}, isUnsorted);
        if (node)
        {
            OpenIn(*node);
        }
    }
    void OpenIn(OpenNode& node)
    {
        for (int place = 0; place < node.count && !IsEnough(); ++place)
        {
            ++m_Looked;
            Open({&node, place});
        }
    }
    bool IsEnough() const
    {
        return m_Looked >= wxDBTreeListCtrl::k_MostOpened ||
               m_Tree.shown->RowCount() >= wxDBTreeListCtrl::k_MostOpened;
    }

private:
    TreeState& m_Tree;
    int        m_Looked = 0;
};
} // namespace

bool wxDBTreeListCtrl::IsOpen(int row) const
{
    const TreePlace place = m_Tree->shown->At(row);
    return place && place.IsOpen();
}

std::vector<wxDBTreeNode> wxDBTreeListCtrl::GetOpenInRoot() const
{
    CALL_ENTRY("wxDBTreeListCtrl::GetOpenInRoot");
    std::vector<wxDBTreeNode> nodes;
    for (const auto& child : m_Tree->Unfiltered().Root().opened)
    {
        if (child->isOpen)
        {
            nodes.push_back(child->node);
        }
    }
    return nodes;
}

bool wxDBTreeListCtrl::MayOpen(int row) const
{
    const TreePlace place = m_Tree->shown->At(row);
    return place && m_Tree->model &&
           listviews::MayOpen(*m_Tree->model, NodeAt(row), place.parent->level);
}

bool wxDBTreeListCtrl::Open(int row)
{
    CALL_ENTRY("wxDBTreeListCtrl::Open");
    const TreePlace place = m_Tree->shown->At(row);
    if (!place || place.IsOpen() || !m_Tree->model || IsAsking("wxDBTreeListCtrl::Open"))
    {
        return place && place.IsOpen();
    }
    ChangeRows([&] { OpenAt(place); });
    return place.IsOpen();
}

// Within a change of the rows.
void wxDBTreeListCtrl::OpenAt(const TreePlace& place)
{
    Ask("Opening a node",
        [&] { OpenChild(*m_Tree->shown, place, *m_Tree->model, m_Tree->wish.by, m_Tree->isDue); });
    if (m_Tree->isDue)
    {
        m_Tree->slices->GoOn();
    }
}

bool wxDBTreeListCtrl::Close(int row)
{
    CALL_ENTRY("wxDBTreeListCtrl::Close");
    const TreePlace place = m_Tree->shown->At(row);
    if (!place || !place.IsOpen() || IsAsking("wxDBTreeListCtrl::Close") ||
        !DeselectRows(m_Tree->shown->SelectedRowsIn(*place.Opened())))
    {
        return false;
    }
    ChangeRows(
        [&]
        {
            OpenNode& node = *place.Opened();
            m_Tree->shown->SetOpen(node, false);
            m_Tree->shown->DeselectIn(node); // a host may have kept the events to itself
        });
    return true;
}

bool wxDBTreeListCtrl::OpenAllIn(int row)
{
    CALL_ENTRY("wxDBTreeListCtrl::OpenAllIn");
    const TreePlace place = m_Tree->shown->At(row);
    if (!place || !m_Tree->model || IsAsking("wxDBTreeListCtrl::OpenAllIn"))
    {
        return false;
    }
    OpenWithin(place);
    return place.IsOpen();
}

void wxDBTreeListCtrl::OpenAll()
{
    CALL_ENTRY("wxDBTreeListCtrl::OpenAll");
    if (m_Tree->model && !IsAsking("wxDBTreeListCtrl::OpenAll"))
    {
        OpenWithin({});
    }
}

// In that node; in all when it is none. Large trees are sorted afterwards, in idle time.
void wxDBTreeListCtrl::OpenWithin(const TreePlace& place)
{
    ChangeRows(
        [&]
        {
            _OpeningAll opening(*m_Tree);
            Ask("Opening all nodes",
                [&] { place ? opening.Open(place) : opening.OpenIn(m_Tree->shown->Root()); });
            if (opening.IsEnough())
            {
                LogWarning(
                    SFormat("Of a tree no more than %d rows are opened at once", k_MostOpened));
            }
        });
    if (!m_Tree->wish.by.empty())
    {
        StartArranging();
    }
}

void wxDBTreeListCtrl::CloseAll()
{
    CALL_ENTRY("wxDBTreeListCtrl::CloseAll");
    OpenTree&            tree = *m_Tree->shown;
    std::vector<int64_t> rows;
    for (const int64_t row : tree.SelectedRows())
    {
        if (tree.At(row).parent != &tree.Root())
        {
            rows.push_back(row);
        }
    }
    if (IsAsking("wxDBTreeListCtrl::CloseAll") || !DeselectRows(rows))
    {
        return;
    }
    auto& opened = tree.Root().opened;
    ChangeRows(
        [&]
        {
            for (const auto& node : opened)
            {
                tree.SetOpen(*node, false);
            }
        });
    if (IsFiltered())
    {
        return; // what matches in a node is known by the node
    }
    while (!opened.empty())
    {
        tree.Forget({&tree.Root(), opened.back()->place});
    }
}

int wxDBTreeListCtrl::Reveal(const std::vector<wxDBTreeNode>& path)
{
    CALL_ENTRY("wxDBTreeListCtrl::Reveal");
    if (!m_Tree->model || IsAsking("wxDBTreeListCtrl::Reveal"))
    {
        return -1;
    }
    ChangeRows(
        [&]
        {
            OpenNode* node = &m_Tree->shown->Root();
            for (size_t i = 0; i + 1 < path.size() && node; ++i)
            {
                TreePlace place;
                Ask("Looking for a node",
                    [&] { place = listviews::PlaceOf(*m_Tree->model, *node, path[i]); });
                if (place && !place.IsOpen())
                {
                    OpenAt(place);
                }
                node = place && place.IsOpen() ? place.Opened() : nullptr;
            }
        });
    const int row = RowOf(path);
    EnsureVisible(row);
    return row;
}

void wxDBTreeListCtrl::SaveOpenNodes(const String& section, const String& key)
{
    CALL_ENTRY("wxDBTreeListCtrl::SaveOpenNodes");
    String text;
    if (!m_Tree->model ||
        !Ask("The key of a node",
             [&] { text = listviews::OpenNodesText(*m_Tree->model, m_Tree->Unfiltered()); }))
    {
        return;
    }
    OptionsFile&    options = Application::the_Application->Options();
    const WriteLock lock(options.Lock());
    options.InsertSection(section);
    options.SetValue(section, key, text);
}

void wxDBTreeListCtrl::RestoreOpenNodes(const String& section, const String& key)
{
    CALL_ENTRY("wxDBTreeListCtrl::RestoreOpenNodes");
    const String text = Application::the_Application->Options().GetValue(section, key);
    if (text.empty() || !m_Tree->model || IsAsking("wxDBTreeListCtrl::RestoreOpenNodes"))
    {
        return;
    }
    ChangeRows(
        [&]
        {
            Ask("The key of a node",
                [&] { listviews::OpenByText(*m_Tree->model, m_Tree->Unfiltered(), text); });
        });
    if (!m_Tree->wish.by.empty())
    {
        StartArranging();
    }
}
