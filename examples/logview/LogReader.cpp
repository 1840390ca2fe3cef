#include "logview/LogReader.h"

#include "vesta/Guarded.h"

#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>

namespace
{
constexpr size_t kSlice = 4u << 20;       // bytes read between two looks at what is wanted
constexpr size_t kMostWaiting = 8u << 20; // bytes of lines that nobody has taken yet
constexpr size_t kPieceBytes = 64;        // that a piece takes besides its text
} // namespace

class LogReader::_Work
{
public:
    _Work(const std::vector<Path>& files, std::function<void()> wake);

    void              Run();
    bool              Look();
    void              End();
    void              Stop();
    bool              IsIdle();
    Status            StatusNow();
    std::deque<Piece> Take();

private:
    std::unique_ptr<TextFollower> NewFollower(const std::vector<Path>& files);

    void Put(Piece piece);
    void Read(std::unique_lock<std::mutex>& lock);
    void NoteStatus();

    const std::function<void()>   m_Wake;
    std::unique_ptr<TextFollower> m_Follower; // the thread's, once there is one
    std::mutex                    m_Mutex;
    std::condition_variable       m_Condition;
    std::deque<Piece>             m_Pieces;
    size_t                        m_Bytes = 0;         // of the pieces
    bool                          m_HasStored = false; // there have been lines on the disk
    Status                        m_Status;
    bool                          m_IsWanted = false; // somebody asks for what has come
    bool                          m_IsReading = false;
    bool                          m_IsStopped = false;
    bool                          m_IsEnding = false;
};

LogReader::_Work::_Work(const std::vector<Path>& files, std::function<void()> wake)
    : m_Wake(std::move(wake)), m_Follower(NewFollower(files))
{
    m_Follower->Read(0);
    NoteStatus();
}

std::unique_ptr<TextFollower> LogReader::_Work::NewFollower(const std::vector<Path>& files)
{
    if (files.size() > 1)
    {
        return std::make_unique<MergedFollower>(
            files,
            [this](const auto& text, const auto& lines, const auto& origins) {
                Put({Kind::kStored, {}, text, lines, origins});
            });
    }
    const auto put = [this](Kind kind) {
        return [this, kind](const String& text) { Put({kind, text, {}, {}}); };
    };
    return std::make_unique<FileFollower>(
        files.front(), FileFollower::Sink{put(Kind::kLine), put(Kind::kPartialLine),
                                          put(Kind::kNote), put(Kind::kNote),
                                          [this](const auto& source, const auto& stretches) {
                                              Put({Kind::kStored, {}, source, stretches});
                                          },
                                          [this] {
                                              Put({Kind::kCut, {}, {}, {}});
                                          }});
}

// Waits until there is room for more: nobody may be able to take it as fast as it is read.
void LogReader::_Work::Put(Piece piece)
{
    std::unique_lock<std::mutex> lock(m_Mutex);
    m_Condition.wait(lock, [this] { return m_IsEnding || m_IsStopped || m_Bytes < kMostWaiting; });
    if (m_IsEnding || m_IsStopped)
    {
        return;
    }
    m_Bytes += piece.text.size() + piece.stretches.size() * sizeof(wxTextStretch) +
               piece.origins.size() + kPieceBytes;
    // Lines on the disk are found much faster than anybody can look at them: but for the first ones
    // nobody is disturbed.
    const bool isUrgent = piece.kind != Kind::kStored || !std::exchange(m_HasStored, true);
    m_Pieces.push_back(std::move(piece));
    if (m_Pieces.size() == 1 && isUrgent)
    {
        m_Wake();
    }
}

void LogReader::_Work::NoteStatus()
{
    m_Status = {m_Follower->CurrentState(), m_Follower->Problem(), m_Follower->Position()};
}

void LogReader::_Work::Run()
{
    std::unique_lock<std::mutex> lock(m_Mutex);
    while (!m_IsEnding)
    {
        m_Condition.wait(lock, [this] { return m_IsEnding || m_IsWanted; });
        m_IsWanted = false;
        m_IsReading = true;
        Read(lock);
        m_IsReading = false;
    }
}

void LogReader::_Work::Read(std::unique_lock<std::mutex>& lock)
{
    for (bool hasMore = true; hasMore && !m_IsEnding && !m_IsStopped;)
    {
        lock.unlock();
        hasMore = false;
        Guarded("Reading a file", [&] { hasMore = m_Follower->Read(kSlice); });
        lock.lock();
        NoteStatus();
    }
}

bool LogReader::_Work::Look()
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    if (!m_IsReading && !m_IsStopped)
    {
        m_IsWanted = true;
        m_Condition.notify_all();
    }
    return m_IsReading || m_IsWanted;
}

// Who is woken belongs to the program: from here on nobody is.
void LogReader::_Work::End()
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    m_IsEnding = true;
    m_Condition.notify_all();
}

void LogReader::_Work::Stop()
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    m_IsStopped = true;
    m_Condition.notify_all();
}

bool LogReader::_Work::IsIdle()
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    return !m_IsReading && !m_IsWanted && m_Pieces.empty();
}

LogReader::Status LogReader::_Work::StatusNow()
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    return m_Status;
}

std::deque<LogReader::Piece> LogReader::_Work::Take()
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    m_Bytes = 0;
    m_Condition.notify_all();
    return std::exchange(m_Pieces, {});
}

LogReader::LogReader(const Path& file, std::function<void()> wake)
    : LogReader(std::vector<Path>{file}, std::move(wake))
{
}

LogReader::LogReader(const std::vector<Path>& files, std::function<void()> wake)
    : m_Files(files), m_Work(std::make_shared<_Work>(files, std::move(wake)))
{
}

LogReader::~LogReader()
{
    m_Work->End();
}

// Hundreds of files may be open that nobody has looked at.
bool LogReader::Look()
{
    if (!m_HasThread)
    {
        m_HasThread = true;
        std::thread([work = m_Work] { work->Run(); }).detach();
    }
    return m_Work->Look();
}

void LogReader::Stop()
{
    m_Work->Stop();
}

bool LogReader::IsIdle() const
{
    return m_Work->IsIdle();
}

LogReader::Status LogReader::StatusNow() const
{
    return m_Work->StatusNow();
}

std::deque<LogReader::Piece> LogReader::Take()
{
    return m_Work->Take();
}
