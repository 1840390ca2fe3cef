#pragma once

#include "textviews/wxTextSource.h"
#include "vesta/String.h"

#include <memory>

/// A file without a name on the disk for text that can be read only once. It goes with its last
/// user.
class SpoolFile
{
public:
    /// False with the reason when the disk has no room for more, of which some is left for others.
    bool Append(const char* bytes, size_t count, String& problem);

    const std::shared_ptr<const wxTextSource>& Source() const { return m_Source; }
    uint64_t                                   Size() const { return m_Size; }

private:
    bool Open(String& problem);

    std::shared_ptr<const wxTextSource> m_Source;
    int                                 m_Number = -1; ///< Of the source's descriptor.
    uint64_t                            m_Size = 0;
};
