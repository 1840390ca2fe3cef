#pragma once

#include "monitor/Picture.h"
#include "monitor/PictureFile.h"
#include "monitor/PictureHeader.h"

#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

/// Loads pictures on a thread of its own, one at a time: the one that was asked for last. Without a
/// window; its functions are for one thread.
class PictureLoader
{
public:
    struct Result
    {
        Path        file;
        FileStamp   stamp;
        PictureSize size; ///< As the file has it.
        Picture     picture;
        bool        isWhole = true; ///< It is not being written just now.
        String      problem;        ///< Why there is none, for the user.
    };
    /// Decodes what is no PNM picture; false when that is not possible.
    using Decode = std::function<bool(const String& bytes, Picture& picture)>;

    /// `wake` is called on the loader's thread when there is a result.
    PictureLoader(Decode decode, std::function<void()> wake);
    ~PictureLoader(); ///< Waits for what is being decoded.

    /// Loads the picture, no larger than `most` pixels in either direction, unless the file's stamp
    /// is the known one. What was asked for before is forgotten.
    void                  Ask(const Path& file, const FileStamp& known, int most);
    std::optional<Result> Take();

private:
    struct Wish
    {
        Path      file;
        FileStamp known;
        int       most = 0;
    };

    void   Run();
    Result Load(const Wish& wish);
    String LoadInto(Result& result, int most);
    bool   IsOver();

    Decode                  m_Decode;
    std::function<void()>   m_Wake;
    std::mutex              m_Mutex;
    std::condition_variable m_Condition;
    std::optional<Wish>     m_Wish;
    std::optional<Result>   m_Result;
    bool                    m_IsEnding = false;
    std::thread             m_Thread; ///< Last: it uses the others.
};
