#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <vector>

namespace listviews
{
/// A node whose children have been counted because it was opened. Places count the children from 0
/// in the order shown, indexes in the model's.
struct OpenNode
{
    int64_t   node = 0;     ///< As the model calls it.
    uint64_t  identity = 0; ///< What it is known by when the model has changed.
    OpenNode* parent = nullptr;
    int       place = 0;      ///< In the parent.
    int       level = 0;      ///< Of its children; those of the root have level 0.
    int       count = 0;      ///< Children shown.
    int       modelCount = 0; ///< Children that the model has.
    bool      isOpen = false; ///< Else it was, and what is open in it comes back with it.
    int64_t   below = 0;      ///< Rows that it adds while it is open.

    std::vector<uint32_t>                  order;    ///< Indexes by place; empty: as in the model.
    std::vector<std::unique_ptr<OpenNode>> opened;   ///< Children that have been, by place.
    std::map<int, uint64_t>                selected; ///< Identities of selected children, by place.

    int       IndexAt(int at) const;
    int64_t   Added() const { return isOpen ? below : 0; }
    OpenNode* OpenedAt(int at) const; ///< Null when that child never was.

    /// Rows that `opened` add before each of them; as far as they are settled.
    mutable std::vector<int64_t> before;
    mutable size_t               settled = 0;
};

/// A child of a node that has been opened; of none when the parent is null.
struct TreePlace
{
    OpenNode* parent = nullptr;
    int       place = -1;

    explicit operator bool() const { return parent != nullptr; }
    bool     operator==(const TreePlace& other) const
    {
        return parent == other.parent && place == other.place;
    }
    int       Index() const { return parent->IndexAt(place); }
    OpenNode* Opened() const { return parent->OpenedAt(place); } ///< Null when it never was.
    bool      IsOpen() const;
};

/// Which rows a tree shows, and which of them are selected. It knows the nodes that are open and
/// nothing of any other: a closed node costs nothing. Rows count from 0 and may be more than a list
/// can show.
class OpenTree
{
public:
    static constexpr int k_MostLevels = 1000;

    OpenTree(); ///< A root without children.

    std::unique_ptr<OpenNode> TakeRoot() { return std::move(m_Root); } ///< Nothing works then.

    OpenNode&       Root() { return *m_Root; }
    const OpenNode& Root() const { return *m_Root; }
    int64_t         RowCount() const { return m_Root->below; }
    TreePlace       At(int64_t row) const;               ///< Of none when there is no such row.
    int64_t         RowOf(const TreePlace& place) const; ///< -1 when it is within a closed node.

    /// Adds a child that was never opened, closed and without children.
    OpenNode& Add(const TreePlace& place, int64_t node, uint64_t identity);
    /// Its own rows; only while no child of it was opened.
    void SetChildren(OpenNode& node, int modelCount, std::vector<uint32_t> order, int count);
    void SetOpen(OpenNode& node, bool open); ///< Not the root.
    void Forget(const TreePlace& place);     ///< What was opened there.
    /// Shows the children in another order; what is opened and selected moves with them.
    static void Reorder(OpenNode& node, std::vector<uint32_t> order);

    /// @name Selection
    /// @{
    bool                 Select(const TreePlace& place, uint64_t identity); ///< False when it was.
    bool                 Deselect(const TreePlace& place); ///< False when it was not.
    bool                 IsSelected(const TreePlace& place) const;
    size_t               SelectedCount() const { return m_Selected; }
    void                 DeselectIn(OpenNode& node);             ///< Everything in the node.
    std::vector<int64_t> SelectedRows() const;                   ///< From the first to the last.
    std::vector<TreePlace> SelectedPlaces() const;               ///< Their places.
    std::vector<int64_t>   SelectedRowsIn(OpenNode& node) const; ///< Which is shown and open.
    /// @}

private:
    std::unique_ptr<OpenNode> m_Root;
    size_t                    m_Selected = 0;
};

/// What stands before `node` in its parent's `opened`.
size_t OpenedBefore(const OpenNode& parent, int place);
/// Calls `visit` with the node and all that was opened in it, each before those in it.
template <class Node, class Visit> void ForOpened(Node& node, const Visit& visit)
{
    visit(node);
    for (const auto& child : node.opened)
    {
        ForOpened(static_cast<Node&>(*child), visit);
    }
}
} // namespace listviews
