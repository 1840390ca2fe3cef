#pragma once

#include "listviews/arranging/FilterQuery.h"
#include "listviews/tree/ChildrenOf.h"
#include "listviews/tree/OpenTree.h"

#include <functional>
#include <memory>
#include <vector>

namespace listviews
{
/// Which nodes of a tree are looked for: those that the host's function says, with all that is in
/// them, or else those with the words of the query, in their own texts and in those of the nodes
/// that they are in.
struct TreeFilter
{
    std::function<bool(wxDBTreeNode)> matches;
    FilterQuery                       query;

    bool IsEmpty() const { return !matches && query.IsEmpty(); }
};

/// A tree that is made beside the one that is shown, in steps that are too short to be noticed.
/// What the model throws ends it.
class TreeGrowth
{
public:
    virtual ~TreeGrowth() = default;

    virtual bool              Step() = 0; ///< One node; false when the tree is made.
    std::unique_ptr<OpenTree> Take() { return std::move(m_Tree); }

protected:
    explicit TreeGrowth(wxDBTreeModel& model) : m_Model(model) {}

    wxDBTreeModel&            m_Model;
    std::unique_ptr<OpenTree> m_Tree = std::make_unique<OpenTree>();
};

/// Has open what is open in another tree, which has to stay as it is meanwhile.
class CopiedGrowth final : public TreeGrowth
{
public:
    CopiedGrowth(wxDBTreeModel& model, const OpenTree& from);
    bool Step() override;

private:
    void Look(const OpenNode& was, OpenNode& now);
    void AddFound();

    std::vector<std::pair<const OpenNode*, OpenNode*>> m_Next; ///< Old nodes and what they become.
    OpenNode*                                          m_Now = nullptr; ///< The last one of them.
    std::vector<std::pair<int, const OpenNode*>>
           m_Found;     ///< Its children that were open, by index.
    size_t m_Added = 0; ///< Of those.
};

/// Shows the nodes that match with what they are in, which is open.
class FilteredGrowth final : public TreeGrowth
{
public:
    static constexpr int64_t k_MostNodes = 10000000; ///< That are looked at.

    FilteredGrowth(wxDBTreeModel& model, TreeFilter filter);
    bool Step() override;
    /// Of the nodes that are no headings; of words, those that do so of their own.
    int64_t Matches() const { return m_Matches; }
    int64_t Total() const { return m_Looked - m_Uncounted; }
    bool    IsCutOff() const { return m_Looked >= k_MostNodes; } ///< The model has more.

private:
    struct Level
    {
        OpenNode*             node = nullptr;
        int                   count = 0;         ///< Of its children.
        int                   next = 0;          ///< The child that is looked at next.
        bool                  isMatch = false;   ///< The node itself.
        bool                  isOwn = false;     ///< And not for what it is in alone.
        bool                  isWhole = false;   ///< All its children are shown.
        bool                  hasInside = false; ///< A match of its own.
        FilterQuery::Hits     hits;              ///< Here and in what the node is in.
        std::vector<uint32_t> shown;             ///< Indexes, unless it is whole.
    };

    struct Match
    {
        bool isMatch = false;
        bool isOwn = false;
    };
    Match Judge(wxDBTreeNode child);
    void  Enter(wxDBTreeNode child, int index, const Match& match);
    void  Leave();
    void  Show(Level& level, int index, bool isOwn);

    TreeFilter         m_Filter;
    std::vector<Level> m_Levels; ///< From the root down.
    int64_t            m_Looked = 0;
    int64_t            m_Uncounted = 0;
    int64_t            m_Matches = 0;
};
} // namespace listviews
