#pragma once

#include "vesta/Export.h"
#include "vesta/String.h"

/// The name of a file or folder. Bytes, as the file system has them.
class TOLVAN_API Path
{
public:
    Path() = default;
    Path(const String& text) : m_Text(text) {}
    Path(const std::string& text) : m_Text(text) {}
    Path(const char* text) : m_Text(text) {}

    const String& Text() const { return m_Text; }
    bool          IsEmpty() const { return m_Text.empty(); }

    String Leaf() const;      ///< What follows the last slash.
    String Extension() const; ///< What follows the leaf's last dot, without it; empty when there is
                              ///< none or it is the first byte.
    /// The folder part. With `isFolder` the path itself is taken as a folder and stays whole;
    /// with `slash` the result ends in a slash (unless it is empty).
    Path Branch(bool isFolder = false, bool slash = false) const;

    Path operator/(const String& name) const; ///< One slash between the two.

private:
    String m_Text;
};
