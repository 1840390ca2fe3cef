#include "dialogs/colours/ColourFile.h"

#include "dialogs/colours/ColourText.h"
#include "vesta/File.h"
#include "vesta/FileLock.h"
#include "vesta/IniFile.h"

namespace dialogs
{
namespace
{
constexpr int kLockTime = 1000; // milliseconds
}

ColourFile::ColourFile(const Path& path, const SchemeColours& dark)
    : m_Path(File::FollowLinks(path)),
      m_Dark(dark),
      m_Original(Read()),
      m_Base(m_Original),
      m_Written(m_Original)
{
    m_Colours = ReadColours(m_Original.value_or(""), dark).colours;
}

Path ColourFile::UserFile()
{
    return File::GetUserDir().Branch(true, true) / "Colors.ini";
}

ColourFile::Bytes ColourFile::Read() const
{
    return File::Exists(m_Path) ? Bytes(File::Read(m_Path, IniFile::k_Limit)) : std::nullopt;
}

// Into the base, not into what was written last: a line that went and comes back has its old place.
void ColourFile::Write(const SchemeColours& colours)
{
    File::MakeFolder(m_Path.Branch());
    const FileLock lock(m_Path, kLockTime);
    const Bytes    present = Read();
    if (present != m_Written)
    {
        m_Base = present;
    }
    m_IsRestored = false;
    const String text = WithColours(m_Base.value_or(""), m_Original.value_or(""), colours, m_Dark);
    if (present != text)
    {
        File::WriteAtomically(m_Path, text);
    }
    m_Written = text;
}

void ColourFile::Restore()
{
    const FileLock lock(m_Path, kLockTime);
    const Bytes    present = Read();
    Bytes          wanted = m_Original;
    if (!m_IsRestored && (present != m_Written || m_Base != m_Original))
    {
        wanted = WithColoursTakenBack(present.value_or(""), m_Original.value_or(""));
    }
    if (!wanted)
    {
        File::Remove(m_Path);
    }
    else if (wanted != present)
    {
        File::WriteAtomically(m_Path, *wanted);
    }
    m_Base = m_Original;
    m_Written = wanted;
    m_IsRestored = wanted == m_Original;
}
} // namespace dialogs
