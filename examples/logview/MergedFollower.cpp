#include "logview/MergedFollower.h"

#include "textviews/wxTextFinder.h"

#include <algorithm>
#include <utility>

namespace
{
constexpr size_t   kBatch = 256 * 1024;                        // bytes of lines told of at once
constexpr uint64_t kMostInMemory = uint64_t{16} * 1024 * 1024; // bytes of text, of all files
} // namespace

MergedFollower::MergedFollower(const std::vector<Path>& files, OnLines onLines)
    : m_Text(std::make_shared<MergedText>()), m_OnLines(std::move(onLines))
{
    const size_t count = std::min(files.size(), k_MostFiles);
    for (size_t i = 0; i < count; ++i)
    {
        m_Inputs.push_back(std::make_unique<MergedInput>(files[i], *m_Text, kMostInMemory / count));
    }
}

MergedFollower::~MergedFollower() = default;

bool MergedFollower::Read(size_t limit)
{
    if (limit == 0)
    {
        std::for_each(m_Inputs.begin(), m_Inputs.end(), [](auto& input) { input->Open(); });
        return true;
    }
    if (!std::exchange(m_IsInPass, true))
    {
        std::for_each(m_Inputs.begin(), m_Inputs.end(), [](auto& input) { input->BeginPass(); });
    }
    for (size_t done = 0; done < limit;)
    {
        Turn turn;
        if (!FindTurn(turn))
        {
            m_IsInPass = false;
            break;
        }
        done += TakeLines(turn, limit - done);
    }
    Flush();
    return m_IsInPass;
}

// False: all have been read to their ends.
bool MergedFollower::FindTurn(Turn& turn)
{
    constexpr Rank kLast{INT64_MAX, SIZE_MAX};
    Rank           first = kLast;
    turn.until = kLast;
    for (size_t i = 0; i < m_Inputs.size(); ++i)
    {
        if (m_Inputs[i]->Prepare())
        {
            const Rank rank{m_Inputs[i]->Time(), i};
            turn.until = rank < first ? first : std::min(turn.until, rank);
            first = std::min(first, rank);
        }
    }
    turn.index = first.second;
    return first != kLast;
}

// Gives their bytes.
size_t MergedFollower::TakeLines(const Turn& turn, size_t limit)
{
    MergedInput& input = *m_Inputs[turn.index];
    size_t       bytes = 0;
    do
    {
        bytes += input.Line().size() + 1;
        TakeLine(turn.index);
    } while (bytes < limit && input.Prepare() && Rank(input.Time(), turn.index) < turn.until);
    return bytes;
}

void MergedFollower::TakeLine(size_t index)
{
    MergedInput&           input = *m_Inputs[index];
    const MergedText::Part part = input.Place();
    m_Bytes += input.Line();
    m_Bytes += '\n';
    m_Parts.push_back(part);
    m_Origins.push_back(static_cast<uint8_t>(index));
    input.Take();
    if (m_Bytes.size() >= kBatch)
    {
        Flush();
    }
}

void MergedFollower::Flush()
{
    if (m_Parts.empty())
    {
        return;
    }
    FileFollower::Stretches stretches;
    wxFindTextLines(m_Bytes, m_Text->Size(), stretches);
    auto first = m_Parts.cbegin();
    for (const wxTextStretch& stretch : stretches)
    {
        m_Text->Append({first, first + stretch.lines});
        first += stretch.lines;
    }
    m_OnLines(m_Text, stretches, m_Origins);
    m_Bytes.clear();
    m_Parts.clear();
    m_Origins.clear();
}

// That of the first one that can be read, or else of the first one.
const MergedInput& MergedFollower::Leading() const
{
    const auto follows = std::find_if(
        m_Inputs.begin(), m_Inputs.end(),
        [](const auto& input) { return input->Follower().CurrentState() == State::kFollowing; });
    return follows == m_Inputs.end() ? *m_Inputs.front() : **follows;
}

TextFollower::State MergedFollower::CurrentState() const
{
    return Leading().Follower().CurrentState();
}

const String& MergedFollower::Problem() const
{
    return Leading().Follower().Problem();
}

long long MergedFollower::Position() const
{
    long long bytes = 0;
    for (const auto& input : m_Inputs)
    {
        bytes += input->Follower().Position();
    }
    return bytes;
}
