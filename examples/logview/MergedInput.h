#pragma once

#include "logview/FileFollower.h"
#include "logview/LineTimes.h"
#include "logview/MemoryText.h"
#include "logview/MergedText.h"

#include <chrono>
#include <deque>
#include <memory>
#include <string>
#include <string_view>

/// One of the files that are merged: its lines one after the other, each with the time by which it
/// is put among those of other files. That never goes back within the file: a line without a time
/// of its own, or with an earlier one, has that of the line before it; those before the first time
/// have that one.
class MergedInput
{
public:
    /// The time of lines before which no time is known.
    static constexpr LineTime k_Unknown = INT64_MIN;

    /// Its lines lie in sources of `text`, as parts to be added to it. Text of more than
    /// `mostInMemory` bytes stays on the disk.
    MergedInput(const Path& file, MergedText& text, uint64_t mostInMemory);

    /// Opens the file.
    void Open() { m_Follower.Read(0); }
    /// Has it look for what has come since.
    void BeginPass();
    /// Reads as far as the next line, if need be; false when there is none now.
    bool Prepare();

    /// @name The next line
    /// Once `Prepare` has found it.
    /// @{
    LineTime         Time() const { return m_Time; }
    std::string_view Line() const; ///< Without its line feed.
    MergedText::Part Place() const;
    void             Take();
    /// @}

    const FileFollower& Follower() const { return m_Follower; }

private:
    /// Lines that lie one behind the other.
    struct Block
    {
        size_t               source = 0; ///< Its number.
        uint64_t             offset = 0;
        uint32_t             size = 0;
        std::string          bytes;          ///< Empty: to be read.
        bool                 isNote = false; ///< Not of the file.
        FileFollower::Source stored = {};    ///< To be read from.
    };
    using Clock = std::chrono::steady_clock;

    void AddLine(std::string_view line, bool isNote);
    void AddNote(const String& text) { AddLine("--- " + text + " ---", true); }
    void AddStored(const FileFollower::Source& source, const FileFollower::Stretches& stretches);
    void CopyStored(const FileFollower::Source& source, const wxTextStretch& stretch);
    static std::string BytesOf(const FileFollower::Source& source, uint64_t offset, size_t size);
    void               AddPartial(const String& line);
    bool               IsAtRest() const;
    void               TellState();

    bool BeginBlock();
    bool NextLine();
    void LookForFirstTime();

    MergedText&                 m_Text;
    std::shared_ptr<MemoryText> m_Memory;
    size_t                      m_MemoryNumber;
    FileFollower::Source        m_Stored; ///< The one whose lines came last.
    size_t                      m_StoredNumber = 0;
    bool                        m_HasNumber = false;
    FileFollower                m_Follower;
    TextFollower::State         m_ToldState = TextFollower::State::kFollowing;
    bool                        m_IsAtEnd = false; ///< In this pass.
    bool                        m_HasPartial = false;
    Clock::time_point           m_PartialSince;
    std::deque<Block>           m_Blocks; ///< The first one is the one that is gone through.

    /// @name In the first block
    /// @{
    bool   m_IsBegun = false;
    size_t m_At = 0;
    size_t m_End = 0;
    bool   m_HasFeed = false;
    bool   m_HasLine = false;
    /// @}

    LineTimes m_Times;
    LineTime  m_Time = k_Unknown;
    bool      m_ToldUnknown = false;
};
