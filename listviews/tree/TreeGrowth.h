#pragma once

#include "listviews/tree/ChildrenOf.h"
#include "listviews/tree/OpenTree.h"

#include <functional>
#include <memory>
#include <vector>

namespace listviews
{
using TreeFilter = std::function<bool(wxDBTreeNode)>;

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

/// Shows the nodes that match with what they are in, which is open, and with all that is in them.
class FilteredGrowth final : public TreeGrowth
{
public:
    static constexpr int64_t k_MostNodes = 10000000; ///< That are looked at.

    FilteredGrowth(wxDBTreeModel& model, TreeFilter filter);
    bool    Step() override;
    int64_t Matches() const { return m_Matches; }
    bool    IsCutOff() const { return m_Looked >= k_MostNodes; } ///< The model has more.

private:
    struct Level
    {
        OpenNode*             node = nullptr;
        int                   count = 0;         ///< Of its children.
        int                   next = 0;          ///< The child that is looked at next.
        bool                  isMatch = false;   ///< The node itself.
        bool                  isWhole = false;   ///< All its children are shown.
        bool                  hasInside = false; ///< A match.
        std::vector<uint32_t> shown;             ///< Indexes, unless it is whole.
    };

    void Enter(wxDBTreeNode child, int index, bool isMatch);
    void Leave();
    void Show(Level& level, int index);

    TreeFilter         m_Filter;
    std::vector<Level> m_Levels; ///< From the root down.
    int64_t            m_Looked = 0;
    int64_t            m_Matches = 0;
};
} // namespace listviews
