#pragma once

#include "dialogs/colours/SchemeColours.h"
#include "vesta/Descriptor.h"
#include "vesta/Path.h"

#include <optional>

namespace dialogs
{
/// "Colors.ini" while its colours are edited: colours go into it as a hand would write them, and
/// what it was comes back to the byte. What others write into it meanwhile is kept, except for
/// colours, which the next `Write` has its own of.
class ColourFile
{
public:
    /// Makes the folder. Throws an `Exception*` when it cannot, or when the file is there and
    /// cannot be read.
    ColourFile(const Path& path, const SchemeColours& dark);

    /// Of the user's folder. Throws an `Exception*` when there is none.
    static Path UserFile();

    /// Whether nobody else edits it. Two at once would each bring back what the other one tries.
    bool                 IsAlone() const { return m_IsAlone; }
    const SchemeColours& Colours() const { return m_Colours; } ///< As they were at first.
    /// Writes the colours and that the custom scheme is chosen; nothing where the file has all of
    /// that. Throws an `Exception*`.
    void Write(const SchemeColours& colours);
    /// Brings back what was there at first. Where others have written into it since, that is what
    /// was written here, no more. Throws an `Exception*`.
    void Restore();

private:
    using Bytes = std::optional<String>; // none: there is no file

    Bytes Read() const;

    Path          m_Path;
    Descriptor    m_Editing; ///< Locked by who edits it.
    bool          m_IsAlone;
    SchemeColours m_Dark;
    SchemeColours m_Colours;
    Bytes         m_Original;
    Bytes         m_Base;    ///< What the colours are written into: at first the original.
    Bytes         m_Written; ///< What the file held when it was left.
};
} // namespace dialogs
