#include "logview/MergedInput.h"

#include <sys/stat.h>

#include <algorithm>
#include <ctime>
#include <iterator>
#include <utility>

namespace
{
constexpr size_t   kReadAtOnce = 256 * 1024;        // bytes of a file
constexpr size_t   kMemoryBlock = 64 * 1024;        // bytes of lines in a block
constexpr auto     kRest = std::chrono::seconds(2); // after which a line is taken for finished
constexpr LineTime kMicros = 1'000'000;

// When the file was written last; now for one that nobody can tell of.
std::time_t LastChange(const Path& file)
{
    struct stat status = {};
    return stat(file.Text().c_str(), &status) == 0 ? status.st_mtime : std::time(nullptr);
}
} // namespace

MergedInput::MergedInput(const Path& file, MergedText& text, uint64_t mostInMemory)
    : m_Text(text),
      m_Memory(std::make_shared<MemoryText>()),
      m_MemoryNumber(text.AddSource(m_Memory)),
      m_Follower(file, {[this](const String& line) { AddLine(line, false); },
                        [this](const String& line) { AddPartial(line); },
                        [this](const String& how) { AddNote(how); },
                        [this](const String& what) { AddNote(what); },
                        [this](const auto& source, const auto& stretches)
                        { AddStored(source, stretches); }})
{
    m_Follower.KeepInMemory(mostInMemory);
}

void MergedInput::BeginPass()
{
    m_IsAtEnd = false;
    m_Times.SetLatest(static_cast<LineTime>(LastChange(m_Follower.FileName())) * kMicros);
}

void MergedInput::AddLine(std::string_view line, bool isNote)
{
    const uint64_t place = m_Memory->AppendLine(line);
    if (m_Blocks.empty() || m_Blocks.back().source != m_MemoryNumber ||
        m_Blocks.back().isNote != isNote || m_Blocks.back().bytes.size() > kMemoryBlock)
    {
        m_Blocks.emplace_back();
        m_Blocks.back().source = m_MemoryNumber;
        m_Blocks.back().offset = place;
        m_Blocks.back().isNote = isNote;
    }
    Block& block = m_Blocks.back();
    block.bytes += line;
    block.bytes += '\n';
    block.size = static_cast<uint32_t>(block.bytes.size());
}

// What has gone since is missing.
std::string MergedInput::BytesOf(const FileFollower::Source& source, uint64_t offset, size_t size)
{
    int         problem = 0;
    std::string bytes(size, '\0');
    bytes.resize(source->Read(offset, bytes.data(), bytes.size(), problem));
    return bytes;
}

void MergedInput::CopyStored(const FileFollower::Source& source, const wxTextStretch& stretch)
{
    const std::string bytes = BytesOf(source, stretch.offset, stretch.size);
    std::string_view  rest = bytes;
    while (!rest.empty())
    {
        const size_t feed = std::min(rest.find('\n'), rest.size());
        AddLine(rest.substr(0, feed), false);
        rest.remove_prefix(std::min(feed + 1, rest.size()));
    }
}

// A file that is replaced again and again comes to more sources than can be told apart in the end,
// and one with holes to places beyond what is counted: from then on its lines are kept in memory.
void MergedInput::AddStored(const FileFollower::Source&    source,
                            const FileFollower::Stretches& stretches)
{
    if (source != m_Stored)
    {
        m_Stored = source;
        m_HasNumber = m_Text.HasRoomForSource();
        m_StoredNumber = m_HasNumber ? m_Text.AddSource(source) : 0;
    }
    for (const wxTextStretch& stretch : stretches)
    {
        if (!m_HasNumber || stretch.offset > MergedText::k_MostOffset)
        {
            CopyStored(source, stretch);
            continue;
        }
        Block block;
        block.source = m_StoredNumber;
        block.offset = stretch.offset;
        block.size = stretch.size;
        block.stored = source;
        m_Blocks.push_back(std::move(block));
    }
}

