#include "textviews/lines/StoredText.h"

#include "vesta/Guarded.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstring>
#include <deque>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <utility>

namespace textviews
{
namespace
{
constexpr size_t kMostBytes = 64 * 1024 * 1024; // of lines that are kept: a screen of the longest
constexpr size_t kMostEntries = 256;
constexpr size_t kLeastEntries = 8; // are kept, however long the lines are
constexpr size_t kMostWishes = 64;  // what a view that is scrolled about has asked for last

constexpr std::string_view kMissing = "--- lost ---";

using Clock = std::chrono::steady_clock;
constexpr auto kPatience = std::chrono::milliseconds(40);
constexpr auto kImpatience =
    std::chrono::milliseconds(300); // how long a slow disk is not waited for

bool IsSame(const StoredPlace& a, const StoredPlace& b)
{
    return a.offset == b.offset && a.source == b.source && a.size == b.size && a.lines == b.lines;
}

void AddLine(StoredText& text, std::string_view line)
{
    text.starts.push_back(static_cast<uint32_t>(text.bytes.size()));
    while (!line.empty())
    {
        const size_t tab = line.find('\t');
        const auto   plain = line.substr(0, tab);
        text.bytes.insert(text.bytes.end(), plain.begin(), plain.end());
        if (tab == std::string_view::npos)
        {
            return;
        }
        text.bytes.insert(text.bytes.end(), k_TabReplacement, k_TabReplacement + k_TabGrowth + 1);
        line.remove_prefix(tab + 1);
    }
}

std::string WhyMissing(int problem)
{
    return problem == 0
               ? "--- From here on lines are no longer in the file ---"
               : "--- From here on lines cannot be read: " + std::string(std::strerror(problem)) +
                     " ---";
}

// Line feeds end lines; the last one need not have one.
void AddLines(StoredText& text, std::string_view bytes, size_t most)
{
    while (!bytes.empty() && text.starts.size() < most)
    {
        const size_t feed = bytes.find('\n');
        AddLine(text, bytes.substr(0, feed));
        bytes.remove_prefix(feed == std::string_view::npos ? bytes.size() : feed + 1);
    }
}
} // namespace

// The file may have changed since its lines were counted: as many as were promised it has to be.
StoredText ReadStored(const StoredPlace& place)
{
    StoredText        text;
    std::vector<char> raw(place.size);
    int               problem = 0;
    const size_t      size = place.source->Read(place.offset, raw.data(), raw.size(), problem);
    const auto        lines = static_cast<size_t>(place.lines);
    text.starts.reserve(lines);
    text.bytes.reserve(size);
    AddLines(text, {raw.data(), size}, lines);
    if (text.starts.size() < lines)
    {
        AddLine(text, WhyMissing(problem));
    }
    while (text.starts.size() < lines)
    {
        AddLine(text, kMissing);
    }
    return text;
}

// What the view and the thread have in common: the thread may be there for longer.
class StoredTexts::_Work
{
public:
    explicit _Work(std::function<void()> late) : m_Late(std::move(late)) {}

    bool TakeFinished(const StoredPlace& place, StoredText& text);
    void AskLast(const StoredPlace& place);
    void Run();
    void End();

private:
    bool TakeNow(const StoredPlace& place, StoredText& text);
    void Ask(const StoredPlace& place);
    bool IsKnown(const StoredPlace& place) const;

    const std::function<void()> m_Late;
    std::mutex                  m_Mutex;
    std::condition_variable     m_Condition;
    std::deque<StoredPlace>     m_Wishes; // the latest one last
    std::list<Entry>            m_Finished;
    StoredPlace                 m_Reading;
    Clock::time_point           m_ImpatientUntil;
    bool                        m_IsLate = false;
    bool                        m_IsEnding = false;
};

bool StoredTexts::_Work::TakeNow(const StoredPlace& place, StoredText& text)
{
    const auto entry = std::find_if(m_Finished.begin(), m_Finished.end(),
                                    [&](const Entry& e) { return IsSame(e.place, place); });
    if (entry == m_Finished.end())
    {
        return false;
    }
    text = std::move(entry->text);
    m_Finished.erase(entry);
    return true;
}

bool StoredTexts::_Work::IsKnown(const StoredPlace& place) const
{
    const auto isIt = [&](const StoredPlace& other) { return IsSame(other, place); };
    return isIt(m_Reading) || std::any_of(m_Wishes.begin(), m_Wishes.end(), isIt);
}

// After all that somebody waits for.
void StoredTexts::_Work::AskLast(const StoredPlace& place)
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    const bool                        isFinished = std::any_of(m_Finished.begin(), m_Finished.end(),
                                                               [&](const Entry& e) { return IsSame(e.place, place); });
    if (!isFinished && !IsKnown(place) && m_Wishes.size() < kMostWishes)
    {
        m_Wishes.push_front(place);
        m_Condition.notify_all();
    }
}

