#include "listviews/tree/TreeGrowth.h"

#include <algorithm>

namespace listviews
{
CopiedGrowth::CopiedGrowth(wxDBTreeModel& model, const OpenTree& from) : TreeGrowth(model)
{
    m_Next.emplace_back(&from.Root(), &m_Tree->Root());
}

bool CopiedGrowth::Step()
{
    if (m_Added < m_Found.size())
    {
        AddFound();
    }
    else if (!m_Next.empty())
    {
        const auto [was, now] = m_Next.back();
        m_Next.pop_back();
        Look(*was, *now);
    }
    return m_Added < m_Found.size() || !m_Next.empty();
}

// Where the children are now that were open.
void CopiedGrowth::Look(const OpenNode& was, OpenNode& now)
{
    std::vector<WantedChild> wanted;
    for (const auto& child : was.opened)
    {
        wanted.push_back({child->identity, was.IndexAt(child->place)});
    }
    const int count = ChildCount(m_Model, now.node);
    FindChildren(m_Model, now.node, count, wanted);
    m_Tree->SetChildren(now, count, {}, count);
    m_Now = &now;
    m_Added = 0;
    m_Found.clear();
    for (size_t i = 0; i < wanted.size(); ++i)
    {
        if (wanted[i].found >= 0)
        {
            m_Found.emplace_back(wanted[i].found, was.opened[i].get());
        }
    }
    std::sort(m_Found.begin(), m_Found.end());
}

void CopiedGrowth::AddFound()
{
    const auto [index, was] = m_Found[m_Added++];
    const TreePlace place{m_Now, index};
    if (place.Opened())
    {
        return; // two that had the same key
    }
    const wxDBTreeNode node = ChildAt(m_Model, place);
    if (MayOpen(m_Model, node, m_Now->level))
    {
        OpenNode& made = m_Tree->Add(place, node, was->identity);
        m_Tree->SetOpen(made, was->isOpen);
        m_Next.emplace_back(was, &made);
    }
}

FilteredGrowth::FilteredGrowth(wxDBTreeModel& model, TreeFilter filter)
    : TreeGrowth(model), m_Filter(std::move(filter))
{
    Level root;
    root.node = &m_Tree->Root();
    root.count = ChildCount(model, root.node->node);
    m_Levels.push_back(std::move(root));
}

bool FilteredGrowth::Step()
{
    if (m_Levels.empty())
    {
        return false;
    }
    if (m_Levels.back().next >= m_Levels.back().count || IsCutOff())
    {
        Leave();
        return !m_Levels.empty();
    }
    const int          index = m_Levels.back().next++;
    const wxDBTreeNode child = m_Model._Child(m_Levels.back().node->node, index);
    if (child == wxDBTreeModel::k_Root)
    {
        return true; // it has gone
    }
    ++m_Looked;
    const Match match = Judge(child);
    const bool  isCounted = m_Model._IsCounted(child);
    m_Matches += match.isOwn && isCounted;
    m_Uncounted += !isCounted;
    if (MayOpen(m_Model, child, m_Levels.back().node->level))
    {
        Enter(child, index, match);
    }
    else if (match.isMatch)
    {
        Show(m_Levels.back(), index, match.isOwn);
    }
    return true;
}

// In a node that matches, all that is not left out does so too: only what has a word itself opens
// it.
FilteredGrowth::Match FilteredGrowth::Judge(wxDBTreeNode child)
{
    if (m_Filter.matches)
    {
        const bool isMatch = m_Filter.matches(child);
        return {isMatch, isMatch};
    }
    if (m_Model._IsHeading(child))
    {
        m_Uncounted += m_Model._IsCounted(child);
        return {};
    }
    const Level& outer = m_Levels.back();
    const auto   text = [&](int column) { return m_Model._Text(child, column); };
    const bool   isMatch = m_Filter.query.Matches(text, outer.hits);
    const bool   isOwn =
        isMatch && (!outer.isMatch || m_Filter.query.HasWanted(m_Filter.query.HitsOf(text)));
    return {isMatch, isOwn};
}

void FilteredGrowth::Show(Level& level, int index, bool isOwn)
{
    level.hasInside |= isOwn;
    if (!level.isWhole)
    {
        level.shown.push_back(static_cast<uint32_t>(index));
    }
}

void FilteredGrowth::Enter(wxDBTreeNode child, int index, const Match& match)
{
    const Level& outer = m_Levels.back();
    const int    place = outer.isWhole ? index : static_cast<int>(outer.shown.size());
    Level        level;
    level.count = ChildCount(m_Model, child);
    level.node = &m_Tree->Add({outer.node, place}, child, 0);
    level.isMatch = match.isMatch;
    level.isOwn = match.isOwn;
    level.isWhole = (match.isMatch && m_Filter.matches) || outer.isWhole;
    level.hits =
        m_Filter.query.HitsOf([&](int column) { return m_Model._Text(child, column); }, outer.hits);
    m_Levels.push_back(std::move(level));
}

// A node without a match inside stays closed, or is not there at all. Where not all of its children
// are to be seen it keeps in mind which ones.
void FilteredGrowth::Leave()
{
    Level level = std::move(m_Levels.back());
    m_Levels.pop_back();
    const int count = level.isWhole ? level.count : static_cast<int>(level.shown.size());
    if (m_Levels.empty())
    {
        m_Tree->SetChildren(*level.node, level.count, std::move(level.shown), count);
        return;
    }
    Level&    outer = m_Levels.back();
    const int index = outer.next - 1;
    if (level.hasInside || (level.isMatch && count < level.count))
    {
        level.node->identity = IdentityOf(m_Model, level.node->node);
        m_Tree->SetChildren(*level.node, level.count, std::move(level.shown), count);
        m_Tree->SetOpen(*level.node, level.hasInside);
        Show(outer, index, level.hasInside || level.isOwn);
        return;
    }
    m_Tree->Forget({outer.node, level.node->place});
    if (level.isMatch)
    {
        Show(outer, index, level.isOwn);
    }
}
} // namespace listviews
