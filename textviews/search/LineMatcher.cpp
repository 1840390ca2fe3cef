#include "textviews/search/LineMatcher.h"

#include "internal/text/Folding.h"
#include "textviews/lines/TextCells.h"
#include "textviews/lines/WordEdges.h"

#include <glib.h>

#include <algorithm>

namespace textviews
{
namespace
{
constexpr uint32_t kTabledCodes = 0x600; // Latin, Greek, Cyrillic and what lies between
constexpr size_t   kAsciiCodes = 0x80;
constexpr uint32_t kLastInvalid = kInvalidByteBase + 0xFF;

// Not by the run-time's functions: those know ASCII only where the locale is "C".
uint32_t LowerCase(uint32_t code)
{
    if (code >= kInvalidByteBase && code <= kLastInvalid)
    {
        return code;
    }
    return g_unichar_tolower(code);
}

struct SizedCode
{
    uint32_t code;
    size_t   bytes;
};

SizedCode NextCode(std::string_view text, size_t byte)
{
    const auto first = static_cast<unsigned char>(text[byte]);
    if (first < kAsciiCodes)
    {
        return {first, 1};
    }
    const TextCell cell = CellAt(text, byte);
    return {cell.code, static_cast<size_t>(cell.bytes)};
}
} // namespace

LineMatcher::LineMatcher(const SearchQuery& query)
    : m_MatchCase(query.matchCase), m_WholeWords(query.wholeWords)
{
    const String& text = query.text;
    if (!m_MatchCase)
    {
        m_FoldedCodes.resize(kTabledCodes);
        for (uint32_t code = 0; code < kTabledCodes; ++code)
        {
            m_FoldedCodes[code] = LowerCase(code);
        }
    }
    for (size_t byte = 0; byte < text.size();)
    {
        const SizedCode next = NextCode(text, byte);
        m_Codes.push_back(Folded(next.code));
        byte += next.bytes;
    }
    PrepareFallbacks();
    PrepareQuickBytes();
    if (m_MatchCase)
    {
        m_Bytes = ByteFinder(text);
        m_Quick = !text.empty();
    }
}

// Blocks of ASCII can be compared by bytes in lower case, unless the text holds other characters.
void LineMatcher::PrepareQuickBytes()
{
    if (m_MatchCase || m_Codes.empty())
    {
        return;
    }
    m_Quick = std::all_of(m_Codes.begin(), m_Codes.end(),
                          [](uint32_t code) { return code < kAsciiCodes; });
    if (m_Quick)
    {
        m_Bytes = ByteFinder(std::string(m_Codes.begin(), m_Codes.end()));
    }
}

uint32_t LineMatcher::Folded(uint32_t code) const
{
    if (m_MatchCase)
    {
        return code;
    }
    return code < kTabledCodes ? m_FoldedCodes[code] : LowerCase(code);
}

// The table of the Knuth-Morris-Pratt search: it never goes back in the line, so that a long line
// can be left and taken up again anywhere.
void LineMatcher::PrepareFallbacks()
{
    m_Fallbacks.assign(m_Codes.size() + 1, 0);
    size_t agreed = 0;
    for (size_t i = 1; i < m_Codes.size(); ++i)
    {
        while (agreed > 0 && m_Codes[i] != m_Codes[agreed])
        {
            agreed = m_Fallbacks[agreed];
        }
        agreed += m_Codes[i] == m_Codes[agreed] ? 1 : 0;
        m_Fallbacks[i + 1] = agreed;
    }
}

size_t LineMatcher::Reach() const
{
    constexpr size_t kLongestCharacter = 4; // bytes; another case of it may be longer than its own
    return kLongestCharacter * (m_Codes.size() + 1);
}

// Where the text begins that ends there.
size_t LineMatcher::StartOf(std::string_view line, size_t end, bool ascii) const
{
    if (ascii)
    {
        return end - m_Codes.size();
    }
    for (size_t i = 0; i < m_Codes.size(); ++i)
    {
        end = CharacterBefore(line, end);
    }
    return end;
}

// The end is looked at first: that is where most are none.
bool LineMatcher::IsWord(std::string_view line, const ByteSpan& span) const
{
    if (span.end < line.size() && IsWordCode(NextCode(line, span.end).code))
    {
        return false;
    }
    return span.begin == 0 || !IsWordCode(NextCode(line, CharacterBefore(line, span.begin)).code);
}

void LineMatcher::HitsIn(std::string_view line, const LinePiece& piece, size_t& from,
                         size_t& budget, std::vector<ByteSpan>& hits)
{
    size_t byte = CharacterFrom(line, from);
    size_t matched = 0;
    bool   ascii = true; // since `from`
    from = piece.end;
    while (!m_Codes.empty() && byte < piece.seen && (matched > 0 || byte < piece.end))
    {
        const SizedCode next = NextCode(line, byte);
        const uint32_t  code = Folded(next.code);
        while (matched > 0 && code != m_Codes[matched])
        {
            matched = m_Fallbacks[matched];
        }
        matched += code == m_Codes[matched] ? 1 : 0;
        byte += next.bytes;
        ascii = ascii && next.bytes == 1;
        if (matched < m_Codes.size())
        {
            continue;
        }
        const ByteSpan span{StartOf(line, byte, ascii), byte};
        if (span.begin >= piece.end)
        {
            break;
        }
        const bool isHit = !m_WholeWords || IsWord(line, span);
        if (isHit)
        {
            hits.push_back(span);
        }
        matched = isHit ? 0 : m_Fallbacks[matched];
    }
    // A piece that was looked at costs its bytes, also where the text is short enough to end early.
    budget -= std::min(budget, piece.seen - std::min(piece.begin, piece.seen) + 1);
}

// Whether the text is anywhere in it, as a word or not.
bool LineMatcher::Holds(std::string_view line) const
{
    size_t matched = 0;
    for (size_t byte = 0; byte < line.size();)
    {
        const SizedCode next = NextCode(line, byte);
        const uint32_t  code = Folded(next.code);
        while (matched > 0 && code != m_Codes[matched])
        {
            matched = m_Fallbacks[matched];
        }
        matched += code == m_Codes[matched] ? 1 : 0;
        byte += next.bytes;
        if (matched == m_Codes.size())
        {
            return true;
        }
    }
    return false;
}

const std::vector<int>& LineMatcher::LinesIn(const LineStore::Block& block, int from, int end,
                                             bool onlyFirst)
{
    m_Lines.clear();
    if (m_Codes.empty() || from >= end)
    {
        return m_Lines;
    }
    if (m_Quick && m_MatchCase)
    {
        QuickLines(block, block.bytes, from, end, onlyFirst);
    }
    else if (m_Quick && KeepLowerCaseOf(block.bytes))
    {
        QuickLines(block, m_LowerCase, from, end, onlyFirst);
    }
    else
    {
        SlowLines(block, from, end, onlyFirst);
    }
    return m_Lines;
}

// Both in one pass without a branch, which the compiler turns into vectors: the passes over a
// block's bytes are what a search costs.
bool LineMatcher::KeepLowerCaseOf(std::string_view bytes)
{
    m_LowerCase.resize(bytes.size());
    unsigned char allBits = 0;
    std::transform(bytes.begin(), bytes.end(), m_LowerCase.begin(),
                   [&allBits](char c)
                   {
                       allBits |= static_cast<unsigned char>(c);
                       return internal::LowerAscii(c);
                   });
    return allBits < kAsciiCodes;
}

// Compares bytes without regard to the lines: the first place within a line's bytes decides on it.
// It may reach into the next line, which rules its own line out, or start within a character, and
// is looked at again. Every look costs as much as the text is long: it goes on only in a line that
// is long enough to hold the text, and so to pay for that.
void LineMatcher::QuickLines(const LineStore::Block& block, std::string_view bytes, int from,
                             int end, bool onlyFirst)
{
    const auto startOf = [&](int line)
    { return line < block.lineCount ? block.StartOf(line) : bytes.size(); };
    const size_t length = m_Bytes.Text().size();
    const auto   longEnough = [&](int line)
    {
        while (line < end && startOf(line + 1) - startOf(line) < length)
        {
            ++line;
        }
        return line;
    };
    const size_t limit = startOf(end);
    for (int line = longEnough(from); line < end; line = longEnough(line + 1))
    {
        const size_t at = startOf(line);
        const size_t hit = m_Bytes.Find(bytes.substr(at, limit - at));
        if (hit == std::string_view::npos)
        {
            return;
        }
        line = block.LineAt(at + hit);
        if (at + hit + length <= startOf(line + 1) && Holds(block.Line(line)))
        {
            m_Lines.push_back(line);
            if (onlyFirst)
            {
                return;
            }
        }
    }
}

void LineMatcher::SlowLines(const LineStore::Block& block, int from, int end, bool onlyFirst)
{
    for (int line = from; line < end; ++line)
    {
        if (Holds(block.Line(line)))
        {
            m_Lines.push_back(line);
            if (onlyFirst)
            {
                return;
            }
        }
    }
}
} // namespace textviews
