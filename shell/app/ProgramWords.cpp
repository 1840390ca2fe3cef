#include "shell/app/ProgramWords.h"

#include "appearance/wxTolvanString.h"

#include <fstream>

namespace shell
{
namespace
{
std::vector<String> GivenWords()
{
    std::vector<String> words;
    std::ifstream       file("/proc/self/cmdline", std::ios::binary);
    for (std::string word; std::getline(file, word, '\0');)
    {
        words.emplace_back(word);
    }
    return words;
}
} // namespace

std::vector<String> ProgramWords(const std::vector<String>& taken)
{
    return ProgramWords(taken, GivenWords());
}

std::vector<String> ProgramWords(const std::vector<String>& taken, const std::vector<String>& given)
{
    std::vector<String> words;
    size_t              next = 0; // of those taken
    for (const String& word : given)
    {
        const wxString text(word.c_str(), wxConvLocal);
        if (text.empty() && !word.empty())
        {
            words.push_back(word);
        }
        else if (next < taken.size() && wxtFromWx(text) == taken[next])
        {
            words.push_back(word);
            ++next;
        }
    }
    return next == taken.size() ? words : taken;
}
} // namespace shell
