#pragma once

#include "logview/ByteStream.h"
#include "logview/LineCutter.h"
#include "logview/SpoolFile.h"
#include "logview/TextFollower.h"
#include "textviews/wxTextSource.h"
#include "vesta/Path.h"
#include "vesta/String.h"

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

/// Reads a growing text file line by line, from its start, and notices when it is cut off or
/// replaced; an archive it reads as the text that it holds, and "-" is the standard input. What
/// cannot be read is left out, and told. Without a window or a thread: whoever owns it calls `Read`
/// now and then.
class FileFollower final : public TextFollower
{
public:
    using Stretches = std::vector<wxTextStretch>;
    using Source = std::shared_ptr<const wxTextSource>;

    /// What the owner does with what is read.
    struct Sink
    {
        LineCutter::OnLine onLine;
        LineCutter::OnLine onPartialLine;
        /// The file was cut off or replaced; what follows is read from its new start. `how` is a
        /// text for the user.
        std::function<void(const String& how)> onRestart;
        /// Something is missing at this place of the text.
        std::function<void(const String& what)> onNote = {};
        /// More lines, of a large file, which stay where they are. Without it all are told.
        std::function<void(const Source& source, const Stretches& stretches)> onStored = {};
        /// The line told of last was too long to be one: the next one is the rest of it.
        std::function<void()> onCut = {};
    };

    /// Whether a name stands for the standard input.
    static bool IsInput(const Path& path) { return path.Text() == "-"; }

    FileFollower(const Path& path, Sink sink);
    ~FileFollower() override;
    FileFollower(const FileFollower&) = delete;
    FileFollower& operator=(const FileFollower&) = delete;

    /// Text of more bytes than that stays on the disk.
    void KeepInMemory(uint64_t bytes) { m_MostInMemory = bytes; }
    /// For tests: has files read through another source than `wxTextFile`.
    using OpenSource = std::function<Source(Descriptor file)>;
    void ReadThrough(OpenSource open) { m_OpenSource = std::move(open); }

    bool Read(size_t limit) override;
    /// Takes the unfinished last line for a finished one: what comes is another one.
    void EndLine() { FinishLine(); }

    const Path&   FileName() const { return m_Path; }
    State         CurrentState() const override { return m_State; }
    const String& Problem() const override { return m_Problem; }
    long long     Position() const override { return static_cast<long long>(m_Position + m_Tail); }

private:
    class _File;

    bool     Open();
    void     Close();
    uint64_t SizeNow() const;
    bool     WasReplaced();
    void     LookForCut();
    void     LookForArchive();
    void     Restart(const String& how);
    void     BeginAnew();
    bool     AtEnd();

    bool   ReadIntoMemory(size_t limit);
    bool   ReadStored(size_t limit);
    void   StoreFromNow();
    size_t Next(char* buffer, size_t count);
    size_t NextOfFile(char* buffer, size_t count);
    bool   SkipBad(int problem);
    size_t SpoolNext();
    bool   FindLines();
    void   FinishLine();
    void   TellBad();
    void   Note(const String& what);

    Path       m_Path;
    Sink       m_Sink;
    LineCutter m_Cutter;
    OpenSource m_OpenSource;
    uint64_t   m_MostInMemory;
    State      m_State = State::kMissing;
    String     m_Problem;

    std::shared_ptr<_File>      m_File;
    std::unique_ptr<ByteStream> m_Stream;          ///< Of an archive or the standard input.
    bool                        m_IsKnown = false; ///< Whether it is an archive.
    bool                        m_ToldEnd = false; ///< That the stream is broken or too short.
    bool                        m_IsSpoolFull = false;
    uint64_t                    m_Position = 0; ///< In the text.

    Source            m_Stored;         ///< Holds the text that stays on the disk; null: none does.
    uint64_t          m_StoredFrom = 0; ///< Position in the text of the source's start.
    size_t            m_Tail = 0;       ///< Bytes behind the position that are no line yet.
    SpoolFile         m_Spool;          ///< For the text of a stream.
    std::vector<char> m_Buffer;

    uint64_t m_BadBytes = 0; ///< That could not be read, up to here.
    int      m_BadReason = 0;
};
