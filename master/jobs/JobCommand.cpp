#include "master/jobs/JobCommand.h"

#include "vesta/Exception.h"
#include "vesta/File.h"

#include <unistd.h>

namespace master
{
namespace
{

constexpr size_t kMostWord = 100 * 1024; // bytes: the system refuses words of 128 KiB

[[noreturn]] void BadCommand(const String& text)
{
    Exception::Throw("Master", "CommandWords", ec_BadData, text);
}

bool IsProgram(const Path& file)
{
    return access(file.Text().c_str(), X_OK) == 0 && !File::IsFolder(file);
}

} // namespace

String ExpandReferences(const String& text, const Lookup& lookup)
{
    String expanded;
    size_t at = 0;
    for (size_t begin; (begin = text.find('%', at)) != String::npos;)
    {
        const size_t end = text.find('%', begin + 1);
        if (end == String::npos)
        {
            BadCommand("A reference is not ended: " + text.substr(begin));
        }
        const String name = text.substr(begin + 1, end - begin - 1);
        String       value = "%";
        if (!name.empty() && !lookup(name, value))
        {
            BadCommand("There is no value for %" + name + "%");
        }
        expanded.append(text, at, begin - at).append(value);
        at = end + 1;
    }
    return expanded.append(text, at, String::npos);
}

std::vector<String> CommandWords(const String& commandLine, const Lookup& lookup)
{
    std::vector<String> words;
    StringTokenizer     tokens(commandLine, " \t");
    while (tokens.HasMore())
    {
        const String token = tokens.Next();
        if (token.empty())
        {
            continue; // between two blanks
        }
        words.push_back(ExpandReferences(token, lookup));
        if (words.back().find('\0') != String::npos || words.back().size() > kMostWord)
        {
            BadCommand("The value for " + token + " is too long or holds a NUL byte");
        }
    }
    if (words.empty() || words[0].empty())
    {
        BadCommand("The job's type names no program");
    }
    return words;
}

Path FindProgram(const String& name, const Path& moduleFolder, const Path& ownFolder,
                 const String& searchPath)
{
    if (name.find('/') != String::npos)
    {
        Path file = name[0] == '/' ? Path(name) : moduleFolder / name;
        if (!File::Exists(file))
        {
            Exception::Throw("Master", "FindProgram", ec_Refused,
                             "There is no program " + file.Text());
        }
        return file;
    }
    if (IsProgram(ownFolder / name))
    {
        return ownFolder / name;
    }
    for (const String& folder : StringTokenizer::Split(searchPath, ":"))
    {
        if (!folder.empty() && IsProgram(Path(folder) / name))
        {
            return Path(folder) / name;
        }
    }
    Exception::Throw("Master", "FindProgram", ec_Refused,
                     "There is no program '" + name + "' in " + ownFolder.Text() +
                         " or on the search path");
}
} // namespace master
