#include "monitor/JobFrames.h"

#include <charconv>

namespace
{
constexpr std::string_view kWord = "FRAME ";
constexpr std::string_view kTook = " took ";

bool TakeNumber(std::string_view& text, int& number)
{
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    if (result.ec != std::errc() || number < 1)
    {
        return false;
    }
    text.remove_prefix(static_cast<size_t>(result.ptr - text.data()));
    return true;
}
} // namespace

bool JobFrames::Add(std::string_view line)
{
    int number = 0;
    int count = 0;
    if (line.substr(0, kWord.size()) != kWord)
    {
        return false;
    }
    line.remove_prefix(kWord.size());
    if (!TakeNumber(line, number) || line.empty() || line[0] != '/')
    {
        return false;
    }
    line.remove_prefix(1);
    if (!TakeNumber(line, count) || number > count || m_Frames.size() >= k_Most)
    {
        return false;
    }
    line.remove_prefix(line.empty() ? 0 : 1);
    const size_t took = line.rfind(kTook);
    Frame&       frame = m_Frames[number];
    frame.file = std::string(line.substr(0, took));
    frame.took =
        took == line.npos ? String() : String(std::string(line.substr(took + kTook.size())));
    return true;
}

const JobFrames::Frame* JobFrames::Find(int number) const
{
    const auto found = m_Frames.find(number);
    return found == m_Frames.end() ? nullptr : &found->second;
}
