#pragma once

#include "logview/MergedInput.h"
#include "logview/TextFollower.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

/// Follows several files as one text: their lines in the order of their time stamps, those of equal
/// times in the order of the files. What comes to a file later, once all of them were read to their
/// ends, is put in order among what has come with it, and at the end of the text. One thread.
class MergedFollower final : public TextFollower
{
public:
    static constexpr size_t k_MostFiles = 64;

    /// More lines of the text, which stay where they are, and which of the files each is of.
    using Origins = std::vector<uint8_t>;
    using OnLines =
        std::function<void(const FileFollower::Source& text, const FileFollower::Stretches& lines,
                           const Origins& origins)>;

    /// Of more files the first ones are followed.
    MergedFollower(const std::vector<Path>& files, OnLines onLines);
    ~MergedFollower() override;

    bool          Read(size_t limit) override;
    State         CurrentState() const override; ///< As long as one can be read, it is following.
    const String& Problem() const override;
    long long     Position() const override;

    size_t Memory() const { return m_Text->Memory(); } ///< Bytes that the order of lines takes.

private:
    /// Where a line has its place: by its time, then by its file.
    using Rank = std::pair<LineTime, size_t>;
    /// The file whose turn it is, as long as its lines come before that one of another.
    struct Turn
    {
        size_t index = 0;
        Rank   until;
    };

    const MergedInput& Leading() const;

    bool   FindTurn(Turn& turn);
    size_t TakeLines(const Turn& turn, size_t limit);
    void   TakeLine(size_t index);
    void   Flush();

    std::shared_ptr<MergedText>               m_Text;
    std::vector<std::unique_ptr<MergedInput>> m_Inputs;
    OnLines                                   m_OnLines;
    bool                                      m_IsInPass = false;

    /// @name Lines that nobody was told of yet
    /// @{
    std::string                   m_Bytes;
    std::vector<MergedText::Part> m_Parts;
    Origins                       m_Origins;
    /// @}
};