void MergedInput::AddPartial(const String& line)
{
    m_HasPartial = !line.empty();
    m_PartialSince = Clock::now();
}

// Nobody is about to go on with the last line.
bool MergedInput::IsAtRest() const
{
    return Clock::now() - m_PartialSince >= kRest ||
           std::time(nullptr) - LastChange(m_Follower.FileName()) > kRest / std::chrono::seconds(1);
}

void MergedInput::TellState()
{
    const TextFollower::State state = m_Follower.CurrentState();
    const String              name = m_Follower.FileName().Leaf();
    if (state != m_ToldState && state == TextFollower::State::kMissing)
    {
        AddNote(name + " does not exist yet");
    }
    else if (state != m_ToldState && state == TextFollower::State::kUnreadable)
    {
        AddNote(name + " cannot be read: " + m_Follower.Problem());
    }
    m_ToldState = state;
}

bool MergedInput::Prepare()
{
    while (!m_HasLine && !NextLine())
    {
        if (m_IsAtEnd)
        {
            return false;
        }
        m_IsAtEnd = !m_Follower.Read(kReadAtOnce);
        if (m_IsAtEnd && m_HasPartial && IsAtRest())
        {
            m_Follower.EndLine();
        }
        if (m_IsAtEnd)
        {
            TellState();
        }
    }
    return true;
}

// False: nothing of it can be read, and so it is left.
bool MergedInput::BeginBlock()
{
    Block& block = m_Blocks.front();
    if (block.bytes.empty())
    {
        block.bytes = BytesOf(block.stored, block.offset, block.size);
    }
    m_At = 0;
    m_IsBegun = true;
    if (m_Time == k_Unknown && !block.isNote)
    {
        LookForFirstTime();
    }
    return !m_Blocks.front().bytes.empty();
}

// What is told comes before what it is about.
void MergedInput::LookForFirstTime()
{
    std::string_view rest = m_Blocks.front().bytes;
    while (!rest.empty() && m_Time == k_Unknown)
    {
        const size_t feed = std::min(rest.find('\n'), rest.size());
        m_Time = m_Times.Of(rest.substr(0, feed)).value_or(k_Unknown);
        rest.remove_prefix(std::min(feed + 1, rest.size()));
    }
    if (m_Time != k_Unknown || m_ToldUnknown || m_Blocks.front().bytes.empty())
    {
        return;
    }
    m_ToldUnknown = true;
    std::deque<Block> later;
    later.swap(m_Blocks);
    AddNote(m_Follower.FileName().Leaf() +
            " begins without times: its lines stand before those of other files");
    m_Blocks.insert(m_Blocks.end(), std::make_move_iterator(later.begin()),
                    std::make_move_iterator(later.end()));
}

bool MergedInput::NextLine()
{
    for (; !m_Blocks.empty(); m_IsBegun = false, m_Blocks.pop_front())
    {
        if ((!m_IsBegun && !BeginBlock()) || m_At >= m_Blocks.front().bytes.size())
        {
            continue;
        }
        const Block& block = m_Blocks.front();
        const size_t feed = block.bytes.find('\n', m_At);
        m_HasFeed = feed != std::string::npos;
        m_End = m_HasFeed ? feed : block.bytes.size();
        m_HasLine = true;
        if (!block.isNote)
        {
            m_Time = std::max(m_Time, m_Times.Of(Line()).value_or(k_Unknown));
        }
        return true;
    }
    return false;
}

void MergedInput::Take()
{
    m_At = m_End + (m_HasFeed ? 1 : 0);
    m_HasLine = false;
}

std::string_view MergedInput::Line() const
{
    return std::string_view(m_Blocks.front().bytes).substr(m_At, m_End - m_At);
}

MergedText::Part MergedInput::Place() const
{
    const Block& block = m_Blocks.front();
    return {block.source, block.offset + m_At,
            static_cast<uint32_t>(m_End - m_At + (m_HasFeed ? 1 : 0)), 1, !m_HasFeed};
}
