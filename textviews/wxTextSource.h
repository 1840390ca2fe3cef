#pragma once

#include "vesta/Descriptor.h"
#include "vesta/Export.h"

#include <cstddef>
#include <cstdint>
#include <utility>

/// Text that a view shows but does not keep: it reads the bytes of what is seen. The bytes of a
/// place stay the same as long as they are there at all. Any thread, several at a time.
class TOLVAN_API wxTextSource
{
public:
    wxTextSource() = default;
    virtual ~wxTextSource();
    wxTextSource(const wxTextSource&) = delete;
    wxTextSource& operator=(const wxTextSource&) = delete;

    /// Reads so many bytes from that place on. Gives how many there were: fewer when the text ends
    /// there (`problem` is 0), or when the next one cannot be read (`problem` is the `errno`).
    virtual size_t Read(uint64_t offset, char* buffer, size_t count, int& problem) const = 0;
};

/// The text of an open file, which need not have a name any more.
class TOLVAN_API wxTextFile : public wxTextSource
{
public:
    explicit wxTextFile(Descriptor file) : m_File(std::move(file)) {}
    size_t Read(uint64_t offset, char* buffer, size_t count, int& problem) const override;
    int    Number() const { return m_File.Get(); } ///< Of the descriptor.

private:
    Descriptor m_File;
};

/// Neighbouring lines of a source: what a view has to know of them, without their bytes.
struct wxTextStretch
{
    uint64_t offset = 0; ///< Where in the source the first one starts.
    uint32_t size = 0;   ///< Bytes in the source.
    uint32_t bytes = 0;  ///< Of the lines as the view has them: no line feeds, tabs as spaces.
    int      lines = 0;
    int64_t  cells = 0;      ///< Of the widest line, unless one found by the same call is wider.
    bool     goesOn = false; ///< The last line was cut: the stretch behind is the rest of it.
};
