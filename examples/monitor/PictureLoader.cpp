#include "monitor/PictureLoader.h"

#include "vesta/Guarded.h"

#include <utility>

PictureLoader::PictureLoader(Decode decode, std::function<void()> wake)
    : m_Decode(std::move(decode)), m_Wake(std::move(wake)), m_Thread([this] { Run(); })
{
}

PictureLoader::~PictureLoader()
{
    {
        const std::lock_guard<std::mutex> lock(m_Mutex);
        m_IsEnding = true;
    }
    m_Condition.notify_one();
    m_Thread.join();
}

void PictureLoader::Ask(const Path& file, const FileStamp& known, int most)
{
    {
        const std::lock_guard<std::mutex> lock(m_Mutex);
        m_Wish = Wish{file, known, most};
    }
    m_Condition.notify_one();
}

std::optional<PictureLoader::Result> PictureLoader::Take()
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    return std::exchange(m_Result, std::nullopt);
}

// There is something newer to do.
bool PictureLoader::IsOver()
{
    const std::lock_guard<std::mutex> lock(m_Mutex);
    return m_IsEnding || m_Wish;
}

void PictureLoader::Run()
{
    std::unique_lock<std::mutex> lock(m_Mutex);
    for (;;)
    {
        m_Condition.wait(lock, [this] { return m_IsEnding || m_Wish; });
        if (m_IsEnding)
        {
            return;
        }
        const Wish wish = *std::exchange(m_Wish, std::nullopt);
        lock.unlock();
        std::optional<Result> result;
        Guarded("Loading a picture",
                [&]
                {
                    if (!(StampOf(wish.file) == wish.known))
                    {
                        result = Load(wish);
                    }
                });
        lock.lock();
        if (result && !m_IsEnding && !m_Wish)
        {
            m_Result = std::move(result);
            m_Wake();
        }
    }
}

PictureLoader::Result PictureLoader::Load(const Wish& wish)
{
    Result result;
    result.file = wish.file;
    result.problem = LoadInto(result, wish.most);
    return result;
}

String PictureLoader::LoadInto(Result& result, int most)
{
    String bytes;
    String problem = ReadPicture(result.file, bytes, result.stamp, [this] { return IsOver(); });
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
    if (!DecodePnm(bytes, picture, result.isWhole) && (IsOver() || !m_Decode(bytes, picture)))
    {
        return "The picture is damaged, or still being written.";
    }
    result.picture = Shrunk(picture, most);
    return {};
}
