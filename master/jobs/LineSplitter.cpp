#include "master/jobs/LineSplitter.h"

namespace master
{
void LineSplitter::Add(std::string_view bytes, const Take& take)
{
    for (;;)
    {
        const std::size_t end = bytes.find('\n');
        if (end == std::string_view::npos)
        {
            AddUnfinished(bytes, take);
            return;
        }
        const std::string_view line = bytes.substr(0, end);
        if (m_Begun.empty() && line.size() <= m_Limit)
        {
            take(line); // the usual line, whole in these bytes: no copy
        }
        else
        {
            AddUnfinished(line, take);
            take(m_Begun);
            m_Begun.clear();
        }
        bytes.remove_prefix(end + 1);
    }
}

void LineSplitter::AddUnfinished(std::string_view bytes, const Take& take)
{
    // A piece goes only when more of its line follows: a line of exactly the limit stays one.
    while (m_Begun.size() + bytes.size() > m_Limit)
    {
        const std::size_t room = m_Limit - m_Begun.size();
        m_Begun.append(bytes.substr(0, room));
        bytes.remove_prefix(room);
        take(m_Begun);
        m_Begun.clear();
    }
    m_Begun.append(bytes);
}

void LineSplitter::Finish(const Take& take)
{
    if (!m_Begun.empty())
    {
        take(m_Begun);
        m_Begun.clear();
    }
}
} // namespace master
