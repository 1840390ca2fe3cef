#pragma once

#include "monitor/Picture.h"
#include "monitor/PictureFile.h"
#include "monitor/PictureHeader.h"

#include <functional>
#include <memory>
#include <optional>
#include <thread>

/// Loads pictures on a thread of its own, one at a time: the one that was asked for last. Without a
/// window; its functions are for one thread.
///
/// A disk that does not answer holds up that thread and nobody else: the thread is left behind with
/// what it uses, and does nothing more when the disk answers after all.
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
    /// As `ReadPicture`, which may take any time.
    using Read = std::function<String(const Path& file, String& bytes, FileStamp& stamp,
                                      const std::function<bool()>& isOver)>;

    /// `wake` is called on the loader's thread when there is a result.
    PictureLoader(Decode decode, std::function<void()> wake, Read read = &ReadPicture);
    /// Waits for what is being decoded, but only a moment for what is being read.
    ~PictureLoader();

    /// Loads the picture, no larger than `most` pixels in either direction, unless the file's stamp
    /// is the known one. What was asked for before is forgotten.
    void                  Ask(const Path& file, const FileStamp& known, int most);
    std::optional<Result> Take();

private:
    class _Work;

    std::shared_ptr<_Work> m_Work; ///< The thread's too.
    std::thread            m_Thread;
};
