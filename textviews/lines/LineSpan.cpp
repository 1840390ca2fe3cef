#include "textviews/lines/LineSpan.h"

#include "textviews/lines/LineIndex.h"
#include "textviews/lines/WordEdges.h"

#include <algorithm>

namespace textviews
{
namespace
{
constexpr size_t kReach = 16 * 1024; // bytes to either side of a click; a line may have any length
constexpr size_t kLongestCharacter = 4;

enum class Class
{
    Word,
    Blank,
    Other
};

Class ClassOf(const TextCell& cell)
{
    if (IsWordCode(cell.code))
    {
        return Class::Word;
    }
    return cell.code == ' ' ? Class::Blank : Class::Other;
}

// Where the character begins that holds the byte.
size_t CharacterOf(std::string_view text, size_t byte)
{
    for (size_t back = std::min(kLongestCharacter - 1, byte); back > 0; --back)
    {
        if (static_cast<size_t>(CellAt(text, byte - back).bytes) > back)
        {
            return byte - back;
        }
    }
    return byte;
}
} // namespace

ByteSpan WordAt(std::string_view text, size_t byte)
{
    if (text.empty())
    {
        return {};
    }
    const size_t at = CharacterOf(text, std::min(byte, text.size() - 1));
    const Class  wanted = ClassOf(CellAt(text, at));
    ByteSpan     word{at, at};
    const size_t last = std::min(text.size(), at + kReach);
    while (word.end < last && ClassOf(CellAt(text, word.end)) == wanted)
    {
        word.end += static_cast<size_t>(CellAt(text, word.end).bytes);
    }
    const size_t first = at - std::min(at, kReach);
    while (word.begin > first)
    {
        const size_t before = CharacterOf(text, word.begin - 1);
        if (ClassOf(CellAt(text, before)) != wanted)
        {
            break;
        }
        word.begin = before;
    }
    return word;
}

void LineSpan::Begin(int line, const ByteSpan& what, SpanUnit by)
{
    m_Line = line;
    m_By = by;
    m_Start = what;
    m_Bytes = what;
}

void LineSpan::Drag(const ByteSpan& what)
{
    m_Bytes = {std::min(m_Start.begin, what.begin), std::max(m_Start.end, what.end)};
}

void LineSpan::LineInserted(int line)
{
    m_Line = IndexAfterInsert(m_Line, line);
}

void LineSpan::LineErased(int line)
{
    if (m_Line == line)
    {
        Clear();
    }
    m_Line = IndexAfterErase(m_Line, line);
}
} // namespace textviews
