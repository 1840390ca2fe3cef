#pragma once

#include <string>
#include <string_view>

namespace textviews
{
/// Finds a row of bytes in other bytes, in a time linear in those whatever the bytes are.
class ByteFinder
{
public:
    /// An empty text is found at the beginning.
    explicit ByteFinder(std::string text = {});

    const std::string& Text() const { return m_Text; }

    /// The place of its first occurrence, else `std::string_view::npos`.
    size_t Find(std::string_view in) const;

private:
    std::string m_Text;
    size_t      m_Rare = 0; ///< The place in the text of the byte that logs hold least often.
};
} // namespace textviews
