#include "dialogs/colours/ColourFile.h"

#include "dialogs/colours/ColourText.h"
#include "vesta/File.h"
#include "vesta/FileLock.h"
#include "vesta/IniFile.h"

#include <fcntl.h>

namespace dialogs
{
namespace
{
constexpr int    kLockTime = 1000; // milliseconds
constexpr mode_t kPrivateFile = 0600;

// Open unless the folder is read-only, which the first write tells of.
Descriptor LockFileOf(const Path& path)
{
    File::MakeFolder(path.Branch());
    return Descriptor::Open(path.Text() + ".edit.lock", O_RDWR | O_CREAT | O_NOFOLLOW,
                            kPrivateFile);
}
} // namespace

ColourFile::ColourFile(const Path& path, const SchemeColours& dark)
    : m_Path(File::FollowLinks(path)),
      m_Editing(LockFileOf(m_Path)),
      m_IsAlone(!m_Editing.IsOpen() || m_Editing.LockUnlessTaken()),
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
    const FileLock lock(m_Path, kLockTime);
    const Bytes    present = Read();
    if (present != m_Written)
    {
        m_Base = present;
    }
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
    if (present && (present != m_Written || m_Base != m_Original))
    {
        wanted = WithColoursTakenBack(*present, m_Written.value_or(""), m_Original.value_or(""));
    }
    if (!present || wanted == present)
    {
        return;
    }
    if (wanted)
    {
        File::WriteAtomically(m_Path, *wanted);
    }
    else
    {
        File::Remove(m_Path);
    }
}
} // namespace dialogs
