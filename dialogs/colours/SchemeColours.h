#pragma once

#include "appearance/ColorScheme.h"

#include <array>
#include <cstddef>

namespace dialogs
{
/// A colour as a person knows it.
struct ColourName
{
    const String* key;
    const char*   label; ///< To be translated.
};

constexpr size_t                                   k_ColourCount = 27;
extern const std::array<ColourName, k_ColourCount> k_ColourNames;

/// The colours of a scheme, in the order of their names. Invalid: what stands for it is no colour.
using SchemeColours = std::array<wxColour, k_ColourCount>;

/// The place of the colour with that key, which is one of the names.
size_t IndexOf(const String& key);
/// The colours of a scheme, as the table would have them. The table stays as it is.
SchemeColours ColoursOf(int scheme);
} // namespace dialogs
