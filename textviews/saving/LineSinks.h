#pragma once

#include "textviews/saving/LineRun.h"
#include "vesta/OutputFile.h"
#include "vesta/String.h"

#include <functional>

namespace textviews
{
class ShownLines;

/// A file that has the lines, each with the platform's end of line. Until it is finished the file
/// is as it was before. What fails throws an `Exception*`.
class FileSink final : public LineSink
{
public:
    explicit FileSink(const Path& path);

    void Take(std::string_view line, bool goesOn) override;
    void Finish() override;

private:
    OutputFile   m_File;
    const String m_EndOfLine = OutputFile::k_EndOfLine;
};

/// One text of all lines, each with a newline, for somebody who gets it when it is finished.
class TextSink final : public LineSink
{
public:
    using Done = std::function<void(String text)>;

    /// `shown`: makes plain text of the lines; null for their bytes. `bytes`: about as many as will
    /// come, because growing would take twice the memory, and that of a log may be much.
    TextSink(ShownLines* shown, size_t bytes, Done done);

    void Take(std::string_view line, bool goesOn) override;
    void Finish() override;

private:
    ShownLines* m_Shown;
    String      m_Text;
    Done        m_Done;
};
} // namespace textviews
