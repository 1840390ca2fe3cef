#pragma once

#include "vesta/Export.h"
#include "vesta/Path.h"
#include "vesta/String.h"

#include <memory>

class _Descriptor;

/// A file that is written from its start, buffered. Every failure is an `Exception*`. Writing after
/// `Close` fails. For one thread at a time.
class TOLVAN_API OutputFile
{
public:
    static const char* const k_EndOfLine; ///< "\n".

    /// Creates the file or empties it.
    explicit OutputFile(const Path& path);
    ~OutputFile(); ///< Closes it; a failure then is only logged. Call `Close` to hear of it.
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    void Write(const char* bytes, size_t count);
    void Write(const String& text) { Write(text.data(), text.size()); }
    void WriteLine(const String& text); ///< The text and the platform's end of line.
    void Close();

private:
    void Flush();
    void WriteOut(const char* bytes, size_t count);

    Path                         m_Path;
    std::unique_ptr<_Descriptor> m_File; ///< Never null; closed after `Close`.
    String                       m_Buffer;
};
