#include "vesta/CommandLine.h"

#include "vesta/CallEntry.h"

#include <algorithm>
#include <utility>

namespace
{

bool IsOption(const String& word)
{
    if (word.size() < 2 || word[0] != '-')
    {
        return false; // A lone "-" stands for the standard input or output.
    }
    const char second = word[1] == '.' && word.size() > 2 ? word[2] : word[1];
    return second < '0' || second > '9'; // "-5" and "-.5" are numbers.
}

} // namespace

CommandLine::CommandLine(std::vector<String> words, std::vector<String> withValue)
    : m_Words(std::move(words)), m_WithValue(std::move(withValue))
{
    Parse();
}

CommandLine::CommandLine(int argc, const char* const* argv, std::vector<String> withValue)
    : m_Words(argv, argv + std::max(argc, 0)), m_WithValue(std::move(withValue))
{
    Parse();
}

bool CommandLine::Has(const String& option) const
{
    return m_Options.count(option) != 0;
}

String CommandLine::Value(const String& option, const String& otherwise) const
{
    const auto found = m_Options.find(option);
    return found == m_Options.end() ? otherwise : found->second;
}

void CommandLine::TakesValue(const String& option)
{
    CALL_ENTRY("CommandLine::TakesValue");
    m_WithValue.push_back(option);
    Parse();
}

void CommandLine::Parse()
{
    m_Program = m_Words.empty() ? String() : m_Words.front();
    m_Arguments.clear();
    m_Options.clear();
    bool optionsEnded = false;
    for (size_t i = 1; i < m_Words.size(); ++i)
    {
        const String& word = m_Words[i];
        if (optionsEnded || !IsOption(word))
        {
            m_Arguments.push_back(word);
        }
        else if (word == "--")
        {
            optionsEnded = true;
        }
        else
        {
            const bool tookNext =
                AddOption(word, i + 1 < m_Words.size() ? &m_Words[i + 1] : nullptr);
            i += tookNext ? 1 : 0;
        }
    }
}

bool CommandLine::AddOption(const String& word, const String* next)
{
    const String text = word.substr(word[1] == '-' ? 2 : 1);
    const size_t equals = text.find('=');
    if (equals != String::npos)
    {
        m_Options[text.substr(0, equals)] = text.substr(equals + 1);
        return false;
    }
    const bool takes = std::find(m_WithValue.begin(), m_WithValue.end(), text) != m_WithValue.end();
    m_Options[text] = takes && next ? *next : String();
    return takes && next;
}
