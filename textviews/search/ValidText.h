#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace textviews
{
/// Any bytes as valid text: each that is none becomes a character that no text has.
class ValidText
{
public:
    /// Of the bytes, which stay valid as long as this is used.
    explicit ValidText(std::string_view bytes);

    std::string_view Text() const { return m_Text; }
    /// The same place, between two characters, in the other one. One that lies behind the last one
    /// asked for is found from there.
    /// @{
    size_t TextPlace(size_t byte);
    size_t BytePlace(size_t place);
    /// @}

private:
    struct Place
    {
        size_t byte = 0;
        size_t text = 0;
    };

    size_t Find(size_t Place::*known, size_t target, size_t Place::*wanted);

    std::string_view m_Bytes;
    std::string_view m_Text;  ///< The bytes themselves where they are valid.
    std::string      m_Valid; ///< Else this.
    Place            m_Place; ///< The last one asked for.
};
} // namespace textviews
