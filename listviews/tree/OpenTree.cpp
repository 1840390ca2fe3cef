#include "listviews/tree/OpenTree.h"

#include <algorithm>

namespace listviews
{
namespace
{
void Settle(const OpenNode& node)
{
    node.before.resize(node.opened.size());
    node.settled = std::min(node.settled, node.opened.size());
    for (size_t i = node.settled; i < node.opened.size(); ++i)
    {
        node.before[i] = i == 0 ? 0 : node.before[i - 1] + node.opened[i - 1]->Added();
    }
    node.settled = node.opened.size();
}

// Rows that opened children before that one add.
int64_t AddedBefore(const OpenNode& node, size_t opened)
{
    if (opened == 0)
    {
        return 0;
    }
    Settle(node);
    return node.before[opened - 1] + node.opened[opened - 1]->Added();
}

// The rows of `opened` children behind that one have moved.
void Unsettle(OpenNode& node, size_t opened)
{
    node.settled = std::min(node.settled, opened);
}

// The node has so many more rows below it.
void Grow(OpenNode& node, int64_t rows)
{
    node.below += rows;
    for (OpenNode* inner = &node; rows != 0 && inner->isOpen && inner->parent;)
    {
        Unsettle(*inner->parent, OpenedBefore(*inner->parent, inner->place) + 1);
        inner = inner->parent;
        inner->below += rows;
    }
}

// By index, where each child is shown; -1 where it is not.
std::vector<int> PlacesOf(const OpenNode& node)
{
    std::vector<int> places(static_cast<size_t>(node.modelCount), -1);
    for (size_t place = 0; place < node.order.size(); ++place)
    {
        places[node.order[place]] = static_cast<int>(place);
    }
    return places;
}

// Calls `visit` with the place of each selected child, and its row, in the order of the rows.
// `firstRow`: of the node's children.
template <class Visit> void ForSelected(OpenNode& node, int64_t firstRow, const Visit& visit)
{
    auto       selected = node.selected.begin();
    int64_t    added = 0;
    const auto takeUpTo = [&](int place)
    {
        for (; selected != node.selected.end() && selected->first <= place; ++selected)
        {
            visit(TreePlace{&node, selected->first}, firstRow + selected->first + added);
        }
    };
    for (const auto& child : node.opened)
    {
        takeUpTo(child->place);
        if (child->isOpen)
        {
            ForSelected(*child, firstRow + child->place + added + 1, visit);
        }
        added += child->Added();
    }
    takeUpTo(node.count);
}
} // namespace

int OpenNode::IndexAt(int at) const
{
    return order.empty() ? at : static_cast<int>(order[static_cast<size_t>(at)]);
}

OpenNode* OpenNode::OpenedAt(int at) const
{
    const size_t index = OpenedBefore(*this, at);
    return index < opened.size() && opened[index]->place == at ? opened[index].get() : nullptr;
}

bool TreePlace::IsOpen() const
{
    const OpenNode* const node = Opened();
    return node && node->isOpen;
}

size_t OpenedBefore(const OpenNode& parent, int place)
{
    if (parent.opened.empty() || parent.opened.back()->place < place)
    {
        return parent.opened.size(); // what is opened in a row comes last
    }
    const auto found =
        std::lower_bound(parent.opened.begin(), parent.opened.end(), place,
                         [](const auto& child, int at) { return child->place < at; });
    return static_cast<size_t>(found - parent.opened.begin());
}

OpenTree::OpenTree() : m_Root(std::make_unique<OpenNode>())
{
    m_Root->isOpen = true;
}

TreePlace OpenTree::At(int64_t row) const
{
    if (row < 0 || row >= RowCount())
    {
        return {};
    }
    OpenNode* node = m_Root.get();
    for (;;)
    {
        Settle(*node);
        // The opened child whose row is the last one that is not behind this row.
        size_t low = 0;
        for (size_t high = node->opened.size(); low < high;)
        {
            const size_t middle = low + (high - low) / 2;
            if (node->opened[middle]->place + node->before[middle] <= row)
            {
                low = middle + 1;
            }
            else
            {
                high = middle;
            }
        }
        if (low == 0)
        {
            return {node, static_cast<int>(row)};
        }
        OpenNode&     child = *node->opened[low - 1];
        const int64_t behind = row - child.place - node->before[low - 1];
        if (behind == 0)
        {
            return {node, child.place};
        }
        if (behind > child.Added())
        {
            return {node, static_cast<int>(child.place + behind - child.Added())};
        }
        node = &child;
        row = behind - 1;
    }
}

int64_t OpenTree::RowOf(const TreePlace& place) const
{
    int64_t row = -1;
    int     at = place.place;
    for (const OpenNode* node = place.parent; node; node = node->parent)
    {
        if (!node->isOpen)
        {
            return -1;
        }
        row += 1 + at + AddedBefore(*node, OpenedBefore(*node, at));
        at = node->place;
    }
    return row;
}

OpenNode& OpenTree::Add(const TreePlace& place, int64_t node, uint64_t identity)
{
    OpenNode&    parent = *place.parent;
    auto         child = std::make_unique<OpenNode>();
    const size_t index = OpenedBefore(parent, place.place);
    child->node = node;
    child->identity = identity;
    child->parent = &parent;
    child->place = place.place;
    child->level = parent.level + 1;
    Unsettle(parent, index);
    return **parent.opened.insert(parent.opened.begin() + static_cast<std::ptrdiff_t>(index),
                                  std::move(child));
}

void OpenTree::SetChildren(OpenNode& node, int modelCount, std::vector<uint32_t> order, int count)
{
    const int64_t more = count - node.count;
    node.modelCount = modelCount;
    node.order = std::move(order);
    node.count = count;
    Grow(node, more);
}

void OpenTree::SetOpen(OpenNode& node, bool open)
{
    if (node.isOpen == open)
    {
        return;
    }
    node.isOpen = open;
    Unsettle(*node.parent, OpenedBefore(*node.parent, node.place) + 1);
    Grow(*node.parent, open ? node.below : -node.below);
}

void OpenTree::Forget(const TreePlace& place)
{
    if (OpenNode* const node = place.Opened())
    {
        DeselectIn(*node);
        SetOpen(*node, false);
        const size_t index = OpenedBefore(*place.parent, place.place);
        Unsettle(*place.parent, index);
        place.parent->opened.erase(place.parent->opened.begin() +
                                   static_cast<std::ptrdiff_t>(index));
    }
}

// What is opened is sorted by numbers that lie together: to look into a hundred thousand nodes over
// and over would be noticed.
void OpenTree::Reorder(OpenNode& node, std::vector<uint32_t> order)
{
    std::vector<int> indexes;
    for (const auto& child : node.opened)
    {
        indexes.push_back(node.IndexAt(child->place));
    }
    std::vector<std::pair<int, uint64_t>> chosen;
    for (const auto& [place, identity] : node.selected)
    {
        chosen.emplace_back(node.IndexAt(place), identity);
    }
    node.order = std::move(order);
    node.settled = 0;
    if (indexes.empty() && chosen.empty())
    {
        return;
    }
    const std::vector<int> places = node.order.empty() ? std::vector<int>() : PlacesOf(node);
    const auto             placeOf = [&places](int index)
    { return places.empty() ? index : places[static_cast<size_t>(index)]; };
    std::vector<std::pair<int, size_t>> byPlace;
    for (size_t i = 0; i < indexes.size(); ++i)
    {
        node.opened[i]->place = placeOf(indexes[i]);
        byPlace.emplace_back(node.opened[i]->place, i);
    }
    std::sort(byPlace.begin(), byPlace.end());
    std::vector<std::unique_ptr<OpenNode>> opened;
    opened.reserve(byPlace.size());
    for (const auto& [place, i] : byPlace)
    {
        opened.push_back(std::move(node.opened[i]));
    }
    node.opened = std::move(opened);
    node.selected.clear();
    for (const auto& [index, identity] : chosen)
    {
        node.selected.emplace(placeOf(index), identity);
    }
}

bool OpenTree::Select(const TreePlace& place, uint64_t identity)
{
    auto&        selected = place.parent->selected;
    const size_t before = selected.size();
    selected.emplace_hint(selected.end(), place.place, identity); // many come in their order
    const bool added = selected.size() > before;
    m_Selected += added;
    return added;
}

bool OpenTree::Deselect(const TreePlace& place)
{
    const bool removed = place.parent->selected.erase(place.place) > 0;
    m_Selected -= removed;
    return removed;
}

bool OpenTree::IsSelected(const TreePlace& place) const
{
    return place && place.parent->selected.count(place.place) > 0;
}

void OpenTree::DeselectIn(OpenNode& node)
{
    if (m_Selected > 0)
    {
        ForOpened(node,
                  [this](OpenNode& inner)
                  {
                      m_Selected -= inner.selected.size();
                      inner.selected.clear();
                  });
    }
}

std::vector<int64_t> OpenTree::SelectedRows() const
{
    std::vector<int64_t> rows;
    if (m_Selected > 0)
    {
        rows.reserve(m_Selected);
        ForSelected(*m_Root, 0, [&rows](const TreePlace&, int64_t row) { rows.push_back(row); });
    }
    return rows;
}

std::vector<TreePlace> OpenTree::SelectedPlaces() const
{
    std::vector<TreePlace> places;
    if (m_Selected > 0)
    {
        places.reserve(m_Selected);
        ForSelected(*m_Root, 0,
                    [&places](const TreePlace& place, int64_t) { places.push_back(place); });
    }
    return places;
}

std::vector<int64_t> OpenTree::SelectedRowsIn(OpenNode& node) const
{
    std::vector<int64_t> rows;
    if (m_Selected > 0)
    {
        ForSelected(node, RowOf({node.parent, node.place}) + 1,
                    [&rows](const TreePlace&, int64_t row) { rows.push_back(row); });
    }
    return rows;
}
} // namespace listviews
