#include "textviews/rules/RuleIndex.h"

#include <algorithm>
#include <chrono>

namespace textviews
{
namespace
{
constexpr auto   kSlice = std::chrono::milliseconds(4);
constexpr size_t kStepBytes = 64 * 1024; // looked at between two looks at the clock
} // namespace

RuleIndex::RuleIndex(const LineStore& lines, std::function<void()> changed)
    : m_Lines(lines), m_Changed(std::move(changed)), m_Rules(lines), m_Hits(lines)
{
}

void RuleIndex::SetRules(const std::shared_ptr<const RuleSet>& rules, bool folded)
{
    StopFinding();
    m_Rules.judge = rules ? std::make_unique<RuleJudge>(rules, folded) : nullptr;
    Restart(m_Rules);
}

void RuleIndex::SetFinder(std::shared_ptr<HitFinder> finder, bool asShown)
{
    m_Hits.searched.ReadAsShown(asShown);
    m_Hits.judge = finder ? std::make_unique<HitJudge>(std::move(finder)) : nullptr;
    Restart(m_Hits);
}

void RuleIndex::KeepBands(bool on)
{
    m_KeepsBands = on;
    Restart(m_Rules);
    Restart(m_Hits);
}

void RuleIndex::Restart(Layer& layer)
{
    layer.Reset(m_KeepsBands ? m_Lines.Count() : 0);
    WorkOn();
}

// Only the first line that comes has to wake anybody.
void RuleIndex::WorkOn()
{
    if (m_KeepsBands && !m_HasWork)
    {
        m_HasWork = true;
        m_Changed();
    }
}

void RuleIndex::Find(int line, bool forward)
{
    m_Rules.judge->Forget();
    m_Errors.Begin(line, forward, m_Lines.Count());
}

bool RuleIndex::IsFinding() const
{
    return m_Errors.GetState() == ErrorSearch::State::Running;
}

void RuleIndex::Work()
{
    const auto end = std::chrono::steady_clock::now() + kSlice;
    m_IsWaiting = false;
    while (Step() && !m_IsWaiting && std::chrono::steady_clock::now() < end)
    {
    }
}

// Whether there is more of the same to do.
bool RuleIndex::Step()
{
    if (IsFinding())
    {
        m_Errors.Step(m_Lines, m_KeepsBands ? &m_Rules.bands : nullptr, *m_Rules.judge, kStepBytes);
        m_IsWaiting = m_Errors.IsWaiting();
        return IsFinding();
    }
    m_HasWork = m_KeepsBands && (StepBands(m_Rules) || StepBands(m_Hits));
    return m_HasWork;
}

// Whether there is, or was, something to do.
bool RuleIndex::StepBands(Layer& layer)
{
    if (!layer.HasWork())
    {
        return false;
    }
    const LineBands::Range unknown = layer.bands.NextUnknown();
    const auto             block = layer.searched.BlockSoon(unknown.first);
    m_IsWaiting = !block;
    if (!block)
    {
        return true;
    }
    size_t budget = kStepBytes;
    int    from = unknown.first - block->firstLine;
    m_Marked.clear();
    layer.judge->Judge(*block, from, std::min(block->lineCount, unknown.end - block->firstLine),
                       budget, m_Marked);
    layer.bands.Learn(block->firstLine + from, m_Marked);
    return true;
}

void RuleIndex::LineInserted(int line)
{
    if (IsFinding())
    {
        m_Errors.LineInserted(line);
    }
    if (m_KeepsBands)
    {
        ForEach([line](Layer& layer) { layer.bands.LineInserted(line); });
        WorkOn();
    }
    if (line < m_Lines.Count() - 1)
    {
        ForEach([](Layer& layer) { layer.judge->Forget(); });
    }
}

void RuleIndex::LineErased(int line)
{
    if (IsFinding())
    {
        m_Errors.LineErased(line);
    }
    if (m_KeepsBands)
    {
        ForEach([line](Layer& layer) { layer.bands.LineErased(line); });
        WorkOn();
    }
    ForEach([](Layer& layer) { layer.judge->Forget(); });
}

void RuleIndex::LinesCleared()
{
    StopFinding();
    ForEach([](Layer& layer) { layer.judge->Forget(); });
    Restart(m_Rules);
    Restart(m_Hits);
    m_Changed();
}
} // namespace textviews
