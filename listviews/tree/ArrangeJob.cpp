#include "listviews/tree/ArrangeJob.h"

#include "vesta/Log.h"

#include <chrono>

namespace listviews
{
namespace
{
using Clock = std::chrono::steady_clock;

constexpr auto kStep = std::chrono::milliseconds(1);
constexpr int  kFewChildren = 1000;                         // that are sorted at once,
constexpr auto kSortAtOnce = std::chrono::milliseconds(10); // if they can be by then
} // namespace

ArrangeJob::ArrangeJob(wxDBTreeModel& model, TreeWish wish, const OpenTree& from)
    : m_Model(model), m_Wish(std::move(wish))
{
    if (!m_Wish.filter.IsEmpty())
    {
        auto filtered = std::make_unique<FilteredGrowth>(model, m_Wish.filter);
        m_Filtered = filtered.get();
        m_Growth = std::move(filtered);
    }
    else
    {
        m_Growth = std::make_unique<CopiedGrowth>(model, from);
    }
}

bool ArrangeJob::Step()
{
    const auto end = Clock::now() + kStep;
    do
    {
        if (m_Tree)
        {
            if (!SortNext())
            {
                return false;
            }
        }
        else if (!m_Growth->Step()) // a single node: its texts may be long
        {
            TakeGrown();
        }
    } while (Clock::now() < end);
    return true;
}

std::unique_ptr<OpenTree> ArrangeJob::Take()
{
    return m_Tree ? std::move(m_Tree) : m_Growth->Take();
}

void ArrangeJob::TakeGrown()
{
    m_Tree = m_Growth->Take();
    if (m_Filtered && m_Filtered->IsCutOff())
    {
        LogWarning(SFormat("A tree of more than %lld nodes is filtered as far as that",
                           static_cast<long long>(FilteredGrowth::k_MostNodes)));
    }
    if (!m_Wish.by.empty())
    {
        ForOpened(m_Tree->Root(), [this](OpenNode& node) { m_Unsorted.push_back(&node); });
    }
}

bool ArrangeJob::SortNext()
{
    if (m_Unsorted.empty())
    {
        return false;
    }
    if (!m_Sort)
    {
        m_Sort = std::make_unique<LevelSort>(m_Model, m_Wish.by, *m_Unsorted.back());
    }
    if (!m_Sort->Step())
    {
        m_Sort->Apply();
        m_Sort.reset();
        m_Unsorted.pop_back();
    }
    return true;
}

namespace
{
// False when that takes longer than anybody should wait.
bool SortAtOnce(wxDBTreeModel& model, const TreeSort& by, OpenNode& node)
{
    const auto end = Clock::now() + kSortAtOnce;
    LevelSort  sort(model, by, node);
    while (sort.Step())
    {
        if (Clock::now() >= end)
        {
            return false;
        }
    }
    sort.Apply();
    return true;
}
} // namespace

OpenNode* OpenChild(OpenTree& tree, const TreePlace& place, wxDBTreeModel& model,
                    const TreeSort& by, bool& isUnsorted)
{
    const wxDBTreeNode node = ChildAt(model, place);
    if (!MayOpen(model, node, place.parent->level))
    {
        return nullptr;
    }
    const int count = ChildCount(model, node);
    if (OpenNode* const known = place.Opened())
    {
        if (known->node == node && known->modelCount == count)
        {
            tree.SetOpen(*known, true);
            return known;
        }
    }
    const uint64_t identity = IdentityOf(model, node);
    tree.Forget(place);
    OpenNode& made = tree.Add(place, node, identity);
    tree.SetChildren(made, count, {}, count);
    if (!by.empty() && count > 1)
    {
        isUnsorted |= count > kFewChildren || !SortAtOnce(model, by, made);
    }
    tree.SetOpen(made, true);
    return &made;
}
} // namespace listviews
