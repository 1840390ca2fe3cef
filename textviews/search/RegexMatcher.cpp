#include "textviews/search/RegexMatcher.h"

#include "textviews/lines/TextCells.h"
#include "textviews/search/ValidText.h"

#include <wx/translation.h>

#include <re2/re2.h>

#include <algorithm>
#include <chrono>
#include <cstring>

namespace textviews
{
namespace
{
constexpr size_t kReach = 64 * 1024;
constexpr size_t kCallCost = 64; // bytes that could be looked through in the time of a call
constexpr auto   kMostTime = std::chrono::milliseconds(4); // of a step, whatever its budget
constexpr size_t kBeside = 4;                              // bytes of a character at most
constexpr int kMemory = 2 << 20; // bytes of an expression; one that takes more takes long to read

// "%s" stands for the part of the expression that it is about.
const char* ProblemText(RE2::ErrorCode code)
{
    switch (code)
    {
    case RE2::ErrorMissingParen:
        return wxTRANSLATE("A closing parenthesis is missing");
    case RE2::ErrorUnexpectedParen:
        return wxTRANSLATE("A closing parenthesis has no opening one");
    case RE2::ErrorMissingBracket:
        return wxTRANSLATE("A closing bracket is missing after %s");
    case RE2::ErrorBadCharRange:
    case RE2::ErrorBadCharClass:
        return wxTRANSLATE("%s names no characters");
    case RE2::ErrorTrailingBackslash:
        return wxTRANSLATE("Nothing follows the last backslash");
    case RE2::ErrorRepeatArgument:
        return wxTRANSLATE("There is nothing before %s to repeat");
    case RE2::ErrorRepeatSize:
        return wxTRANSLATE("%s repeats more than 1000 times, or never");
    case RE2::ErrorRepeatOp:
        return wxTRANSLATE("%s repeats what is repeated already");
    case RE2::ErrorBadEscape:
        return wxTRANSLATE("%s has no meaning");
    case RE2::ErrorBadPerlOp:
        return wxTRANSLATE("%s is not supported");
    case RE2::ErrorBadNamedCapture:
        return wxTRANSLATE("%s is no name for a group");
    case RE2::ErrorPatternTooLarge:
        return wxTRANSLATE("The expression is too long or repeats too much");
    default:
        return wxTRANSLATE("This is no regular expression");
    }
}

RE2::Options Options(bool matchCase)
{
    RE2::Options options;
    options.set_case_sensitive(matchCase);
    options.set_dot_nl(true); // whatever bytes a line has, it is one line
    options.set_log_errors(false);
    options.set_max_mem(kMemory);
    return options;
}

// Whether the expression may mean another thing where the line is one of several: it names the
// text's ends, or changes what the line's ends are.
bool NamesTheText(const String& expression)
{
    for (const char* const part : {"\\A", "\\z", "\\C"})
    {
        if (expression.find(part) != String::npos)
        {
            return true;
        }
    }
    for (size_t at = expression.find("(?"); at != String::npos; at = expression.find("(?", at + 1))
    {
        const auto follows = [&](const char* text)
        { return expression.compare(at + 2, std::strlen(text), text) == 0; };
        if (!follows(":") && !follows("i)") && !follows("i:") && !follows("P<"))
        {
            return true;
        }
    }
    return false;
}

// Null where it can't be.
std::unique_ptr<re2::RE2> ForBlocks(const String& expression, bool matchCase)
{
    RE2::Options options = Options(matchCase);
    options.set_never_nl(true);
    auto forBlocks = std::make_unique<re2::RE2>("(?m)" + expression, options);
    return forBlocks->ok() ? std::move(forBlocks) : nullptr;
}

re2::StringPiece PieceOf(std::string_view text)
{
    return {text.data(), text.size()};
}
} // namespace

RegexMatcher::RegexMatcher(std::unique_ptr<re2::RE2> expression,
                           std::unique_ptr<re2::RE2> forBlocks, std::unique_ptr<LineSieve> sieve,
                           bool wholeWords)
    : m_Expression(std::move(expression)),
      m_ForBlocks(std::move(forBlocks)),
      m_Sieve(std::move(sieve)),
      m_WholeWords(wholeWords)
{
}

RegexMatcher::~RegexMatcher() = default;

String RegexMatcher::Quoted(const String& text)
{
    return RE2::QuoteMeta(text);
}

std::shared_ptr<HitFinder> RegexMatcher::Make(const SearchQuery& query, QueryProblem& problem)
{
    String     text = query.text;
    const auto compiled = [&]
    { return std::make_unique<re2::RE2>(text, Options(query.matchCase)); };
    std::unique_ptr<re2::RE2> expression = compiled();
    if (expression->ok() && query.wholeWords)
    {
        // What stands beside it is looked at, too, so that alternatives are tried that end a word.
        const String before = "(?:^|[^\\pL\\pM\\pN_])(";
        const String behind = ")(?:$|[^\\pL\\pM\\pN_])";
        text = before + query.text + behind;
        expression = compiled();
        if (!expression->ok()) // it may have left a quotation open
        {
            text = before + query.text + "\\E" + behind;
            expression = compiled();
        }
    }
    if (!expression->ok())
    {
        problem = {ProblemText(expression->error_code()), String(expression->error_arg())};
        return nullptr;
    }
    std::unique_ptr<re2::RE2> forBlocks =
        NamesTheText(query.text) ? nullptr : ForBlocks(text, query.matchCase);
    return std::shared_ptr<HitFinder>(new RegexMatcher(std::move(expression), std::move(forBlocks),
                                                       LineSieve::Make(text), query.wholeWords));
}

size_t RegexMatcher::Reach() const
{
    return kReach;
}

// The text has to be valid. A hit that begins before `from` is none.
bool RegexMatcher::NextHit(std::string_view text, const LinePiece& piece, size_t from,
                           ByteSpan& hit) const
{
    re2::StringPiece groups[2];
    // Of a word what stands before it is looked at.
    size_t start = m_WholeWords ? CharacterBefore(text, from) : from;
    for (; start <= from; start = std::max(from, start + 1))
    {
        if (!m_Expression->Match(PieceOf(text), start, piece.seen, RE2::UNANCHORED, groups,
                                 m_WholeWords ? 2 : 1))
        {
            return false;
        }
        const re2::StringPiece& found = groups[m_WholeWords ? 1 : 0];
        hit.begin = static_cast<size_t>(found.data() - text.data());
        hit.end = hit.begin + found.size();
        if (hit.begin >= from || start == from)
        {
            return true;
        }
    }
    return false;
}

void RegexMatcher::HitsInText(std::string_view text, const LinePiece& piece, size_t& from,
                              size_t& budget, std::vector<ByteSpan>& hits) const
{
    using Clock = std::chrono::steady_clock;
    const auto latest = Clock::now() + kMostTime;
    from = CharacterFrom(text, from);
    while (from < piece.end && budget > 0)
    {
        ByteSpan     hit;
        const bool   found = NextHit(text, piece, from, hit);
        const size_t looked = found ? std::max(hit.end, from) - from : piece.seen - from;
        // It may have looked far beyond the hit, which is not told.
        budget = Clock::now() < latest ? budget - std::min(budget, looked + kCallCost) : 0;
        if (!found || hit.begin >= piece.end)
        {
            break;
        }
        if (hit.begin < hit.end)
        {
            hits.push_back(hit);
            from = hit.end;
        }
        else
        {
            from = hit.begin + static_cast<size_t>(CellAt(text, hit.begin).bytes);
        }
        if (from < piece.end && budget == 0)
        {
            return;
        }
    }
    from = piece.end;
}

void RegexMatcher::HitsIn(std::string_view line, const LinePiece& piece, size_t& from,
                          size_t& budget, std::vector<ByteSpan>& hits)
{
    if (from >= piece.end)
    {
        return;
    }
    // With what stands beside it, so that the piece's ends are not taken for the line's.
    const size_t    begin = CharacterFrom(line, piece.begin);
    const size_t    first = CharacterBefore(line, CharacterBefore(line, begin));
    const size_t    last = CharacterFrom(line, std::min(piece.seen + kBeside, line.size()));
    ValidText       valid(line.substr(first, last - first));
    const auto      placeOf = [&](size_t byte) { return valid.TextPlace(byte - first); };
    const auto      byteOf = [&](size_t place) { return first + valid.BytePlace(place); };
    const size_t    known = hits.size();
    const LinePiece within{placeOf(begin), placeOf(CharacterFrom(line, piece.end)),
                           placeOf(CharacterFrom(line, piece.seen))};
    size_t          place = placeOf(CharacterFrom(line, from));
    HitsInText(valid.Text(), within, place, budget, hits);
    for (size_t i = known; i < hits.size(); ++i)
    {
        hits[i] = {byteOf(hits[i].begin), byteOf(hits[i].end)};
    }
    from = place >= within.end ? piece.end : byteOf(place);
}

bool RegexMatcher::Holds(std::string_view text) const
{
    return m_Expression->Match(PieceOf(text), 0, text.size(), RE2::UNANCHORED, nullptr, 0);
}

void RegexMatcher::LinesLeftBySieve(const LineStore::Block& block, int from, int end,
                                    bool onlyFirst)
{
    for (const int line : m_Sieve->Rest(block, from, end))
    {
        if (Holds(block.Line(line)))
        {
            m_Lines.push_back(line);
            if (onlyFirst)
            {
                break;
            }
        }
    }
    if (m_Sieve->IsWorthless())
    {
        m_Sieve.reset();
    }
}

// False where they hold newlines of their own.
bool RegexMatcher::Join(const LineStore::Block& block, int from, int end)
{
    if (block.bytes.find('\n') != std::string_view::npos)
    {
        return false;
    }
    m_Joined.clear();
    m_Ends.clear();
    for (int line = from; line < end; ++line)
    {
        m_Joined += block.Line(line);
        m_Ends.push_back(m_Joined.size());
        m_Joined += '\n';
    }
    return true;
}

// To begin to look costs as much as many bytes do: most lines have no hit.
void RegexMatcher::LinesInJoined(int from, bool onlyFirst)
{
    for (size_t at = 0; at < m_Joined.size();)
    {
        re2::StringPiece hit;
        if (!m_ForBlocks->Match(m_Joined, at, m_Joined.size(), RE2::UNANCHORED, &hit, 1))
        {
            return;
        }
        const auto place = static_cast<size_t>(hit.data() - m_Joined.data());
        const auto line = std::lower_bound(m_Ends.begin(), m_Ends.end(), place);
        if (line == m_Ends.end())
        {
            return; // nothing, behind the last newline
        }
        m_Lines.push_back(from + static_cast<int>(line - m_Ends.begin()));
        if (onlyFirst)
        {
            return;
        }
        at = *line + 1;
    }
}

const std::vector<int>& RegexMatcher::LinesIn(const LineStore::Block& block, int from, int end,
                                              bool onlyFirst)
{
    m_Lines.clear();
    const bool ascii = IsAscii(block.bytes);
    if (m_Sieve && ascii)
    {
        LinesLeftBySieve(block, from, end, onlyFirst);
        return m_Lines;
    }
    if (m_ForBlocks && ascii && Join(block, from, end))
    {
        LinesInJoined(from, onlyFirst);
        return m_Lines;
    }
    for (int line = from; line < end; ++line)
    {
        const std::string_view text = block.Line(line);
        if (ascii ? Holds(text) : Holds(ValidText(text).Text()))
        {
            m_Lines.push_back(line);
            if (onlyFirst)
            {
                break;
            }
        }
    }
    return m_Lines;
}
} // namespace textviews
