#include "monitor/PictureLoader.h"

#include "vesta/Guarded.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <utility>

namespace
{
constexpr auto kPatience = std::chrono::milliseconds(200); // with what is being read at the end
} // namespace

// What the loader and its thread have in common: the thread may be there for longer.
class PictureLoader::_Work
{
public:
    _Work(Decode decode, std::function<void()> wake, Read read)
        : m_Decode(std::move(decode)), m_Wake(std::move(wake)), m_Read(std::move(read))
    {
    }

    void                  Ask(const Path& file, const FileStamp& known, int most);
    std::optional<Result> Take();
    void                  Run();
    bool                  End(); ///< Whether the thread has nothing more to do.

private:
    struct Wish
    {
        Path      file;
        FileStamp known;
        int       most = 0;
    };

    std::optional<Result> Load(const Wish& wish);
    String                LoadInto(Result& result, int most);
    bool                  DecodeOther(const String& bytes, Picture& picture);
    bool                  IsOver();

    const Decode                m_Decode;
    const std::function<void()> m_Wake;
    const Read                  m_Read;
    std::mutex                  m_Mutex;
    std::condition_variable     m_Condition;
    std::optional<Wish>         m_Wish;
    std::optional<Result>       m_Result;
    bool                        m_IsDecoding = false;
    bool                        m_IsEnding = false;
    bool                        m_HasEnded = false;
};

PictureLoader::PictureLoader(Decode decode, std::function<void()> wake, Read read)
    : m_Work(std::make_shared<_Work>(std::move(decode), std::move(wake), std::move(read))),
      m_Thread([work = m_Work] { work->Run(); })
{
}

PictureLoader::~PictureLoader()
{
    if (m_Work->End())
    {
        m_Thread.join();
    }
    else
    {
        m_Thread.detach();
    }
}

void PictureLoader::Ask(const Path& file, const FileStamp& known, int most)
{
    m_Work->Ask(file, known, most);
}

std::optional<PictureLoader::Result> PictureLoader::Take()
{
    return m_Work->Take();
}

// What decodes and who is woken belong to the program, which is on its way out: from here on
// neither is called.
bool PictureLoader::_Work::End()
{
    std::unique_lock<std::mutex> lock(m_Mutex);
    m_IsEnding = true;
    m_Condition.notify_all();
    m_Condition.wait(lock, [this] { return !m_IsDecoding; });
    return m_Condition.wait_for(lock, kPatience, [this] { return m_HasEnded; });
}

void PictureLoader::_Work::Ask(const Path& file, const FileStamp& known, int most)
{
    {
        const std::lock_guard<std::mutex> lock(m_Mutex);
        m_Wish = Wish{file, known, most};
    }
    m_Condition.notify_all();
}

std::optional<PictureLoader::Result> PictureLoader::_Work::Take()
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    return std::exchange(m_Result, std::nullopt);
}

// There is something newer to do.
bool PictureLoader::_Work::IsOver()
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    return m_IsEnding || m_Wish;
}

void PictureLoader::_Work::Run()
{
    std::unique_lock<std::mutex> lock(m_Mutex);
    for (;;)
    {
        m_Condition.wait(lock, [this] { return m_IsEnding || m_Wish; });
        if (m_IsEnding)
        {
            m_HasEnded = true;
            m_Condition.notify_all();
            return;
        }
        const Wish wish = *std::exchange(m_Wish, std::nullopt);
        lock.unlock();
        std::optional<Result> result;
        Guarded("Loading a picture", [&] { result = Load(wish); });
        lock.lock();
        if (result && !m_IsEnding && !m_Wish)
        {
            m_Result = std::move(result);
            m_Wake();
        }
    }
}

// Nothing when the file is the known one.
std::optional<PictureLoader::Result> PictureLoader::_Work::Load(const Wish& wish)
{
    if (StampOf(wish.file) == wish.known)
    {
        return std::nullopt;
    }
    Result result;
    result.file = wish.file;
    result.problem = LoadInto(result, wish.most);
    return result;
}

String PictureLoader::_Work::LoadInto(Result& result, int most)
{
    String bytes;
    String problem = m_Read(result.file, bytes, result.stamp, [this] { return IsOver(); });
    if (!problem.empty())
    {
        return problem;
    }
    result.size = SizeOfPicture(bytes);
    if (result.size.width == 0)
    {
        return bytes.empty() ? "The file is empty, or still being written."
                             : "Pictures of this kind cannot be shown here.";
    }
    if (static_cast<long long>(result.size.width) * result.size.height > k_MostPicturePixels)
    {
        return SFormat("The picture is too large to be shown here (%d x %d).", result.size.width,
                       result.size.height);
    }
    Picture picture;
    if (!DecodePnm(bytes, picture, result.isWhole) && !DecodeOther(bytes, picture))
    {
        return "The picture is damaged, or still being written.";
    }
    result.picture = Shrunk(picture, most);
    return {};
}

bool PictureLoader::_Work::DecodeOther(const String& bytes, Picture& picture)
{
    {
        const std::lock_guard<std::mutex> lock(m_Mutex);
        m_IsDecoding = !m_IsEnding && !m_Wish;
        if (!m_IsDecoding)
        {
            return false;
        }
    }
    bool isDecoded = false;
    Guarded("Decoding a picture", [&] { isDecoded = m_Decode(bytes, picture); });
    {
        const std::lock_guard<std::mutex> lock(m_Mutex);
        m_IsDecoding = false;
    }
    m_Condition.notify_all();
    return isDecoded;
}
