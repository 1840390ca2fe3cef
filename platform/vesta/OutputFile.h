#pragma once

#include "vesta/Export.h"
#include "vesta/Path.h"
#include "vesta/String.h"

#include <memory>

namespace vesta
{
class OutputTarget;
}

/// A file that is written from its start, buffered. An ordinary file keeps its old content until
/// `Close` has put the new one in its place, with the same owner and mode: a full disk, a crash or
/// a writer that gives up leaves the old content, or no file where there was none. Symbolic links
/// are followed. What cannot be replaced is written in place: a file of several names, a device, a
/// pipe, a file in a folder that may not be written in. Every failure is an `Exception*`. Writing
/// after `Close` fails. For one thread at a time.
class TOLVAN_API OutputFile
{
public:
    static const char* const k_EndOfLine; ///< "\n".

    explicit OutputFile(const Path& path);
    ~OutputFile(); ///< Gives up what was not closed, with a line in the log.
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    void Write(const char* bytes, size_t count);
    void Write(const String& text) { Write(text.data(), text.size()); }
    void WriteLine(const String& text); ///< The text and the platform's end of line.
    void Close(); ///< Again: nothing. After a failure of `Write` it fails too.

private:
    void              WriteOut(const char* bytes, size_t count);
    [[noreturn]] void Fail(const char* method);

    Path                                 m_Path;
    std::unique_ptr<vesta::OutputTarget> m_Target; ///< Never null; closed after `Close`.
    String                               m_Buffer;
    bool                                 m_IsIncomplete = false; ///< A write has failed.
};
