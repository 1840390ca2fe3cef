#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace master
{
/// Cuts a stream of bytes into lines at "\n". A line longer than the limit comes in pieces of that
/// length; whatever follows the last line end comes with `Finish`. All other bytes, NUL and "\r"
/// among them, belong to their line.
class LineSplitter
{
public:
    /// Gets a line or a piece without its line end; valid during the call only.
    using Take = std::function<void(std::string_view line)>;

    /// `limit`: bytes of a piece, more than 0.
    explicit LineSplitter(std::size_t limit) : m_Limit(limit) {}

    void Add(std::string_view bytes, const Take& take);
    void Finish(const Take& take);

private:
    void AddUnfinished(std::string_view bytes, const Take& take);

    std::size_t m_Limit;
    std::string m_Begun; ///< What has come of the current line, at most the limit.
};
} // namespace master
