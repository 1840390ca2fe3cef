#include "logview/LineCutter.h"

#include "textviews/wxTextFinder.h"

#include <cstring>
#include <utility>

namespace
{
constexpr size_t kLongestTail = 3; // bytes of a character behind its first

// A byte of a character behind its first.
bool IsTail(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xc0) == 0x80;
}
} // namespace

LineCutter::LineCutter(OnLine onLine, OnLine onPartialLine)
    : m_OnLine(std::move(onLine)), m_OnPartialLine(std::move(onPartialLine))
{
}

void LineCutter::Take(const char* bytes, size_t count)
{
    const char* const end = bytes + count;
    while (bytes != end)
    {
        const auto* const lineEnd =
            static_cast<const char*>(std::memchr(bytes, '\n', static_cast<size_t>(end - bytes)));
        const char* const partEnd = lineEnd ? lineEnd : end;
        TakePart(bytes, static_cast<size_t>(partEnd - bytes));
        if (!lineEnd)
        {
            return;
        }
        FinishLine();
        bytes = lineEnd + 1;
    }
}

// Of one line.
void LineCutter::TakePart(const char* bytes, size_t count)
{
    m_Partial.append(bytes, count);
    while (m_Partial.size() > k_LongestTextLine)
    {
        size_t cut = k_LongestTextLine;
        while (cut > k_LongestTextLine - kLongestTail && IsTail(m_Partial[cut]))
        {
            --cut;
        }
        const String rest = m_Partial.substr(cut);
        m_Partial.resize(cut);
        FinishLine();
        m_Partial = rest;
        if (m_OnCut)
        {
            m_OnCut();
        }
    }
}

void LineCutter::ForgetShown()
{
    if (m_Shown > 0)
    {
        m_OnPartialLine(String());
        m_Shown = 0;
    }
}

void LineCutter::FinishLine()
{
    ForgetShown();
    m_OnLine(m_Partial);
    m_Partial.clear();
}

void LineCutter::Finish()
{
    if (!m_Partial.empty())
    {
        FinishLine();
    }
    ForgetShown();
}

String LineCutter::Drop()
{
    ForgetShown();
    return std::exchange(m_Partial, String());
}

void LineCutter::Show(const String& line)
{
    m_Partial = line;
    ShowPartial();
}

// A line that grows has another length.
void LineCutter::ShowPartial()
{
    if (m_Partial.size() != m_Shown)
    {
        m_OnPartialLine(m_Partial);
        m_Shown = m_Partial.size();
    }
}
