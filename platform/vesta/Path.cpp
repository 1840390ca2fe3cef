#include "vesta/Path.h"

#include <filesystem>

namespace
{

std::filesystem::path Standard(const String& text)
{
    return static_cast<const std::string&>(text);
}

} // namespace

String Path::Leaf() const
{
    return Standard(m_Text).filename().string();
}

String Path::Extension() const
{
    const std::string extension = Standard(m_Text).extension().string();
    return extension.empty() ? String() : String(extension.substr(1));
}

Path Path::Branch(bool isFolder, bool slash) const
{
    String folder = isFolder ? m_Text : String(Standard(m_Text).parent_path().string());
    while (folder.size() > 1 && folder.back() == '/')
    {
        folder.pop_back();
    }
    if (slash && !folder.empty() && folder.back() != '/')
    {
        folder += '/';
    }
    return folder;
}

Path Path::operator/(const String& name) const
{
    if (m_Text.empty())
    {
        return name;
    }
    const size_t first = name.find_first_not_of('/');
    const String tail = first == String::npos ? String() : String(name.substr(first));
    return m_Text + (m_Text.back() == '/' ? "" : "/") + tail;
}
