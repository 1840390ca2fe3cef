#include "textviews/search/ByteFinder.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace textviews
{
namespace
{
// Comparing a longer text at every place of its rare byte could cost more than it saves.
constexpr size_t kShortText = 64;
// A place of the rare byte where the text is not costs as much as looking through so many bytes.
constexpr size_t kMissCost = 64;
constexpr size_t kFreeMisses = 8;

constexpr size_t kByteValues = 256;
using Ranks = std::array<unsigned char, kByteValues>;

// The later in this row, the more of a log is made of it; what is not in it is rare.
Ranks RanksOfBytes()
{
    constexpr std::string_view kFrequent =
        "QZXJKVYWGHUqzjxBMOFPDCLNTIRSAEkvwy\"'()[]<>=,;_9876543bgfpmhudc-:/.2l1nrsioat0e ";
    Ranks         ranks{};
    unsigned char rank = 0;
    for (const char c : kFrequent)
    {
        ranks[static_cast<unsigned char>(c)] = ++rank;
    }
    return ranks;
}

size_t RarestIn(std::string_view text)
{
    static const Ranks kRanks = RanksOfBytes();
    const auto         rank = [](char c) { return kRanks[static_cast<unsigned char>(c)]; };
    const auto         rarest = std::min_element(text.begin(), text.end(),
                                                 [&](char a, char b) { return rank(a) < rank(b); });
    return static_cast<size_t>(rarest - text.begin());
}

// The library's own search takes a time linear in the bytes, too, but several times as long.
size_t FindByLibrary(std::string_view in, size_t from, std::string_view text)
{
    const void* const hit = memmem(in.data() + from, in.size() - from, text.data(), text.size());
    return hit ? static_cast<size_t>(static_cast<const char*>(hit) - in.data())
               : std::string_view::npos;
}
} // namespace

ByteFinder::ByteFinder(std::string text) : m_Text(std::move(text)), m_Rare(RarestIn(m_Text))
{
}

size_t ByteFinder::Find(std::string_view in) const
{
    if (m_Text.size() > in.size())
    {
        return std::string_view::npos;
    }
    if (m_Text.empty() || m_Text.size() > kShortText)
    {
        return FindByLibrary(in, 0, m_Text);
    }
    // Where the text's first byte may stand.
    const size_t end = in.size() - m_Text.size() + 1;
    size_t       from = 0;
    for (size_t misses = 0; from < end; ++misses)
    {
        if (misses > kFreeMisses + from / kMissCost)
        {
            return FindByLibrary(in, from, m_Text);
        }
        const void* const rare = memchr(in.data() + from + m_Rare, m_Text[m_Rare], end - from);
        if (!rare)
        {
            break;
        }
        const size_t at = static_cast<size_t>(static_cast<const char*>(rare) - in.data()) - m_Rare;
        if (in.compare(at, m_Text.size(), m_Text) == 0)
        {
            return at;
        }
        from = at + 1;
    }
    return std::string_view::npos;
}
} // namespace textviews
