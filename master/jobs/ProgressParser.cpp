#include "master/jobs/ProgressParser.h"

#include <charconv>

namespace master
{
namespace
{

constexpr std::string_view kPercentWord = "PROGRESS ";
constexpr std::string_view kFrameWord = "FRAME ";
constexpr long long        kMostFrames = 1000000000;

bool TakeWord(std::string_view& text, std::string_view word)
{
    if (text.substr(0, word.size()) != word)
    {
        return false;
    }
    text.remove_prefix(word.size());
    return true;
}

bool TakeNumber(std::string_view& text, long long& number)
{
    const auto end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    if (result.ec != std::errc() || number < 0)
    {
        return false;
    }
    text.remove_prefix(static_cast<std::size_t>(result.ptr - text.data()));
    return true;
}

/// Whether a number ends where `rest` begins: "4x" is no number.
bool IsEnd(std::string_view rest)
{
    return rest.empty() || std::string_view(" \t\r%.,:;)").find(rest[0]) != std::string_view::npos;
}

} // namespace

bool ReadProgress(std::string_view line, Progress& progress)
{
    Progress  found;
    long long number = 0;
    if (TakeWord(line, kPercentWord))
    {
        if (!TakeNumber(line, number) || number > 100 || !IsEnd(line))
        {
            return false;
        }
        found.percent = static_cast<int>(number);
        progress = found;
        return true;
    }
    if (!TakeWord(line, kFrameWord) || !TakeNumber(line, found.framesDone) ||
        !TakeWord(line, "/") || !TakeNumber(line, found.frameCount) || !IsEnd(line) ||
        found.frameCount == 0 || found.frameCount > kMostFrames ||
        found.framesDone > found.frameCount)
    {
        return false;
    }
    found.percent = static_cast<int>(found.framesDone * 100 / found.frameCount);
    progress = found;
    return true;
}
} // namespace master