void StoredTexts::_Work::Ask(const StoredPlace& place)
{
    if (IsKnown(place))
    {
        return;
    }
    m_Wishes.push_back(place);
    if (m_Wishes.size() > kMostWishes)
    {
        m_Wishes.pop_front();
    }
    m_Condition.notify_all();
}

// Waits a moment for it. After a moment in vain the next ones are not waited for: a window shows
// many.
bool StoredTexts::_Work::TakeFinished(const StoredPlace& place, StoredText& text)
{
    std::unique_lock<std::mutex> lock(m_Mutex);
    if (TakeNow(place, text))
    {
        return true;
    }
    Ask(place);
    if (Clock::now() >= m_ImpatientUntil)
    {
        const auto end = Clock::now() + kPatience;
        while (m_Condition.wait_until(lock, end) != std::cv_status::timeout)
        {
            if (TakeNow(place, text))
            {
                return true;
            }
        }
        m_ImpatientUntil = Clock::now() + kImpatience;
    }
    m_IsLate = true;
    return TakeNow(place, text);
}

void StoredTexts::_Work::Run()
{
    std::unique_lock<std::mutex> lock(m_Mutex);
    for (;;)
    {
        m_Condition.wait(lock, [this] { return m_IsEnding || !m_Wishes.empty(); });
        if (m_IsEnding)
        {
            return;
        }
        m_Reading = m_Wishes.back();
        m_Wishes.pop_back();
        Entry entry{m_Reading, {}};
        lock.unlock();
        if (!Guarded("Reading lines", [&] { entry.text = ReadStored(entry.place); }))
        {
            entry.text.starts.assign(static_cast<size_t>(entry.place.lines), 0); // they look empty
        }
        lock.lock();
        m_Reading = {};
        if (m_IsEnding)
        {
            return;
        }
        m_Finished.push_front(std::move(entry));
        if (m_Finished.size() > kMostWishes)
        {
            m_Finished.pop_back();
        }
        m_Condition.notify_all();
        if (std::exchange(m_IsLate, false) && m_Late)
        {
            m_Late();
        }
    }
}

// Who is told belongs to the view, which goes now.
void StoredTexts::_Work::End()
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    m_IsEnding = true;
    m_Condition.notify_all();
}

StoredTexts::StoredTexts(std::function<void()> late) : m_Late(std::move(late))
{
}

StoredTexts::~StoredTexts()
{
    if (m_Work)
    {
        m_Work->End();
    }
}

const StoredText* StoredTexts::Find(const StoredPlace& place)
{
    const auto entry = std::find_if(m_Entries.begin(), m_Entries.end(),
                                    [&](const Entry& e) { return IsSame(e.place, place); });
    if (entry == m_Entries.end())
    {
        return nullptr;
    }
    m_Entries.splice(m_Entries.begin(), m_Entries, entry);
    return &entry->text;
}

const StoredText& StoredTexts::Keep(const StoredPlace& place, StoredText text)
{
    m_Bytes += text.bytes.size();
    m_Entries.push_front({place, std::move(text)});
    while (m_Entries.size() > kLeastEntries &&
           (m_Bytes > kMostBytes || m_Entries.size() > kMostEntries))
    {
        m_Bytes -= m_Entries.back().text.bytes.size();
        m_Entries.pop_back();
    }
    return m_Entries.front().text;
}

const StoredText& StoredTexts::Now(const StoredPlace& place)
{
    const StoredText* const kept = Find(place);
    return kept ? *kept : Keep(place, ReadStored(place));
}

const StoredText* StoredTexts::Soon(const StoredPlace& place)
{
    if (const StoredText* const kept = Find(place))
    {
        return kept;
    }
    StoredText text;
    return Work().TakeFinished(place, text) ? &Keep(place, std::move(text)) : nullptr;
}

void StoredTexts::Ahead(const StoredPlace& place)
{
    if (!Find(place))
    {
        Work().AskLast(place);
    }
}

StoredTexts::_Work& StoredTexts::Work()
{
    if (!m_Work)
    {
        m_Work = std::make_shared<_Work>(m_Late);
        std::thread([work = m_Work] { work->Run(); }).detach();
    }
    return *m_Work;
}

void StoredTexts::Forget()
{
    m_Entries.clear();
    m_Bytes = 0;
}
} // namespace textviews
