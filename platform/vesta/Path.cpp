#include "vesta/Path.h"

namespace
{

size_t LeafStart(const String& text)
{
    const size_t slash = text.rfind('/');
    return slash == String::npos ? 0 : slash + 1;
}

} // namespace

String Path::Leaf() const
{
    return m_Text.substr(LeafStart(m_Text));
}

String Path::Extension() const
{
    const String leaf = Leaf();
    const size_t dot = leaf.rfind('.');
    return dot == String::npos || dot == 0 ? String() : String(leaf.substr(dot + 1));
}

Path Path::Branch(bool isFolder, bool slash) const
{
    String folder = isFolder ? m_Text : String(m_Text.substr(0, LeafStart(m_Text)));
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
